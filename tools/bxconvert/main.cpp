// bxconvert: reads any XML document and writes it again, in any form, piece by piece.

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>

#include "BxXmlLib5/core/CBxException.h"
#include "Conversion.h"
#include "OneLine.h"
#include "Options.h"
#include "Output.h"
#include "Progress.h"
#include "common/CommandLine.h"

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

enum ExitStatus { kSuccess = 0, kFailed = 1, kWrongUsage = 2 };

/// Prints one line on standard error, whatever its parts hold.
void Report(std::string const& line) {
    std::fputs(("bxconvert: " + OneLine(line) + "\n").c_str(), stderr);
}

/// Runs a step; false, with a line on standard error, if it fails.
template <class Step>
bool Try(std::string const& input, std::string const& output, Step step) {
    auto const report = [&input](std::string const& what) { Report(input + ": " + what); };
    try {
        step();
        return true;
    } catch (CBxException const& failure) {
        Report(ToUtf8(failure.GetReport(FromUtf8(input))));
    } catch (std::bad_alloc const&) {
        report("not enough memory");
    } catch (OutputFailure const& failure) {
        Report(output + ": " + failure.code().message());
    } catch (std::system_error const& failure) {
        report(failure.code().message());
    } catch (std::runtime_error const& failure) {
        report(failure.what());
    }
    return false;
}

void Print(std::string const& text, Sink& sink) {
    sink.Write({reinterpret_cast<unsigned char const*>(text.data()), text.size()});
    sink.Finish();
}

ExitStatus Run(Options const& options) {
    std::string const input = options.m_input == kStandardStream ? "standard input" : options.m_input;
    std::string const outputName = options.m_output == kStandardStream ? "standard output" : options.m_output;
    Output output(options.m_output);
    Losses losses;
    bool const succeeded = Try(input, outputName, [&] {
        if (options.m_help) return Print(HelpText(), output);
        if (options.m_version) return Print("bxconvert " BXCONVERT_VERSION "\n", output);
        std::optional<Progress> progress;
        // Not among the document on the terminal.
        if (options.m_output != kStandardStream || isatty(STDOUT_FILENO) == 0) progress.emplace(input);
        losses = Convert(options, output);
    });
    if (!succeeded) return kFailed;
    std::string const lost = losses.ToText();
    if (!lost.empty()) Report(input + ": warning: " + NotKept(options, lost));
    return kSuccess;
}

/// Goes on after an input that fails.
ExitStatus RunEach(Options const& options) {
    std::string const& folder = options.m_outputDir;
    if (!folder.empty() && !Try(folder, folder, [&] { std::filesystem::create_directories(folder); }))
        return kFailed;
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
