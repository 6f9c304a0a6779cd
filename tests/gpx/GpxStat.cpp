// gpxstat as its users run it: by its command line.

#include "support/TemporaryFolder.h"

namespace {

using namespace BxTest;

/// Runs commands in a folder of its own, with the track as track.gpx and a document that ends early.
class GpxStat : public testing::Test {
protected:
    GpxStat() {
        m_folder.Write("track.gpx", Content(BX_TRACK));
        PutDocument("none.gpx", "");
        m_folder.Write("early.gpx", "<gpx xmlns='http://www.topografix.com/GPX/1/1'><wpt/>");
    }

    void PutDocument(char const* name, std::string const& content) const {
        m_folder.Write(name, "<gpx xmlns='http://www.topografix.com/GPX/1/1' version='1.1' creator='c'>" +
                                 content + "</gpx>");
    }
    Ending Run(std::string const& lines) const { return m_folder.Run(GPXSTAT, lines); }

private:
    TemporaryFolder const m_folder;
};

TEST_F(GpxStat, PrintsTracks) {
    std::string const track =
        "track.gpx: track 1: S\xC3\xBC"
        "dgrat\n  points: 340\n  length: 8.639 km\n  duration: 5:16:57\n"
        "  ascent: 1225.1 m\n  bounds: 47.3841 10.277345 to 47.409499 10.316329\n";
    // A quarter of a great circle and one degree of another, of 111.195080 km a degree; the gap between
    // segments counts for the time alone.
    PutDocument(
        "two.gpx",
        "<trk><trkseg><trkpt lat='0' lon='-90'><ele>1</ele><time>2024-01-01T00:00:00Z</time></trkpt>"
        "<trkpt lat='0' lon='0'><ele>3.5</ele></trkpt><trkpt lat='-1' lon='0'/></trkseg>"
        "<trkseg><trkpt lat='40' lon='40'><ele>100</ele><time>2024-01-02T01:00:05+01:00</time></trkpt>"
        "<trkpt lat='40' lon='40'><ele>99</ele></trkpt><trkpt lat='40' lon='40'><ele>99.25</ele></trkpt>"
        "</trkseg></trk><trk><name>a\nb</name></trk>");
    std::string const two =
        "two.gpx: track 1\n  points: 6\n  length: 10118.752 km\n  duration: 24:00:05\n  ascent: 2.75 m\n"
        "  bounds: -1 -90 to 40 40\n"
        "two.gpx: track 2: a b\n  points: 0\n  length: 0.000 km\n  duration: unknown\n  ascent: 0 m\n"
        "  bounds: none\n";
    EXPECT_EQ(Run("gpxstat track.gpx two.gpx none.gpx"),
              (Ending{0, track + two + "none.gpx: no tracks\n", ""}));
    EXPECT_EQ(Run("gzip track.gpx; mv track.gpx.gz track.gpx; gpxstat -- track.gpx"), (Ending{0, track, ""}));
}

TEST_F(GpxStat, WritesWhatItReads) {
    EXPECT_EQ(
        Run("gpxstat --write out.gpx track.gpx >first; gpxstat out.gpx --write again.gpx | sed s/out/track/ >second\n"
            "cmp out.gpx again.gpx && cmp first second && head -n 2 out.gpx && wc -l <out.gpx"),
        (Ending{
            0,
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<gpx "
            "xmlns=\"http://www.topografix.com/GPX/1/1\" xmlns:ns1=\"urn:example:sensor\" version=\"1.1\" creator=\"Example Logger 2\">\n"
            "2598\n",
            ""}));
}

TEST_F(GpxStat, Failures) {
    struct Row {
        char const* m_command;
        Ending m_outcome;
    };
    auto const usage = [](std::string const& message) {
        return Ending{2, "", "gpxstat: " + message + ". Try 'gpxstat --help'.\n"};
    };
    std::string const noRoot =
        "gpxstat: k.gpx:1: /kml: The root is the element [kml] in the namespace [], it must be [gpx] in "
        "[http://www.topografix.com/GPX/1/1]\n";
    Row const rows[] = {
        {"gpxstat", usage("FILE is missing")},
        {"gpxstat --write out.gpx --", usage("FILE is missing")},
        {"gpxstat track.gpx --write", usage("option '--write' needs a value")},
        {"gpxstat --read track.gpx", usage("unknown option '--read'")},
        {"gpxstat --write out.gpx none.gpx none.gpx", usage("'--write' takes a single FILE")},
        {"gpxstat nothing.gpx none.gpx early.gpx",
         {1, "none.gpx: no tracks\n",
          "gpxstat: nothing.gpx: Failed to open the file [nothing.gpx] Error [0x00000002] No such file or "
          "directory\n"
          "gpxstat: early.gpx:1: The document ends inside the element [/gpx], which begins on line 1\n"}},
        {"echo '<kml/>' >k.gpx; gpxstat --write none.gpx k.gpx; test -s none.gpx && gpxstat k.gpx",
         {1, "", noRoot + noRoot}},
        {"gpxstat --write x/out.gpx none.gpx",
         {1, "none.gpx: no tracks\n",
          "gpxstat: x/out.gpx: Failed to write data to the file [x/out.gpx] error [0x00000002] No such "
          "file or directory\n"}},
        {"gpxstat none.gpx >/dev/full", {1, "", "gpxstat: standard output: No space left on device\n"}},
    };
    for (auto const& row : rows) EXPECT_EQ(Run(row.m_command), row.m_outcome) << row.m_command;
    Ending const help = Run("gpxstat --help");
    EXPECT_EQ(help.m_status, 0);
    EXPECT_NE(help.m_out.find("--write OUT"), std::string::npos);
}

}  // namespace
