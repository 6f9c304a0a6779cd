// The classes of GPX 1.1 against documents.

#include <random>
#include <regex>
#include <string>
#include <vector>

#include "Gpx.h"
#include "support/Expect.h"
#include "support/Follow.h"
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
    // Values have one form each; strings stay as they are. Prefixes have no say.
    EXPECT_EQ(
        Rewritten(Document("<g:wpt xmlns:g='http://www.topografix.com/GPX/1/1' lat=' +01.50 ' lon='-0.0'>"
                           "<g:ele> 1.0\n</g:ele><g:name> a\n b </g:name><g:link href=' a\tb '/></g:wpt>")),
        Document("<wpt lat=\"1.5\" lon=\"0\"><ele>1</ele><name> a\n b </name><link href=\"a b\"/></wpt>"));
    // Whitespace beside the children of extensions goes; other text stays, behind them.
    EXPECT_EQ(
        Rewritten(Document(
            "<extensions> <a xmlns='urn:x'>\n <b>\t</b>\n</a> <c xmlns='urn:x'>m<d/>n</c></extensions>")),
        Document("<extensions><ns1:a><ns1:b>\t</ns1:b></ns1:a><ns1:c><ns1:d/>mn</ns1:c></extensions>",
                 " xmlns:ns1=\"urn:x\""));
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

/// Each value of a document in turn is none any more.
TEST(Documents, SayWhereTheyCannotBeRead) {
    std::mt19937 random(7);
    std::string text;
    for (char const c : Everything().substr(kHead.size())) {
        if (c == '<' && text.ends_with('>') && random() % 3 == 0) text += '\n';
        text += c;
    }
    CGpx gpx;
    gpx.Parse(text);
    std::regex const value(R"re( (?!xmlns)\w+="([^"]+)"|>([^<\n]+)<)re");
    int refused = 0;
    for (std::sregex_iterator at(text.begin(), text.end(), value), end; at != end; ++at) {
        std::size_t const part = (*at)[1].matched ? 1 : 2;
        std::string broken = text;
        broken.replace(static_cast<std::size_t>(at->position(part)),
                       static_cast<std::size_t>(at->length(part)), "broken");
        try {
            gpx.Parse(broken);
        } catch (CBxException const& failure) {
            CXmlDocument document;
            document.LoadXml(broken.c_str());
            CBxLocation const location = failure.GetLocation();
            BxTest::Found const found = BxTest::Follow(document, location.GetPath());
            ASSERT_NE(found.m_element, nullptr) << ToUtf8(location.GetPath());
            EXPECT_EQ(part == 1 ? found.m_attribute->GetValue() : found.m_element->GetText(), u"broken")
                << ToUtf8(location.GetPath());
            EXPECT_EQ(location.GetLine(), found.m_element->GetLine());
            ++refused;
        }
    }
    EXPECT_GT(refused, 80);
}

}  // namespace
