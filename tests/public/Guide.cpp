// The examples of docs/users-guide.md, in its order.

#include <limits>
#include <sstream>
#include <thread>

#include "../support/TemporaryFolder.h"
#include "BxXmlLib5/BxXmlLib5.h"

using namespace BxXmlLib5;

TEST(GuideOfTexts, LeadsToUtf8AndBack) {
#include "users-guide/01.inc"
    EXPECT_EQ(octets, "Grüße");
}

namespace {

#include "users-guide/02.inc"

/// Runs a test in a folder of its own.
class Guide : public testing::Test {
protected:
    Guide() {
        std::filesystem::current_path(m_folder.m_path);
        order.m_number = u"17";
        for (int i = 0; i < 20; ++i) order.m_items->Add(u"item", u"")->SetText(u"bolts");
    }
    ~Guide() override { std::filesystem::current_path(m_before); }

    void ExpectRead(int items) {
        EXPECT_EQ(order.m_number, u"17");
        EXPECT_EQ(order.m_items->GetCount(), items);
        order = Order();
    }

    std::filesystem::path const m_before = std::filesystem::current_path();
    BxTest::TemporaryFolder const m_folder;
    Order order;
    CXmlSerializationContext const context;
};

}  // namespace

TEST_F(Guide, WritingAndReading) {
    // Writing
#include "users-guide/03.inc"
    EXPECT_TRUE(text.starts_with(
        u"<?xml version=\"1.0\"?>\n<AA:order xmlns:AA=\"urn:orders\" number=\"17\">\n\t<item>"));
#include "users-guide/04.inc"
#include "users-guide/05.inc"
#include "users-guide/06.inc"

    // Reading
#include "users-guide/08.inc"
    ExpectRead(0);
#include "users-guide/09.inc"
    ExpectRead(20);
#include "users-guide/10.inc"
    ExpectRead(20);
#include "users-guide/11.inc"
    ExpectRead(20);
#include "users-guide/12.inc"
    ExpectRead(20);
    order.FromXmlFile(u"order.xml", context);
    EXPECT_EQ(order.m_items->GetCount(), 20);
}

TEST_F(Guide, DocumentsWithoutAClass) {
    order.ToFastInfosetFile(u"order.finf", fi_None, context, cmp_None);
    wstring all;
#include "users-guide/13.inc"
    EXPECT_EQ(all, u"1newsnone");
    EXPECT_EQ(feed->Find(u"entry")->GetText(), u"no news");

#include "users-guide/14.inc"
    EXPECT_EQ(note.ToXml(false, false, eol_LF, context),
              u"<AA:note xmlns:AA=\"urn:notes\" urgent=\"yes\"><AA:b>noon</AA:b>by </AA:note>");
#include "users-guide/15.inc"
    EXPECT_EQ(CElement::Load("note.xml")->GetChildElements()->GetCount(), 1);

#include "users-guide/16.inc"
    ExpectRead(20);

    all.clear();
#include "users-guide/17.inc"
    EXPECT_EQ(all.size(), 100U);
}

TEST_F(Guide, RecordByRecord) {
    wstring all;
#include "users-guide/07.inc"
#include "users-guide/18.inc"
    EXPECT_EQ(all, u"boltsnuts");
    EXPECT_EQ(version, u"2");
}

TEST_F(Guide, Encodings) {
#include "users-guide/19.inc"
    EXPECT_EQ(order.m_number, u"\u20AC 5");
}

namespace {

#include "users-guide/20.inc"

}  // namespace

TEST_F(Guide, SmallDocuments) {
    EXPECT_EQ(Compressed(order, context)[0], 0x1F);
    CBinaryData const data = Compressed(CElement(u"a"), context);
    EXPECT_EQ(data[0], '<');
    order.FromXmlStream(data, context);
}

TEST_F(Guide, Settings) {
#include "users-guide/21.inc"
    EXPECT_GT(checked.GetLength(), 20U);
    order.ToXmlFile(u"order.xml", true, true, enc_UTF8, eol_LF, context, cmp_None);
#include "users-guide/22.inc"
    EXPECT_EQ(order.m_number, u"17");
    order.m_number = u"\x01";
    EXPECT_THROW(order.ToXml(false, false, eol_LF, careful), CBxInvalidValueException);
    EXPECT_THROW(order.FromXml("<order number='17'><item>", careful), CBxException);
    order.m_number = u"17";

#include "users-guide/23.inc"
    EXPECT_THROW(tolerant.SetIgnoreMissingMandatoryElements(true), CBxInvalidStateException);

#include "users-guide/24.inc"
    EXPECT_EQ(decorated.GetNamespaceAliases().GetNamespaceCount(), 1);
}

TEST_F(Guide, Errors) {
    std::ostringstream cerr;  // in the place of std::cerr
#include "users-guide/25.inc"
    EXPECT_EQ(cerr.str(),
              "not readable: missing.xml: Failed to open the file [missing.xml] Error [0x00000002]\n"
              "No such file or directory\n");
}

TEST_F(Guide, Threads) {
    std::thread other([this] { Order().ToXml(false, false, eol_LF, context); });
    order.ToXml(false, false, eol_LF, context);
    other.join();
}

namespace {

/// What comes back of a value that is written and read again: the same text, another one, or "refused".
wstring BackFrom(BxVariant const& written, char16_t const* format = nullptr) {
    BxVariant read;
    try {
        read.FromString(written.ToString(format), written.m_type, CWhitespaceUtils::ws_Collapse);
    } catch (CBxException const&) {
        return u"refused";
    }
    return read.ToString(format);
}

CDateTimeSpan Span(std::u16string_view text) {
    CDateTimeSpan span;
    span.ParseXSDDuration(text);
    return span;
}

CDateTime Date(std::u16string_view text) {
    CDateTime date;
    date.ParseXSDDate(text);
    return date;
}

}  // namespace

TEST(GuideOfValues, WrittenButNotReadAgain) {
    BxVariant value;
    auto const set = [&value](auto setter, auto what) -> BxVariant const& {
        (value.*setter)(what);
        return value;
    };
    EXPECT_EQ(BackFrom(set(&BxVariant::SetR4, std::numeric_limits<float>::infinity())), u"refused");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetR8, std::numeric_limits<double>::quiet_NaN())), u"refused");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetR8, 0.1 + 0.2)), u"0.3");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetR8, 0.1 + 0.2), u"%.17g"), u"0.30000000000000004");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetDecimal, CDecimal(u"1.25")), u"1"), u"1.3");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetDuration, CDateTimeSpan())), u"refused");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetDate, CDateTime())), u"refused");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetDate, Date(u"-0001-01-01") + Span(u"P1Y"))), u"refused");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetDate, Date(u"9999-12-31") + Span(u"P1D"))), u"refused");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetYear, std::uint16_t{5})), u"refused");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetMonth, std::uint8_t{13})), u"refused");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetChar, u' ')), u"refused");
    EXPECT_EQ(BackFrom(set(&BxVariant::SetString, wstring(u"a\r\n b"))), u"a b");
}

TEST(GuideOfValues, WhatBoundsDoNotCatch) {
    CDateTime::DTCompareResult const unknown = CDateTime::dtc_indeterminate;
    EXPECT_EQ(Date(u"2026-05-01").CompareTo(Date(u"2026-05-01Z")), unknown);
    EXPECT_EQ(Date(u"2026-05-01").CompareTo(Date(u"2026-05-02Z")), CDateTime::dtc_lessThan);
    EXPECT_EQ(Date(u"2026").CompareTo(Date(u"2026-05-01")), unknown);
    EXPECT_EQ(Date(u"-0001-01-01").CompareTo(Date(u"2026-01-01")), unknown);
    EXPECT_EQ(Span(u"P1M").CompareTo(Span(u"P30D")), unknown);
    EXPECT_EQ(Span(u"P1M").CompareTo(Span(u"P27D")), CDateTime::dtc_greaterThan);
    EXPECT_EQ(Span(u"P1Y").CompareTo(Span(u"P12M")), CDateTime::dtc_equal);

    CdateCol days(u"day", u"", 0, -1, u"", -1, -1, u"2026-05-01Z", u"", u"", u"", -1,
                  CWhitespaceUtils::ws_Collapse, nullptr);
    days.Add(Date(u"2026-05-01"));
    EXPECT_THROW(days.Add(Date(u"2026-04-30Z")), CBxException);
}
