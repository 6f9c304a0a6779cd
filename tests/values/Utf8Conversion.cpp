#include "values/Utf8Conversion.h"

#include <utility>

#include "support/Expect.h"
#include "support/Octets.h"

namespace {

using namespace BxTest;
using namespace BxXmlLib5;
using namespace std::string_view_literals;

TEST(Utf8Conversion, GoesBothWays) {
    std::pair<std::u16string_view, std::string_view> const rows[] = {
        {u"a\0\x7F"sv, "a\0\x7F"sv},
        {u"\x80", "\xC2\x80"},
        {u"\x80\x7FFz", "\xC2\x80\xDF\xBFz"},
        {u"\x800\xD7FF\xE000\xFFFF", "\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"},
        {u"\xD800\xDC00\xDBFF\xDFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"}};
    for (auto const& [wide, utf8] : rows) {
        EXPECT_EQ(AsText(WideToUtf8(wide)), utf8);
        EXPECT_EQ(Utf8ToWide(AsOctets(utf8)), wide);
    }
    for (std::size_t length = 0; length < 70; ++length) {
        std::string const ascii(length, 'x');
        EXPECT_EQ(Utf8ToWide(AsOctets(ascii + "\xC3\xA9")), wstring(length, u'x') + u"\xE9");
        EXPECT_EQ(AsText(WideToUtf8(wstring(length, u'x') + u"\xE9")), ascii + "\xC3\xA9");
        std::string const mixed = ascii + "\xF0\x9F\x98\x80" + std::string(200, 'y') + "\xE2\x82\xAC" + ascii;
        EXPECT_EQ(AsText(WideToUtf8(Utf8ToWide(AsOctets(mixed)))), mixed);
    }
}

TEST(Utf8Conversion, MakesNoOctetsOfTextWithoutUtf8Form) {
    for (std::u16string_view const text :
         {u""sv, u"\xDC00"sv, u"a\xD800"sv, u"a\xDBFFz"sv, u"\xD800\xD800\xDC00"sv, u"\xD800\xE000"sv})
        EXPECT_EQ(WideToUtf8(text), CBinaryData()) << testing::PrintToString(wstring(text));
}

TEST(Utf8Conversion, MakesNoTextOfMalformedOctets) {
    for (std::string_view const octets : {"\x80", "a\xC1\xBF", "\xC3", "\xE0\x9F\xBF", "\xED\xA0\x80",
                                          "a\xF4\x90\x80\x80", "\xF0\x90\x80", "\xC3\xA9\xFF"})
        EXPECT_EQ(Utf8ToWide(AsOctets(octets)), u"") << octets;
}

}  // namespace
