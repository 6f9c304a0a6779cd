// The classes of GPX 1.1 as an application uses them.

#include <thread>
#include <vector>

#include "Gpx.h"
#include "support/Expect.h"

namespace {

using namespace BxXmlLib5;
using namespace Gpx;

std::string const kStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<gpx xmlns=\"http://www.topografix.com/GPX/1/1\"";

TEST(Objects, AreBuiltAndWritten) {
    CGpx gpx;
    gpx.Creator = "test";
    CMetadata& metadata = gpx.Metadata.Make();
    metadata.Author.Make().Name = "Z";
    metadata.Link.Add().Href = "h";
    CTrkseg& segment = gpx.Trk.Add().Trkseg.Add();
    CWpt& point = segment.Trkpt.Add();
    point.Lat = CDecimal(u"47.5");
    point.Lon = 9;
    point.Ele = 100;
    point.Fix = Fix::N3d;
    point.Dgpsid = 3;
    point.Link.Add().Href = "p";
    CWpt& first = segment.Trkpt.Insert(0);
    first.Lat = 0;
    first.Lon = 0;
    first.Sat = 5;
    gpx.Extensions.Make().Any.Add(u"e", u"urn:e");
    EXPECT_EQ(
        gpx.ToText(),
        kStart +
            " xmlns:ns1=\"urn:e\" version=\"1.1\" creator=\"test\"><metadata><author>"
            "<name>Z</name></author><link href=\"h\"/></metadata><trk><trkseg><trkpt lat=\"0\" lon=\"0\">"
            "<sat>5</sat></trkpt><trkpt lat=\"47.5\" lon=\"9\"><ele>100</ele><link href=\"p\"/><fix>3d</fix>"
            "<dgpsid>3</dgpsid></trkpt></trkseg></trk><extensions><ns1:e/></extensions></gpx>");

    point.Ele.Clear();
    point.Fix.Clear();
    point.Dgpsid.Clear();
    point.Link.Clear();
    gpx.Metadata.Clear();
    gpx.Extensions.Clear();
    segment.Trkpt.Remove(0);
    EXPECT_EQ(gpx.ToText(), kStart +
                                " version=\"1.1\" creator=\"test\"><trk><trkseg>"
                                "<trkpt lat=\"47.5\" lon=\"9\"/></trkseg></trk></gpx>");
}

TEST(Objects, RefuseWhatDoesNotFit) {
    CGpx gpx;
    CWpt& point = gpx.Wpt.Add();
    point.Lat = 45;
    EXPECT_BX_THROW(point.Lat = 91, CBxInvalidValueException, "The value [91] is greater than [90.0]");
    EXPECT_EQ(*point.Lat, CDecimal(45));
    EXPECT_THROW(*point.Ele, CBxInvalidStateException);
    std::vector<wstring> const complaints = {u"/gpx: The attribute [creator] is not set",
                                             u"/gpx/wpt[1]: The attribute [lon] is not set"};
    EXPECT_EQ(gpx.Validate(), complaints);
    EXPECT_THROW(gpx.ToText(), CBxValidationException);
}

TEST(Objects, AreReadByManyThreads) {
    std::vector<std::thread> threads;
    std::vector<std::string> written(4);
    for (std::string& text : written) {
        threads.emplace_back([&text] {
            CGpx gpx;
            gpx.Load(BX_TRACK);
            text = gpx.ToText();
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (std::string const& text : written) EXPECT_EQ(text, written[0]);
    EXPECT_GT(written[0].size(), 40'000U);
}

}  // namespace
