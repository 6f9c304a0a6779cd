#include "BxXmlLib5/values/CWhitespaceUtils.h"

#include "support/Expect.h"

namespace {

using BxXmlLib5::CWhitespaceUtils;
using BxXmlLib5::wstring;

TEST(CWhitespaceUtils, ReplacesAndCollapsesAndDropsReturns) {
    struct {
        wstring text, preserved, replaced, collapsed;
    } const rows[] = {
        {u"a b", u"a b", u"a b", u"a b"},
        {u"a  b", u"a  b", u"a  b", u"a b"},
        {u" \t\n\r ", u" \t\n ", u"    ", u""},
        {u"a\tb\nc\r", u"a\tb\nc", u"a b c", u"a b c"},
        {u"\ra \r b\r", u"a  b", u"a  b", u"a b"},
        {u"\r", u"", u"", u""},
        {u"a\u00A0\v", u"a\u00A0\v", u"a\u00A0\v", u"a\u00A0\v"},
        {wstring(u"a\0\r b", 5), wstring(u"a\0 b", 4), wstring(u"a\0 b", 4), wstring(u"a\0 b", 4)}};
    for (auto const& row : rows) {
        EXPECT_EQ(CWhitespaceUtils::Preserve(row.text), row.preserved);
        EXPECT_EQ(CWhitespaceUtils::Replace(row.text), row.replaced);
        EXPECT_EQ(CWhitespaceUtils::Collapse(row.text), row.collapsed);
    }
}

TEST(CWhitespaceUtils, PreservesTheFirstUnits) {
    EXPECT_EQ(CWhitespaceUtils::Preserve(u"a\r\nbcd", 4), u"a\nb");
    EXPECT_EQ(CWhitespaceUtils::Preserve(u"abc", 1), u"a");
    EXPECT_EQ(CWhitespaceUtils::Preserve(u"abc", -1) + CWhitespaceUtils::Preserve(nullptr, 3), u"");
}

TEST(CWhitespaceUtils, KnowsTheWhitespaceOfXml) {
    for (unsigned c = 0; c <= 0xFFFF; ++c) {
        bool const expected = c == 0x20 || c == 0x09 || c == 0x0D || c == 0x0A;
        EXPECT_EQ(CWhitespaceUtils::IsWhiteSpace(static_cast<char16_t>(c)), expected) << c;
    }
}

}  // namespace
