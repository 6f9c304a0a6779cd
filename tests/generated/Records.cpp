// Large documents of a schema, record by record.

#include "BxXmlLib5/generated/Records.h"

#include <ranges>

#include "BxXmlLib5/collections/CElementCol.h"
#include "Parcels.h"
#include "support/Expect.h"
#include "support/Octets.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace BxTest;
using namespace BxXmlLib5;
using namespace Parcels;

static_assert(std::ranges::input_range<Bx::Records<CAddress>>);
static_assert(std::input_iterator<Bx::Records<CElement>::Iterator>);

/// Parcels in a list that no schema describes.
std::string List(std::string const& parcels) {
    return "<list xmlns='urn:parcel' xmlns:x='urn:parcel' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'>\n" +
           parcels + "</list>";
}
std::string Parcel(std::string const& to, std::string const& more = "") {
    return "<parcel code='AB1' version='1.0'>" + to + "<filled>1</filled><filled>100</filled><days>7</days>" +
           more + "</parcel>\n";
}
std::string To(std::string const& city) {
    return "<to><city>" + city + "</city></to>";
}

TEST(Records, AreReadAsTheWholeDocumentReadsThem) {
    std::string const document =
        Parcel(To("x"), "<book count='1'><title>a</title></book><note><b>1</b>text</note>") +
        Parcel(
            "<to xsi:type='x:foreignAddress' overseas='true'><city>y</city><country>c</country></to>"
            "<weight>1.5</weight>");
    std::string const list = List(document);
    std::size_t at = list.find('\n'), count = 0;
    for (CParcel const& parcel : Bx::Records<CParcel>(AsOctets(list), u"list/parcel")) {
        std::size_t const end = list.find("</parcel>", at) + 9;
        CParcel whole;
        std::string own = list.substr(at, end - at);
        own.insert(own.find("code"), list.substr(6, list.find('>') - 6) + " ");
        whole.Parse(own);
        EXPECT_TRUE(parcel.Equals(whole)) << own;
        EXPECT_EQ(parcel.ToText(), whole.ToText());
        at = end;
        ++count;
    }
    EXPECT_EQ(count, 2U);
}

/// Appends the cities of all addresses, and the places of those that are bad.
void Walk(Bx::Records<CAddress>& records, std::string& found) {
    for (bool goesOn = true; goesOn;) {
        try {
            for (CAddress const& address : records) found += Bx::Utf8(address.City) + " ";
            goesOn = false;
        } catch (CBxException const& failure) {
            found += ToUtf8(failure.GetLocation().ToString()) + " ";
        }
    }
}

TEST(Records, GoOnBehindABadOne) {
    TemporaryFolder const folder;
    std::string const path = folder.Write(
        "list", List(To("a") + "\n<to><country/></to><to>\n<city>b</city><city/></to>" + To("c") + "<to/>"));
    Bx::Records<CAddress> records(path, u"list/to");
    std::string found;
    Walk(records, found);
    EXPECT_EQ(found, "a 3: /list/to[2] 4: /list/to[3]/city[2] c 4: /list/to[5] ");
}

TEST(Records, TellWhereAParentIsBad) {
    std::string const list =
        List(Parcel(To("a")) + "<parcel code='AB1' version='1.0'>" + To("b") +
             "\n<filled>1</filled><filled>200</filled><days>7</days></parcel>" + Parcel(To("c")));
    std::string found;
    RecordReaderSettings settings;
    settings.m_context.SetIgnoreMissingMandatoryElements(true);
    settings.m_onEnd = [&](CXmlElement const& ended) {
        if (ended.GetLocalName() == u"parcel")
            found += Bx::Utf8(Bx::Read<CParcel>(ended, settings.m_context).Code) + " ";
    };
    Bx::Records<CAddress> records(AsOctets(list), u"list/parcel/to", settings);
    Walk(records, found);
    EXPECT_EQ(found, "a AB1 b 4: /list/parcel[2]/filled[2] c AB1 ");
}

TEST(Records, FailOnWhatTheContextWants) {
    std::string const list = List("<to kind='a' lost='1'><city>b</city></to>");
    RecordReaderSettings settings;
    settings.m_context.SetFailOnIgnoredContent(true);
    Bx::Records<CAddress> records(AsOctets(list), u"list/to", settings);
    EXPECT_BX_THROW((records.begin(), 0), CBxValidationException, "Unexpected Attribute [lost] found.");
}

TEST(Records, HaveSurroundings) {
    // The records are mandatory where they stand.
    std::string const parcel =
        "<parcel xmlns='urn:parcel' code='AB1' version='1.0'><from><city>x</city></from>"
        "<to><city>y</city></to><filled>1</filled><filled>2</filled><days>7</days></parcel>";
    Bx::Records<CAddress> records(AsOctets(parcel), u"parcel/to");
    auto around = records.Surroundings<CParcel>();
    EXPECT_EQ(Bx::Utf8(around.From->City), "x");
    EXPECT_FALSE(around.Days);
    auto const record = records.begin();
    EXPECT_EQ(Bx::Utf8(record->City), "y");
    EXPECT_EQ(records.Surroundings<CElement>().GetChildElements()->GetCount(), 1);
    EXPECT_EQ(std::ranges::distance(records), 0);
    around = records.Surroundings<CParcel>();
    EXPECT_TRUE(around.Days);
    EXPECT_FALSE(around.To);

    std::string const bad =
        "<parcel xmlns='urn:parcel' code='AB1' version='1.0'><to>\n<x/><city/></to></parcel>";
    Bx::Records<CElement> deeper(AsOctets(bad), u"parcel/to/city");
    EXPECT_EQ(std::ranges::distance(deeper), 1);
    EXPECT_EQ(BxTest::Reported([&] { return deeper.Surroundings<CParcel>(), std::string(); }),
              "2: /parcel/to[1]/x: Unexpected element [x] found in the element [to]");
}

TEST(Records, CanBeMovedAndLeft) {
    std::string const list = List(To("a") + To("b") + To("c"));
    Bx::Records<CAddress> records(AsOctets(list), u"list/to");
    for (CAddress const& address : records) {
        EXPECT_EQ(Bx::Utf8(address.City), "a");
        break;
    }
    Bx::Records<CAddress> moved = std::move(records);
    std::string found;
    for (CAddress& address : moved) found += Bx::Utf8(address.City);
    EXPECT_EQ(found, "bc");
}

}  // namespace
