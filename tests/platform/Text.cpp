#include "BxXmlLib5/platform/Text.h"

#include "support/Expect.h"

using namespace BxXmlLib5;
using namespace std::string_literals;

namespace {

TEST(Text, ConvertsTheBoundariesOfEachLength) {
    wstring const units =
        u"\0\x7F\x80\x7FF\x800\xD7FF\xE000\xFFFF\xD800\xDC00\xD8BF\xDFFF\xD8C0\xDC00\xDBFF\xDFFF"s;
    std::string const octets =
        "\0\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"
        "\xF0\x90\x80\x80\xF0\xBF\xBF\xBF\xF1\x80\x80\x80\xF4\x8F\xBF\xBF"s;
    EXPECT_EQ(ToUtf8(units), octets);
    EXPECT_EQ(FromUtf8(octets), units);
    EXPECT_TRUE(ToUtf8({}).empty() && FromUtf8({}).empty());
}

TEST(Text, ReplacesEachMaximalPartOfMalformedUtf8) {
    // Where no octet can begin a sequence or go on with one: overlong forms, surrogates, values above 10FFFF.
    for (std::string const octets :
         {"\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80",
          "\xF5\x80\x80\x80", "\xF8\x88\x80\x80\x80", "\xC0\xAF\xE0\x80\xBF\xF0\x81\x82", "\xFF\xFE"}) {
        EXPECT_EQ(FromUtf8(octets), wstring(octets.size(), u'\xFFFD')) << octets;
    }
    for (std::string const octets :
         {"\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBF",
          "\xF0\x90\x80\x80", "\xF1\x80\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        for (std::size_t size = 1; size < octets.size(); ++size) {
            std::string const part = octets.substr(0, size);
            EXPECT_EQ(FromUtf8(part + "A" + part), u"\uFFFDA\uFFFD") << octets;
            EXPECT_EQ(FromUtf8(part + octets + part), u'\uFFFD' + FromUtf8(octets) + u'\uFFFD') << octets;
        }
    }
    // The example of The Unicode Standard, table 3-11.
    EXPECT_EQ(FromUtf8("\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41"), u"\uFFFD\uFFFD\uFFFD\uFFFDA");
}

TEST(Text, ReplacesEachUnpairedSurrogate) {
    EXPECT_EQ(ToUtf8(u"\xD800") + ToUtf8(u"\xDFFF"), "\uFFFD\uFFFD");
    EXPECT_EQ(ToUtf8(u"\xDBFF\x41\xDC00\x42"), "\uFFFDA\uFFFDB");
    EXPECT_EQ(ToUtf8(u"\xD800\xD800\xDC00\xDC00"), "\uFFFD\U00010000\uFFFD");
    EXPECT_EQ(ToUtf8(u"\xDC00\xD800\xE000"), "\uFFFD\uFFFD\uE000");
}

}  // namespace
