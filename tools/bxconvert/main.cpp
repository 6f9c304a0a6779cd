// bxconvert: reads any XML document into untyped content and writes it again, in any form.

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>

#include "BxXmlLib5/core/CBxException.h"
#include "Conversion.h"
#include "Octets.h"
#include "OneLine.h"
#include "Options.h"
#include "Output.h"
#include "Progress.h"
#include "Statistics.h"
#include "common/CommandLine.h"

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

enum ExitStatus { kSuccess = 0, kFailed = 1, kWrongUsage = 2 };

/// Prints one line on standard error, whatever its parts hold.
void Report(std::string const& line) {
    std::fputs(("bxconvert: " + OneLine(line) + "\n").c_str(), stderr);
}

/// Runs a step that has to do with a file; false, with a line on standard error, if it fails.
template <class Step>
bool Try(std::string const& file, Step step) {
    auto const report = [&file](std::string const& what) { Report(file + ": " + what); };
    try {
        step();
        return true;
    } catch (CBxException const& failure) {
        Report(ToUtf8(failure.GetReport(FromUtf8(file))));
    } catch (std::bad_alloc const&) {
        report("not enough memory");
    } catch (std::system_error const& failure) {
        report(failure.code().message());
    } catch (std::runtime_error const& failure) {
        report(failure.what());
    }
    return false;
}

ExitStatus Run(Options const& options) {
    std::string const input = options.m_input == kStandardStream ? "standard input" : options.m_input;
    std::string const output = options.m_output == kStandardStream ? "standard output" : options.m_output;
    Statistics statistics;
    CBinaryData result;
    if (options.m_help) {
        result = OctetsOf(HelpText());
    } else if (options.m_version) {
        result = OctetsOf("bxconvert " BXCONVERT_VERSION "\n");
    } else if (!Try(input, [&] {
                   Progress const progress(input);
                   result = Convert(options, statistics);
               })) {
        return kFailed;
    }
    if (!Try(output, [&] { WriteOutput(options.m_output, result.GetOctets()); })) return kFailed;
    if (statistics.m_mixed > 0 && !options.m_info) {
        Report(input + ": warning: mixed content, text moved behind the children in " +
               InElements(statistics.m_mixed));
    }
    return kSuccess;
}

/// Goes on after an input that fails.
ExitStatus RunEach(Options const& options) {
    std::string const& folder = options.m_outputDir;
    if (!folder.empty() && !Try(folder, [&] { std::filesystem::create_directories(folder); })) return kFailed;
    ExitStatus status = kSuccess;
    for (Options const& one : ForEachInput(options)) status = std::max(status, Run(one));
    return status;
}

}  // namespace
}  // namespace BxConvert

int main(int argc, char** argv) {
    // A file that grows beyond a limit is then a failed write like any other.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return BxConvert::RunEach(BxConvert::ParseOptions({argv + 1, argv + argc}));
    } catch (CommandLine::UsageError const& error) {
        BxConvert::Report(std::string(error.what()) + ". Try 'bxconvert --help'.");
        return BxConvert::kWrongUsage;
    }
}
