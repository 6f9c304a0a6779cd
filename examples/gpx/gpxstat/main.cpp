// gpxstat: reads GPS tracks into the classes of GPX 1.1 and tells what is in them.

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>
#include <new>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
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
    "Fast Infoset, and compressed by gzip or zlib. Tracks may be of any size.\n"
    "\n"
    "  --write OUT   write what was read to this file, as XML text in UTF-8; for a\n"
    "                single FILE, which is held in memory\n"
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

/// What is printed of the tracks of a file, which come one after another.
class TrackReport {
public:
    explicit TrackReport(std::string file) : m_file(std::move(file)) {}

    void Include(Gpx::CWpt const& point) { m_survey.Include(point); }
    void EndSegment() { m_survey.EndSegment(); }
    void EndTrack(Gpx::CTrk const& track) {
        std::string heading = m_file + ": track " + std::to_string(++m_tracks);
        if (track.Name) heading += ": " + Gpx::Bx::Utf8(track.Name);
        m_text += OneLine(heading) + "\n" + Text(m_survey.Result());
        m_survey = {};
    }

    void Print() const {
        std::string const text = m_tracks > 0 ? m_text : OneLine(m_file) + ": no tracks\n";
        std::fputs(text.c_str(), stdout);
    }

private:
    std::string m_file;
    int m_tracks = 0;
    std::string m_text;
    Survey m_survey;
};

/// Reads the points one by one, so that a file may be larger than the memory.
void SurveyFile(std::string const& file) {
    TrackReport report(file);
    Gpx::Bx::RecordReaderSettings settings;
    settings.m_maxSurroundings =
        std::numeric_limits<std::size_t>::max();  // there may be waypoints and routes
    settings.m_onEnd = [&](CXmlElement const& ended) {
        if (ended.GetLocalName() == u"trkseg") report.EndSegment();
        if (ended.GetLocalName() == u"trk") report.EndTrack(Gpx::Bx::Read<Gpx::CTrk>(ended));
    };
    wstring const ns = wstring(u"{") + Gpx::kNamespace + u"}";
    wstring const path = ns + u"gpx/" + ns + u"trk/" + ns + u"trkseg/" + ns + u"trkpt";
    Gpx::Bx::Records<Gpx::CWpt> points(file, path.c_str(), settings);
    for (Gpx::CWpt const& point : points) report.Include(point);
    points.Surroundings<Gpx::CGpx>();  // which tests the rest
    report.Print();
}

/// Reads all of a file, to write it again.
void SurveyWhole(Gpx::CGpx& gpx, std::string const& file) {
    gpx.Load(file);
    TrackReport report(file);
    for (Gpx::CTrk const& track : gpx.Trk) {
        for (Gpx::CTrkseg const& segment : track.Trkseg) {
            for (Gpx::CWpt const& point : segment.Trkpt) report.Include(point);
            report.EndSegment();
        }
        report.EndTrack(track);
    }
    report.Print();
}

bool Run(std::string const& file, std::optional<std::string> const& output) {
    if (!output) return Try(file, [&] { SurveyFile(file); });
    Gpx::CGpx gpx;
    return Try(file, [&] { SurveyWhole(gpx, file); }) &&
           Try(*output, [&] { gpx.Save(*output, Gpx::Bx::Layout::Indented); });
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
