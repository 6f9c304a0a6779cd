// The classes of GPX 1.1 as an application uses them.

#include <thread>
#include <vector>

#include "CGpx.h"
#include "support/Expect.h"

namespace {

using namespace BxXmlLib5;
using namespace Gpx;

std::string const kStart =
    "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" xmlns:gpx=\"http://www.topografix.com/GPX/1/1\"";

std::string Written(CGpx const& gpx) {
    return ToUtf8(gpx.ToXml(false, false, eol_LF, gpx.WritingContext()));
}

TEST(Objects, AreBuiltAndWritten) {
    CGpx gpx;
    gpx.SetCreator(u"test");
    CSmartPtr<CMetadata> const metadata = new CMetadata;
    gpx.SetMetadata(metadata);
    CSmartPtr<CPerson> const author = new CPerson;
    author->SetName(u"Z");
    metadata->SetAuthor(author);
    metadata->GetLinks()->Add()->SetHref(u"h");
    CSmartPtr<CTrackSegment> const segment = gpx.GetTracks()->Add()->GetSegments()->Add();
    CSmartPtr<CWaypoint> const point = segment->GetPoints()->Add();
    point->SetLatitude(CDecimal(u"47.5"));
    point->SetLongitude(9);
    point->SetElevation(100);
    point->SetFix(Fix::ThreeD);
    point->SetDgpsId(3);
    point->GetLinks()->Add()->SetHref(u"p");
    segment->GetPoints()->AddAt(0, new CWaypoint(u"trkpt"))->SetSatellites(5);
    CSmartPtr<CExtensions> const extensions = new CExtensions;
    extensions->GetElements()->Add(u"e", u"urn:e");
    gpx.SetExtensions(extensions);
    EXPECT_EQ(
        Written(gpx),
        kStart +
            " xmlns:ns1=\"urn:e\" version=\"1.1\" creator=\"test\"><metadata><author>"
            "<name>Z</name></author><link href=\"h\"/></metadata><trk><trkseg><trkpt lat=\"0\" lon=\"0\">"
            "<sat>5</sat></trkpt><trkpt lat=\"47.5\" lon=\"9\"><ele>100</ele><link href=\"p\"/><fix>3d</fix>"
            "<dgpsid>3</dgpsid></trkpt></trkseg></trk><extensions><ns1:e/></extensions></gpx>");

    point->ClearElevation();
    point->ClearFix();
    point->ClearDgpsId();
    point->GetLinks()->Clear();
    gpx.SetMetadata(nullptr);
    gpx.SetExtensions(nullptr);
    segment->GetPoints()->Remove(0);
    EXPECT_EQ(Written(gpx), kStart +
                                " version=\"1.1\" creator=\"test\"><trk><trkseg>"
                                "<trkpt lat=\"47.5\" lon=\"9\"/></trkseg></trk></gpx>");
    EXPECT_FALSE(point->HasElevation());
    EXPECT_EQ(point->GetElevation(), CDecimal());
}

TEST(Objects, RefuseWhatDoesNotFit) {
    CGpx gpx;
    CWaypoint point;
    point.SetLatitude(45);
    EXPECT_BX_THROW(point.SetLatitude(91), CBxException, "Invalid Value for lat [91]");
    EXPECT_EQ(point.GetLatitude(), CDecimal(45));
    EXPECT_BX_THROW(point.SetLongitude(180), CBxException, "Invalid Value for lon [180]");
    EXPECT_BX_THROW(point.SetMagneticVariation(-1), CBxException, "Invalid Value for magvar [-1]");
    EXPECT_BX_THROW(point.SetSatellites(-1), CBxException, "Invalid Value for sat [-1]");
    EXPECT_BX_THROW(point.SetDgpsId(1024), CBxException, "Invalid Value for dgpsid [1024]");
    EXPECT_BX_THROW(CBounds().SetMaxLatitude(91), CBxException, "Invalid Value for maxlat [91]");
    CSmartPtr<CTrack> const track = gpx.GetTracks()->Add();
    EXPECT_BX_THROW(track->SetNumber(-1), CBxException, "Invalid Value for number [-1]");
    // What is refused stays the caller's: these are on the stack.
    CMetadata data(u"data");
    EXPECT_BX_THROW(
        track->GetSegments()->Add()->GetPoints()->Add(&point), CBxInvalidParamException,
        "This property requrires an element with the name trkpt the element being set has the element "
        "name wpt");
    EXPECT_BX_THROW(gpx.SetMetadata(&data), CBxInvalidParamException,
                    "This property requrires an element with the name metadata the element being set has the "
                    "element name data");
    EXPECT_BX_THROW(gpx.GetWaypoints()->Add(nullptr), CBxInvalidParamException,
                    "The Property [wpt] is mandatory, it may node be NULL");
    EXPECT_BX_THROW(gpx.GetWaypoints()->AddAt(1, &point), CBxInvalidParamException, "Index out of range");
    EXPECT_EQ(gpx.GetWaypoints()->GetCount(), 0);
    // A value that no setter gives is refused on writing.
    gpx.GetWaypoints()->Add()->SetFix(static_cast<Fix>(5));
    EXPECT_BX_THROW(Written(gpx), CBxInvalidValueException, "Invalid Value for fix [5]");
}

TEST(Objects, KeepTheirLinksApart) {
    CXmlSerializationContext const context;
    CGpx gpx;
    std::string const start =
        "<gpx xmlns='http://www.topografix.com/GPX/1/1' version='1.1' creator='c'>"
        "<wpt lat='1' lon='1'/><wpt lat='1' lon='1'><link href='a'/><link href='b'/></wpt>";
    std::string const point = "<wpt lat='1' lon='1'><link href='c'/>";
    EXPECT_THROW(gpx.FromXml((start + point + "<fix/></wpt></gpx>").c_str(), context),
                 CBxInvalidValueException);
    gpx.FromXml((start + "<wpt lat='1' lon='1'/>" + point + "</wpt></gpx>").c_str(), context);
    std::vector<int> counts;
    for (CWaypoint* const waypoint : *gpx.GetWaypoints()) counts.push_back(waypoint->GetLinks()->GetCount());
    EXPECT_EQ(counts, (std::vector{0, 2, 0, 1}));
    EXPECT_EQ(gpx.GetWaypoints()->Item(3)->GetLinks()->Item(0)->GetHref(), u"c");
    gpx.GetWaypoints()->Item(0)->GetLinks()->Add();
    EXPECT_EQ(gpx.GetWaypoints()->Item(2)->GetLinks()->GetCount(), 0);
}

TEST(Objects, AreReadByManyThreads) {
    std::vector<std::thread> threads;
    std::vector<std::string> written(4);
    for (std::string& text : written) {
        threads.emplace_back([&text] {
            CGpx gpx;
            gpx.FromXmlFile(FromUtf8(BX_TRACK).c_str(), CXmlSerializationContext());
            text = Written(gpx);
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (std::string const& text : written) EXPECT_EQ(text, written[0]);
    EXPECT_GT(written[0].size(), 40'000U);
}

}  // namespace
