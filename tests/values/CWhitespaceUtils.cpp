#include "BxXmlLib5/values/CWhitespaceUtils.h"

#include "support/Expect.h"

namespace {

using BxXmlLib5::CWhitespaceUtils;
using BxXmlLib5::wstring;

TEST(CWhitespaceUtils, ReplacesAndCollapsesAndDropsReturns) {
    struct Row {
        wstring text, preserved, replaced, collapsed;
    };
    Row const rows[] = {
        {u"", u"", u"", u""},
        {u"a", u"a", u"a", u"a"},
        {u"a b", u"a b", u"a b", u"a b"},
        {u"a  b", u"a  b", u"a  b", u"a b"},
        {u" a", u" a", u" a", u"a"},
        {u"a ", u"a ", u"a ", u"a"},
        {u" \t\n\r ", u" \t\n ", u"    ", u""},
        {u"a\r\nb\r\n", u"a\nb\n", u"a b ", u"a b"},
        {u"a\tb\nc", u"a\tb\nc", u"a b c", u"a b c"},
        {u"1\r2", u"12", u"12", u"12"},
        {u"\ra \r b\r", u"a  b", u"a  b", u"a b"},
        {u"\r", u"", u"", u""},
        {u"a\u00A0\u2003b\v", u"a\u00A0\u2003b\v", u"a\u00A0\u2003b\v", u"a\u00A0\u2003b\v"},
        {wstring(u"a\0\r b", 5), wstring(u"a\0 b", 4), wstring(u"a\0 b", 4), wstring(u"a\0 b", 4)},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.text));
        EXPECT_EQ(CWhitespaceUtils::Preserve(row.text), row.preserved);
        EXPECT_EQ(CWhitespaceUtils::Replace(row.text), row.replaced);
        EXPECT_EQ(CWhitespaceUtils::Collapse(row.text), row.collapsed);
        wstring const byRule[] = {row.preserved, row.replaced, row.collapsed};
        for (int rule = 0; rule < 3; ++rule)
            EXPECT_EQ(CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule(rule), row.text),
                      byRule[rule]);
    }
}

TEST(CWhitespaceUtils, PreservesTheFirstUnits) {
    EXPECT_EQ(CWhitespaceUtils::Preserve(u"a\r\nbcd", 4), u"a\nb");
    EXPECT_EQ(CWhitespaceUtils::Preserve(u"abc", 0), u"");
    EXPECT_EQ(CWhitespaceUtils::Preserve(u"abc", -1), u"");
    EXPECT_EQ(CWhitespaceUtils::Preserve(nullptr, 3), u"");
}

TEST(CWhitespaceUtils, RefusesAnUnknownRule) {
    for (int const rule : {-1, 3}) {
        for (char16_t const* const text : {u"a", u" a\r"}) {
            EXPECT_BX_THROW(CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule(rule), text),
                            CBxException, "Unknown WhitespaceRule");
        }
    }
}

TEST(CWhitespaceUtils, KnowsTheWhitespaceOfXml) {
    for (unsigned c = 0; c <= 0xFFFF; ++c) {
        bool const expected = c == 0x20 || c == 0x09 || c == 0x0D || c == 0x0A;
        EXPECT_EQ(CWhitespaceUtils::IsWhiteSpace(static_cast<char16_t>(c)), expected) << c;
    }
}

}  // namespace
