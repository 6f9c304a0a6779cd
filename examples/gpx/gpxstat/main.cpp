// gpxstat: reads GPS tracks into the classes of GPX 1.1 and tells what is in them.

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Gpx.h"
#include "TrackStatistics.h"

namespace GpxStat {

using namespace BxXmlLib5;

namespace {

enum ExitStatus { kSuccess = 0, kFailed = 1, kWrongUsage = 2 };

constexpr char kHelp[] =
    "Usage: gpxstat [--write OUT] FILE...\n"
    "\n"
    "Reads GPX 1.1 and prints for each track how many points it has, its length, how\n"
    "long it took, its ascent, and the area that it lies in. A FILE may be XML text or\n"
    "Fast Infoset, and compressed by gzip or zlib.\n"
    "\n"
    "  --write OUT   write what was read to this file, as XML text in UTF-8; for a\n"
    "                single FILE\n"
    "  --help        print this text\n"
    "\n"
    "The length is that of the great circles between the points of a segment. The\n"
    "ascent is the sum of all differences upward, noise of the device included.\n"
    "\n"
    "What OUT loses: comments, the prefixes of extensions, and in extensions the place\n"
    "of text among elements.\n"
    "\n"
    "Exit status: 0 for success, 1 if a file cannot be read or written, 2 for a wrong\n"
    "command line.\n";

/// A command line that makes no sense.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Options {
    std::vector<std::string> m_files;
    std::optional<std::string> m_output;
    bool m_help = false;
};

Options ParseOptions(std::span<char const* const> arguments) {
    Options options;
    bool onlyFiles = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string_view const argument = arguments[i];
        if (onlyFiles || !argument.starts_with('-')) {
            options.m_files.emplace_back(argument);
        } else if (argument == "--") {
            onlyFiles = true;
        } else if (argument == "--help") {
            options.m_help = true;
        } else if (argument == "--write") {
            if (++i == arguments.size()) throw UsageError("option '--write' needs a value");
            options.m_output = arguments[i];
        } else {
            throw UsageError("unknown option '" + std::string(argument) + "'");
        }
    }
    if (options.m_help) return options;
    if (options.m_files.empty()) throw UsageError("FILE is missing");
    if (options.m_output && options.m_files.size() > 1) throw UsageError("'--write' takes a single FILE");
    return options;
}

/// Text of a document or a file name on a line of its own.
std::string OneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

void Report(std::string const& line) {
    std::fputs(("gpxstat: " + OneLine(line) + "\n").c_str(), stderr);
}

/// Runs a step that has to do with a file; false, with a line on standard error, if it fails.
template <class Step>
bool Try(std::string const& file, Step step) {
    try {
        step();
        return true;
    } catch (CBxException const& failure) {
        Report(ToUtf8(failure.GetReport(FromUtf8(file))));
    } catch (std::bad_alloc const&) {
        Report(file + ": not enough memory");
    }
    return false;
}

void Print(Gpx::CGpx const& gpx, std::string const& file) {
    if (gpx.Trk.IsEmpty()) std::printf("%s: no tracks\n", OneLine(file).c_str());
    int number = 0;
    for (Gpx::CTrk const& track : gpx.Trk) {
        std::string heading = file + ": track " + std::to_string(++number);
        if (track.Name) heading += ": " + Gpx::Bx::Utf8(track.Name);
        std::printf("%s\n%s", OneLine(heading).c_str(), Text(Survey(track)).c_str());
    }
}

bool Run(std::string const& file, std::optional<std::string> const& output) {
    Gpx::CGpx gpx;
    bool const isRead = Try(file, [&] {
        gpx.Load(file);
        Print(gpx, file);
    });
    return isRead && (!output || Try(*output, [&] { gpx.Save(*output, Gpx::Bx::Layout::Indented); }));
}

ExitStatus Run(Options const& options) {
    bool isGood = true;
    if (options.m_help) std::fputs(kHelp, stdout);
    for (std::string const& file : options.m_files) {
        if (!options.m_help) isGood = Run(file, options.m_output) && isGood;
    }
    if (std::fflush(stdout) != 0) {
        Report(std::string("standard output: ") + std::strerror(errno));
        isGood = false;
    }
    return isGood ? kSuccess : kFailed;
}

}  // namespace
}  // namespace GpxStat

int main(int argc, char** argv) {
    try {
        return GpxStat::Run(GpxStat::ParseOptions({argv + 1, argv + argc}));
    } catch (GpxStat::UsageError const& error) {
        GpxStat::Report(std::string(error.what()) + ". Try 'gpxstat --help'.");
        return GpxStat::kWrongUsage;
    }
}
