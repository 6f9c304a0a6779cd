#include "values/Utf8Conversion.h"

#include <tuple>
#include <utility>

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
    std::pair<std::u16string_view, std::string_view> const rows[] = {
        {u"a\0\x7F"sv, "a\0\x7F"sv},
        {u"\x80", "\xC2\x80"},
        {u"\x80\x7FFz", "\xC2\x80\xDF\xBFz"},
        {u"\x800\xD7FF\xE000\xFFFF", "\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"},
        {u"\xD800\xDC00\xDBFF\xDFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"}};
    for (auto const& [wide, utf8] : rows) {
        EXPECT_EQ(TextOf(WideToUtf8(wide)), utf8);
        EXPECT_EQ(Utf8ToWide(Octets(utf8)), wide);
    }
    for (std::size_t length = 0; length < 70; ++length) {
        std::string const ascii(length, 'x');
        EXPECT_EQ(Utf8ToWide(Octets(ascii + "\xC3\xA9")), wstring(length, u'x') + u"\xE9");
        EXPECT_EQ(TextOf(WideToUtf8(wstring(length, u'x') + u"\xE9")), ascii + "\xC3\xA9");
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
    std::tuple<int, int, int, int, std::size_t> const rows[] = {
        {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
        {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
        {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};
    for (auto const& [least, most, low, high, length] : rows)
        if (first >= least && first <= most && second >= low && second <= high) return length;
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
            while (octets.size() > 2) {
                octets.back() = '\xC0';  // nowhere in UTF-8
                ASSERT_EQ(units(), 0U) << first << ' ' << second << ' ' << octets.size();
                octets.pop_back();  // cut off
                ASSERT_EQ(units(), 0U) << first << ' ' << second << ' ' << octets.size();
            }
        }
    }
}

}  // namespace
