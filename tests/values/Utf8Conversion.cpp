#include "values/Utf8Conversion.h"

#include "support/Expect.h"

namespace {

using namespace BxXmlLib5;
using namespace std::string_view_literals;

std::span<unsigned char const> Octets(std::string_view text) {
    return {reinterpret_cast<unsigned char const*>(text.data()), text.size()};
}

std::string TextOf(CBinaryData const& data) {
    return {reinterpret_cast<char const*>(data.GetData()), data.GetLength()};
}

TEST(Utf8Conversion, GoesBothWays) {
    struct {
        std::u16string_view m_wide;
        std::string_view m_utf8;
    } const rows[] = {
        {u"a\0\x7F"sv, "a\0\x7F"sv},
        {u"\x80", "\xC2\x80"},
        {u"\x80\x7FFz", "\xC2\x80\xDF\xBFz"},
        {u"\x800\xD7FF\xE000\xFFFF", "\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"},
        {u"\xD800\xDC00\xDBFF\xDFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
        {u"\u00DFe \u65E5\U0001F600.", "\xC3\237e \xE6\x97\xA5\xF0\x9F\x98\x80."},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(TextOf(WideToUtf8(row.m_wide)), row.m_utf8);
        EXPECT_EQ(Utf8ToWide(Octets(row.m_utf8)), row.m_wide);
    }
}

TEST(Utf8Conversion, SeesTheOneCharacterThatIsNotAscii) {
    for (std::size_t length = 0; length < 70; ++length) {
        wstring const wide = wstring(length, u'x') + u"\xE9";
        std::string const utf8 = std::string(length, 'x') + "\xC3\xA9";
        EXPECT_EQ(TextOf(WideToUtf8(wide)), utf8);
        EXPECT_EQ(Utf8ToWide(Octets(utf8)), wide);
        EXPECT_EQ(TextOf(WideToUtf8(wide.substr(0, length))), utf8.substr(0, length));
        EXPECT_EQ(Utf8ToWide(Octets(utf8).first(length)), wide.substr(0, length));
    }
}

TEST(Utf8Conversion, MakesNoOctetsOfTextWithoutUtf8Form) {
    for (std::u16string_view const text : {u""sv, u"\xD800"sv, u"\xDC00"sv, u"a\xD800"sv, u"a\xDBFFz"sv,
                                           u"\xDFFF\xD800"sv, u"\xD800\xD800\xDC00"sv, u"\xD800\xE000"sv}) {
        EXPECT_EQ(WideToUtf8(text), CBinaryData()) << testing::PrintToString(wstring(text));
    }
}

/// Table 3-7 of The Unicode Standard: how long a sequence is that begins with these octets, 0 if none does.
std::size_t LengthOf(int first, int second) {
    struct {
        int m_first, m_last, m_low, m_high;
        std::size_t m_length;
    } const rows[] = {{0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
                      {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
                      {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};
    for (auto const& row : rows) {
        bool const begins = first >= row.m_first && first <= row.m_last;
        if (begins && second >= row.m_low && second <= row.m_high) return row.m_length;
    }
    return 0;
}

TEST(Utf8Conversion, TakesWellFormedOctetsOnly) {
    for (int first = 0x80; first <= 0xFF; ++first) {
        for (int second = 0; second <= 0xFF; ++second) {
            std::size_t const length = LengthOf(first, second);
            std::string octets{'a', static_cast<char>(first), static_cast<char>(second), '\x80', '\xBF'};
            octets.resize(length == 0 ? 5 : 1 + length);
            auto const units = [&octets] { return Utf8ToWide(Octets(octets)).size(); };
            ASSERT_EQ(units(), length == 0 ? 0U : length == 4 ? 3U : 2U) << first << ' ' << second;
            for (std::size_t last = 2; last < octets.size(); ++last) {
                std::string const whole = octets;
                octets[last] = '\xC0';  // nowhere in UTF-8
                ASSERT_EQ(units(), 0U) << first << ' ' << second << ' ' << last;
                octets = whole.substr(0, last);  // cut off
                ASSERT_EQ(units(), 0U) << first << ' ' << second << ' ' << last;
                octets = whole;
            }
        }
    }
    EXPECT_EQ(Utf8ToWide({}), u"");
    EXPECT_EQ(Utf8ToWide(Octets("\x80")), u"");
    EXPECT_EQ(Utf8ToWide(Octets("before\xC0\200behind")), u"");
}

}  // namespace
