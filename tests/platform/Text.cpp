#include "BxXmlLib5/platform/Text.h"

#include "platform/TextView.h"
#include "support/Expect.h"

using namespace BxXmlLib5;
using namespace std::string_literals;

namespace {

struct Row {
    std::string m_octets;
    wstring m_units;
};

Row const kBoundaries[] = {{"\0"s, u"\0"s},
                           {"\x7F", u"\x7F"},
                           {"\xC2\x80", u"\x80"},
                           {"\xDF\xBF", u"\x7FF"},
                           {"\xE0\xA0\x80", u"\x800"},
                           {"\xED\x9F\xBF", u"\xD7FF"},
                           {"\xEE\x80\x80", u"\xE000"},
                           {"\xEF\xBF\xBD", u"\xFFFD"},
                           {"\xEF\xBF\xBF", u"\xFFFF"},
                           {"\xF0\x90\x80\x80", u"\xD800\xDC00"},
                           {"\xF1\x80\x80\x80", u"\xD8C0\xDC00"},
                           {"\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"}};

TEST(Text, ConvertsTheBoundariesOfEachLength) {
    for (auto const& [octets, units] : kBoundaries) {
        EXPECT_EQ(ToUtf8(u"a" + units + units), "a" + octets + octets);
        EXPECT_EQ(FromUtf8("a" + octets + octets), u"a" + units + units);
    }
    EXPECT_TRUE(ToUtf8({}).empty() && FromUtf8({}).empty());
}

TEST(Text, RoundTripsAllCodePoints) {
    wstring all;
    for (unsigned c = 0; c < 0x110000; ++c) {
        if (c >= 0xD800 && c < 0xE000) continue;
        if (c >= 0x10000) all += static_cast<char16_t>(0xD7C0 + (c >> 10));
        all += static_cast<char16_t>(c < 0x10000 ? c : 0xDC00 + (c & 0x3FF));
    }
    std::string const octets = ToUtf8(all);
    EXPECT_EQ(octets.size(), 0x80U + 0x780U * 2 + (0xF800U - 0x800U) * 3 + 0x100000U * 4);
    EXPECT_TRUE(FromUtf8(octets) == all);
}

TEST(Text, ReplacesEachMaximalPartOfMalformedUtf8) {
    for (auto const& [octets, units] : kBoundaries) {
        for (std::size_t size = 1; size < octets.size(); ++size) {
            std::string const part = octets.substr(0, size);
            EXPECT_EQ(FromUtf8(part + "A" + part + octets + part),
                      u"\xFFFD"
                      u"A\xFFFD" +
                          units + u"\xFFFD")
                << octets;
        }
    }
    std::pair<std::string, std::string> const rows[] = {
        // The examples of The Unicode Standard, tables 3-8 to 3-11, with ? for U+FFFD.
        {"\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41", "????????A"},
        {"\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41", "????????A"},
        {"\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42", "?????A??B"},
        {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", "????A"},
        // Overlong forms of the largest values, surrogates, values above 10FFFF, sequences inside others.
        {"\xC1\xBF", "??"},
        {"\xE0\x9F\xBF", "???"},
        {"\xF0\x8F\xBF\xBF", "????"},
        {"\xED\xBF\xBF", "???"},
        {"\xF4\x90\x80\x80", "????"},
        {"\xF5\x80\x80\x80", "????"},
        {"\xF8\x88\x80\x80\x80", "?????"},
        {"\xC2\xC2\xA0x", "?\xC2\xA0x"},
        {"\xE2\x82\xE2\x82\xAC", "?\xE2\x82\xAC"},
        {"\xC3(\0\x80"s, "?(\0?"s}};
    for (auto const& [octets, expected] : rows) {
        wstring units = FromUtf8(expected);
        for (char16_t& unit : units) unit = unit == u'?' ? u'\xFFFD' : unit;
        EXPECT_EQ(FromUtf8(octets), units) << expected;
    }
    for (unsigned first = 0x80; first <= 0xFF; ++first) {
        EXPECT_EQ(FromUtf8({static_cast<char>(first)}), u"\xFFFD") << first;
    }
}

TEST(Text, ReplacesEachUnpairedSurrogate) {
    Row const rows[] = {{"?", u"\xD800"},
                        {"?", u"\xDFFF"},
                        {"?A", u"\xDBFF\x41"},
                        {"A?B", u"\x41\xDC00\x42"},
                        {"?\xF0\x90\x80\x80", u"\xD800\xD800\xDC00"},
                        {"??", u"\xDC00\xD800"},
                        {"?\xEE\x80\x80", u"\xD800\xE000"},
                        {"\xF0\x90\x80\x80?", u"\xD800\xDC00\xDC00"}};
    for (auto const& [expected, units] : rows) {
        std::string octets = ToUtf8(units);
        for (std::size_t at; (at = octets.find("\xEF\xBF\xBD")) != std::string::npos;)
            octets.replace(at, 3, "?");
        EXPECT_EQ(octets, expected);
    }
}

TEST(TextView, ComparesTextsThatMayBeNullOrEmpty) {
    EXPECT_TRUE(TextOf(nullptr) == u"" && TextOf(u"ab") == u"ab");
    std::u16string_view const texts[] = {{}, u"a", u"b", u"\xD800", u"ab", u"ac"};
    for (auto const a : texts) {
        for (auto const b : texts) {
            EXPECT_EQ(Equal(a, b), a == b);
            EXPECT_EQ(LessBySize()(a, b) + LessBySize()(b, a), a != b);
            EXPECT_TRUE(a.size() >= b.size() || LessBySize()(a, b));
        }
    }
}

}  // namespace
