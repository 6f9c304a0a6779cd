#include "BxXmlLib5/platform/Text.h"

#include <vector>

#include "platform/TextView.h"
#include "support/Expect.h"

using namespace BxXmlLib5;
using namespace std::string_literals;

namespace {

struct Form {
    std::string m_octets;
    wstring m_units;
};

std::vector<Form> const kBoundaries = {
    {"\0"s, u"\0"s},
    {"\x7F", u"\x7F"},
    {"\xC2\x80", u"\x80"},
    {"\xDF\xBF", u"\x7FF"},
    {"\xE0\xA0\x80", u"\x800"},
    {"\xED\x9F\xBF", u"\xD7FF"},
    {"\xEE\x80\x80", u"\xE000"},
    {"\xEF\xBF\xBD", u"\xFFFD"},
    {"\xEF\xBF\xBE", u"\xFFFE"},
    {"\xEF\xBF\xBF", u"\xFFFF"},
    {"\xF0\x90\x80\x80", u"\xD800\xDC00"},
    {"\xF1\x80\x80\x80", u"\xD8C0\xDC00"},
    {"\xF3\xBF\xBF\xBF", u"\xDBBF\xDFFF"},
    {"\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"},
};

/// All code points but the surrogates, in UTF-16.
wstring AllCodePoints() {
    wstring units;
    for (unsigned c = 0; c < 0xD800; ++c) units += static_cast<char16_t>(c);
    for (unsigned c = 0xE000; c < 0x10000; ++c) units += static_cast<char16_t>(c);
    for (unsigned high = 0xD800; high < 0xDC00; ++high) {
        for (unsigned low = 0xDC00; low < 0xE000; ++low) {
            units += {static_cast<char16_t>(high), static_cast<char16_t>(low)};
        }
    }
    return units;
}

TEST(Text, ConvertsTheBoundariesOfEachLength) {
    for (auto const& [octets, units] : kBoundaries) {
        EXPECT_EQ(ToUtf8(units), octets);
        EXPECT_EQ(FromUtf8(octets), units);
        EXPECT_EQ(FromUtf8("a" + octets + octets + "b"), u"a" + units + units + u"b");
        EXPECT_EQ(ToUtf8(u"a" + units + units + u"b"), "a" + octets + octets + "b");
    }
    EXPECT_EQ(ToUtf8(u""), "");
    EXPECT_EQ(FromUtf8(""), u"");
}

TEST(Text, RoundTripsAllCodePoints) {
    wstring const all = AllCodePoints();
    std::string const octets = ToUtf8(all);
    EXPECT_EQ(octets.size(), 0x80U + 0x780U * 2 + (0xF800U - 0x800U) * 3 + 0x100000U * 4);
    EXPECT_TRUE(FromUtf8(octets) == all);
}

TEST(Text, ReplacesEachTruncatedSequenceOnce) {
    for (auto const& [octets, units] : kBoundaries) {
        for (std::size_t size = 1; size < octets.size(); ++size) {
            std::string const part = octets.substr(0, size);
            EXPECT_EQ(FromUtf8(part), u"\xFFFD") << octets << " cut to " << size;
            EXPECT_EQ(FromUtf8(part + "A" + part + octets),
                      u"\xFFFD"
                      u"A\xFFFD" +
                          units)
                << octets;
        }
    }
}

TEST(Text, ReplacesEachMaximalPartOfMalformedUtf8) {
    struct Row {
        std::string m_octets;
        std::string m_expected;  // ? for U+FFFD
    };
    Row const rows[] = {
        // The examples of The Unicode Standard, tables 3-8 to 3-11.
        {"\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41", "????????A"},
        {"\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41", "????????A"},
        {"\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42", "?????A??B"},
        {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", "????A"},
        {"\xC1\xBF", "??"},  // overlong, by the largest value of each length
        {"\xE0\x9F\xBF", "???"},
        {"\xF0\x8F\xBF\xBF", "????"},
        {"\xED\xA0\x80", "???"},  // surrogates
        {"\xED\xBF\xBF", "???"},
        {"\xF4\x90\x80\x80", "????"},  // above 10FFFF
        {"\xF5\x80\x80\x80", "????"},
        {"\xF8\x88\x80\x80\x80", "?????"},
        {"\xC2\xC2\xA0x", "?\xC2\xA0x"},  // a sequence starts inside another
        {"\xE2\x82\xE2\x82\xAC", "?\xE2\x82\xAC"},
        {"\xF0\x9F\x98\x41", "?A"},
        {"\xC3\x28", "?("},
        {"\0\x80\0"s, "\0?\0"s},
    };
    for (auto const& [octets, expected] : rows) {
        wstring units = FromUtf8(expected);
        for (char16_t& unit : units) unit = unit == u'?' ? u'\xFFFD' : unit;
        EXPECT_EQ(FromUtf8(octets), units) << expected;
    }
    for (unsigned first = 0x80; first <= 0xFF; ++first) {
        EXPECT_EQ(FromUtf8(std::string(1, static_cast<char>(first))), u"\xFFFD") << first;
    }
}

TEST(Text, ReplacesEachUnpairedSurrogate) {
    Form const rows[] = {
        {"\xEF\xBF\xBD", u"\xD800"},
        {"\xEF\xBF\xBD", u"\xDFFF"},
        {"\xEF\xBF\xBD\x41", u"\xDBFF\x41"},
        {"\x41\xEF\xBF\xBD\x42", u"\x41\xDC00\x42"},
        {"\xEF\xBF\xBD\xF0\x90\x80\x80", u"\xD800\xD800\xDC00"},
        {"\xEF\xBF\xBD\xEF\xBF\xBD", u"\xDC00\xD800"},
        {"\xEF\xBF\xBD\xEE\x80\x80", u"\xD800\xE000"},
        {"\xF0\x90\x80\x80\xEF\xBF\xBD", u"\xD800\xDC00\xDC00"},
    };
    for (auto const& [octets, units] : rows) EXPECT_EQ(ToUtf8(units), octets);
}

TEST(TextView, ComparesTextsThatMayBeNullOrEmpty) {
    EXPECT_EQ(TextOf(nullptr), u"");
    EXPECT_EQ(TextOf(u"ab\0c"), u"ab");
    std::u16string_view const texts[] = {{}, u"a", u"b", u"\xD800", u"\xFFFF", u"ab", u"ac"};
    for (auto const a : texts) {
        for (auto const b : texts) {
            EXPECT_EQ(Equal(a, b), a == b);
            EXPECT_EQ(LessBySize()(a, b) || LessBySize()(b, a), a != b);
            EXPECT_FALSE(LessBySize()(a, b) && LessBySize()(b, a));
            EXPECT_TRUE(a.size() >= b.size() || LessBySize()(a, b));
        }
    }
}

}  // namespace
