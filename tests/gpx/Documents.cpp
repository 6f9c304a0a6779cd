// The classes of GPX 1.1 against documents.

#include <string>

#include "Gpx.h"
#include "support/Expect.h"
#include "support/StrictFastInfoset.h"

namespace {

using namespace BxXmlLib5;
using Gpx::CGpx;
using Gpx::Bx::Layout;

std::string const kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::string Rewritten(std::string const& document, Layout layout = Layout::Compact) {
    CGpx gpx;
    gpx.Parse(document);
    return gpx.ToText(layout);
}

std::string Document(std::string const& content, std::string const& aliases = {}) {
    return kHead + "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\"" + aliases +
           " version=\"1.1\" creator=\"c\">" + content + "</gpx>";
}

std::string Point(std::string const& content) {
    return Document("<wpt lat='1' lon='2'>" + content + "</wpt>");
}

/// A document with every element and attribute of the schema, twice where they repeat.
std::string Everything() {
    std::string const extensions = "<extensions><ns1:a b=\"1\"><ns1:c>2</ns1:c></ns1:a><ns2:d/></extensions>";
    std::string const links =
        "<link href=\"http://example.org/1\"><text>one</text><type>text/html</type></link><link href=\"2\"/>";
    std::string const texts = "<name>n</name><cmt>c</cmt><desc>d</desc><src>s</src>" + links;
    auto const point = [&](std::string const& name, std::string const& fix) {
        return "<" + name + " lat=\"-90\" lon=\"-180\"><ele>-10.25</ele><time>2024-02-29T23:59:59.5Z</time>" +
               "<magvar>359.999</magvar><geoidheight>-0.5</geoidheight>" + texts +
               "<sym>y</sym><type>t</type><fix>" + fix +
               "</fix><sat>99999999999999999999</sat><hdop>1</hdop><vdop>1.5</vdop><pdop>2</pdop>" +
               "<ageofdgpsdata>0.1</ageofdgpsdata><dgpsid>1023</dgpsid>" + extensions + "</" + name + ">";
    };
    std::string const path = texts + "<number>7</number><type>t</type>" + extensions;
    return Document(
        "<metadata><name>n</name><desc>d</desc><author><name>a</name><email id=\"i\" domain=\"d.org\"/>"
        "<link href=\"h\"/></author><copyright author=\"a\"><year>1999</year><license>l</license></copyright>" +
            links + "<time>2024-01-01T00:00:00+01:00</time><keywords>k</keywords>" +
            "<bounds minlat=\"-90\" minlon=\"-180\" maxlat=\"90\" maxlon=\"179.9999999999999999999999999999\"/>" +
            extensions + "</metadata>" + point("wpt", "none") + point("wpt", "2d") + "<rte>" + path +
            point("rtept", "3d") + point("rtept", "dgps") + "</rte><rte/><trk>" + path + "<trkseg>" +
            point("trkpt", "pps") + point("trkpt", "2d") + extensions + "</trkseg><trkseg/></trk><trk/>" +
            extensions,
        " xmlns:ns1=\"urn:x\" xmlns:ns2=\"urn:y\"");
}

TEST(Documents, RoundTrip) {
    EXPECT_EQ(Rewritten(Everything()), Everything());
    EXPECT_EQ(Rewritten(Rewritten(Everything(), Layout::Indented)), Everything());
    CGpx gpx;
    gpx.Parse(Everything());
    CBinaryData const infoset = gpx.ToFastInfosetStream(fi_None, gpx.FastInfosetContext(), cmp_None);
    EXPECT_EQ(BxTest::CStrictFastInfoset::Read(infoset.GetOctets()).substr(0, 44),
              "<{http://www.topografix.com/GPX/1/1}gpx vers");
    CGpx read;
    read.FromXmlStream(infoset, CXmlSerializationContext());
    EXPECT_TRUE(read.Equals(gpx));
    EXPECT_EQ(read.ToText(), Everything());

    gpx.Load(BX_TRACK);
    std::string const formatted = gpx.ToText(Layout::Indented);
    EXPECT_EQ(Rewritten(formatted, Layout::Indented), formatted);
    EXPECT_NE(formatted.find("<trkpt lat=\"47.40931\" lon=\"10.278273\">"), std::string::npos);
    EXPECT_NE(formatted.find("<ns1:temperature unit=\"C\">19.3</ns1:temperature>"), std::string::npos);
}

TEST(Documents, AreReadAs) {
    struct Row {
        std::string m_input;
        std::string m_output;
        std::string m_aliases{};
    };
    Row const rows[] = {
        // Values have one form each; strings stay as they are.
        {"<wpt lat=' +01.50 ' lon='-0.0'><ele> 1.0\n</ele><name> a\n b </name><sat> 007</sat></wpt>",
         "<wpt lat=\"1.5\" lon=\"0\"><ele>1</ele><name> a\n b </name><sat>7</sat></wpt>"},
        {"<wpt lat='90.000' lon='179.9'><magvar>0</magvar><link href=' a\tb '/></wpt>",
         "<wpt lat=\"90\" lon=\"179.9\"><magvar>0</magvar><link href=\"a b\"/></wpt>"},
        {"<wpt lat='1' lon='2'><name/></wpt>", "<wpt lat=\"1\" lon=\"2\"><name/></wpt>"},
        // Prefixes and what is infrastructure have no say.
        {"<g:trk xmlns:g='http://www.topografix.com/GPX/1/1' xmlns:x='http://www.w3.org/2001/XMLSchema-instance' "
         "x:type='g:trkType'><g:trkseg/></g:trk>",
         "<trk><trkseg/></trk>"},
        // Whitespace beside the children of extensions goes; other text stays, behind them.
        {"<extensions> <a xmlns='urn:x'>\n <b>\t</b>\n</a> <c xmlns='urn:x'>m<d/>n</c></extensions>",
         "<extensions><ns1:a><ns1:b>\t</ns1:b></ns1:a><ns1:c><ns1:d/>mn</ns1:c></extensions>",
         " xmlns:ns1=\"urn:x\""},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(Rewritten(Document(row.m_input)), Document(row.m_output, row.m_aliases)) << row.m_input;
    }
    // Elements without a namespace stay without one.
    CGpx gpx;
    gpx.Parse(Document("<extensions><e xmlns='urn:x'><a xmlns=''/></e></extensions>"));
    EXPECT_EQ(gpx.ToText(),
              kHead +
                  "<gpx:gpx xmlns:gpx=\"http://www.topografix.com/GPX/1/1\" xmlns:ns1=\"urn:x\" "
                  "version=\"1.1\" creator=\"c\">"
                  "<gpx:extensions><ns1:e><a/></ns1:e></gpx:extensions></gpx:gpx>");
    CBinaryData const infoset = gpx.ToFastInfosetStream(fi_None, gpx.FastInfosetContext(), cmp_None);
    EXPECT_EQ(BxTest::CStrictFastInfoset::Read(infoset.GetOctets()),
              "<{http://www.topografix.com/GPX/1/1}gpx version=1.1 creator=c>"
              "<{http://www.topografix.com/GPX/1/1}extensions><{urn:x}e><a></></></></>");
}

TEST(Documents, AreRefused) {
    struct Row {
        std::string m_document;
        std::string m_failure;
    };
    std::string const root = "<gpx xmlns='http://www.topografix.com/GPX/1/1' ";
    std::string const validation = "CBxValidationException: ";
    std::string const value = "CBxInvalidValueException: Invalid Value for ";
    auto const unexpected = [&](std::string const& element, std::string const& child) {
        return validation + "Unexpected element [" + child + "] found in the element [" + element + "]";
    };
    auto const missing = [&](std::string const& attribute) {
        return validation + "Failed to find the required Attribute [" + attribute + "]";
    };
    Row const rows[] = {
        // The root
        {"<gpx version='1.1' creator='c'/>",
         validation + "The root is the element [gpx] in the namespace [], it must be [gpx] in "
                      "[http://www.topografix.com/GPX/1/1]"},
        {root + "version='1.0' creator='c'/>", value + "version [1.0]"},
        {root + "creator='c'/>", missing("version")},
        {root + "version='1.1'/>", missing("creator")},
        {root + "version='1.1' creator='c' x='1'/>", validation + "Unexpected Attribute [x] found."},
        {root + "version='1.1' creator='c'>", "CBxException: The document ends before its root does"},
        // Elements that are unknown, out of order or too many
        {Document("<x/>"), unexpected("gpx", "x")},
        {Document("<wpt xmlns='' lat='1' lon='2'/>"), unexpected("gpx", "wpt")},
        {Document("<trk/><wpt lat='1' lon='2'/>"), unexpected("gpx", "wpt")},
        {Document("<metadata/><metadata/>"), unexpected("gpx", "metadata")},
        {Point("<time>2024-01-01T00:00:00Z</time><ele>1</ele>"), unexpected("wpt", "ele")},
        {Document("<trk><trkseg><rtept/></trkseg></trk>"), unexpected("trkseg", "rtept")},
        {Document("<trk><trkseg/><name/></trk>"), unexpected("trk", "name")},
        // Attributes
        {Document("<wpt lat='1'/>"), missing("lon")},
        {Document("<wpt lat='1' lon='2' g:lat='3' xmlns:g='urn:g'/>"),
         validation + "Unexpected Attribute [lat] found."},
        {Document("<metadata><link/></metadata>"), missing("href")},
        {Document("<metadata><author><email id='i'/></author></metadata>"), missing("domain")},
        {Document("<metadata><copyright/></metadata>"), missing("author")},
        // Values
        {Point("<ele>1,5</ele>"), value + "ele [1,5]"},
        {Point("<ele>1e2</ele>"), value + "ele [1e2]"},
        {Point("<time>2024-02-30T00:00:00Z</time>"), value + "time [2024-02-30T00:00:00Z]"},
        {Point("<fix>4d</fix>"), value + "fix [4d]"},
        // Facets
        {Document("<wpt lat='-90.0000001' lon='2'/>"), value + "lat [-90.0000001]"},
        {Document("<wpt lat='90.0000001' lon='2'/>"), value + "lat [90.0000001]"},
        {Document("<wpt lat='1' lon='180'/>"), value + "lon [180]"},
        {Document("<wpt lat='1' lon='-180.5'/>"), value + "lon [-180.5]"},
        {Document("<metadata><bounds minlat='1' minlon='2' maxlat='91' maxlon='4'/></metadata>"),
         value + "maxlat [91]"},
        {Document("<metadata><bounds minlat='1' minlon='2' maxlat='3' maxlon='180'/></metadata>"),
         value + "maxlon [180]"},
        {Point("<magvar>360</magvar>"), value + "magvar [360]"},
        {Point("<magvar>-0.1</magvar>"), value + "magvar [-0.1]"},
        {Point("<sat>-1</sat>"), value + "sat [-1]"},
        {Point("<dgpsid>1024</dgpsid>"), value + "dgpsid [1024]"},
        {Document("<trk><number>-1</number></trk>"), value + "number [-1]"},
        // Extensions
        {Document("<extensions><AA:a xmlns:AA='urn:x'/><a/></extensions>"), unexpected("extensions", "a")},
        {Document("<extensions><a xmlns=''/></extensions>"), unexpected("extensions", "a")},
        {Document("<extensions x='1'/>"), validation + "Unexpected Attribute [x] found."},
    };
    CGpx gpx;
    for (auto const& row : rows) {
        EXPECT_EQ(BxTest::Thrown([&] { gpx.Parse(row.m_document); }), row.m_failure) << row.m_document;
        // What the failure left behind is no part of the next document.
        gpx.Parse(Everything());
        EXPECT_EQ(gpx.ToText(), Everything()) << row.m_document;
    }
}

TEST(Documents, AreToleratedOnRequest) {
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(true);
    context.SetIgnoreUnknownAttributes(true);
    context.SetIgnoreNamespaces(true);
    CGpx gpx;
    gpx.Parse(
        "<gpx version='1.1' creator='c'><wpt lat='1' lon='2' x='3'><ele>4</ele><x/></wpt>"
        "<extensions><ele/></extensions></gpx>",
        context);
    EXPECT_EQ(*gpx.Wpt[0].Ele, CDecimal(4));
    EXPECT_EQ(gpx.Extensions->Any.Count(), 1);
}

}  // namespace
