// bxconvert: reads any XML document into untyped content and writes it again.

#include <csignal>
#include <cstdio>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "BxXmlLib5/binding/CBxException.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "CUntypedDocument.h"
#include "Input.h"
#include "OneLine.h"
#include "Options.h"
#include "Output.h"
#include "Statistics.h"

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
        report(ToUtf8(failure.GetFullMessage()));
    } catch (std::bad_alloc const&) {
        report("not enough memory");
    } catch (std::system_error const& failure) {
        report(failure.code().message());
    } catch (std::runtime_error const& failure) {
        report(failure.what());
    }
    return false;
}

std::string InElements(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " element" : " elements");
}

wstring Rewrite(std::unique_ptr<CXmlDocument> document, Statistics const& statistics,
                Options const& options) {
    CUntypedDocument const content(*document, statistics, options.m_keepWhitespace);
    document.reset();  // which has no part in writing, but as much memory as the content
    return content.ToXml(options.m_declaration, options.m_formatted, options.m_eol,
                         CXmlSerializationContext::GetDefaultContext());
}

/// Reads the input and gives what is to be written.
std::string Convert(Options const& options, Statistics& statistics) {
    auto document = std::make_unique<CXmlDocument>(options.m_namespaces ? st_Default : st_NoNamespaces);
    auto const octets = LoadInput(*document, options.m_input);
    if (!document->IsComplete()) throw std::runtime_error("the document ends inside an element");
    CXmlElement const& root = *document->GetDocumentElement();
    statistics = Survey(root);
    if (options.m_strict && statistics.m_mixed > 0) {
        throw std::runtime_error("mixed content, text beside children, in " + InElements(statistics.m_mixed));
    }
    if (options.m_info) return InfoText(root, statistics, octets);
    return ToUtf8(Rewrite(std::move(document), statistics, options));
}

ExitStatus Run(Options const& options) {
    std::string const input = options.m_input == kStandardStream ? "standard input" : options.m_input;
    std::string const output = options.m_output == kStandardStream ? "standard output" : options.m_output;
    Statistics statistics;
    std::string result;
    if (options.m_help) {
        result = HelpText();
    } else if (options.m_version) {
        result = "bxconvert " BXCONVERT_VERSION "\n";
    } else if (!Try(input, [&] { result = Convert(options, statistics); })) {
        return kFailed;
    }
    if (!Try(output, [&] { WriteOutput(options.m_output, result); })) return kFailed;
    if (statistics.m_mixed > 0 && !options.m_info) {
        Report(input + ": warning: mixed content, text moved behind the children in " +
               InElements(statistics.m_mixed));
    }
    return kSuccess;
}

}  // namespace
}  // namespace BxConvert

int main(int argc, char** argv) {
    // A file that grows beyond a limit is then a failed write like any other.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return BxConvert::Run(BxConvert::ParseOptions({argv + 1, argv + argc}));
    } catch (BxConvert::UsageError const& error) {
        BxConvert::Report(std::string(error.what()) + ". Try 'bxconvert --help'.");
        return BxConvert::kWrongUsage;
    }
}
