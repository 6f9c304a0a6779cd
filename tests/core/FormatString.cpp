#include "BxXmlLib5/core/FormatString.h"

#include <cstdint>
#include <cstdio>
#include <limits>

#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

template <class... Arguments>
std::string Formatted(char16_t const* format, Arguments... arguments) {
    return ToUtf8(FormatString(format, arguments...));
}

/// For each value, every combination of flags, width, precision and these conversions gives what printf
/// gives.
template <class T>
void ExpectLikePrintf(std::initializer_list<char const*> conversions, std::initializer_list<T> values) {
    for (std::string const flags : {"%", "%-", "%+", "% ", "%#", "%0", "%+0", "%-0", "%+ ", "%#0"}) {
        for (std::string const size : {"", "13", ".", ".0", ".3", ".20", "13.", "13.0", "13.3"}) {
            for (std::string const conversion : conversions) {
                std::string const format = flags + size + conversion + "|";
                for (T const value : values) {
                    char expected[512];
                    std::snprintf(expected, sizeof expected, format.c_str(), value);
                    EXPECT_EQ(Formatted(FromUtf8(format).c_str(), value), expected) << format;
                }
            }
        }
    }
}

TEST(FormatString, PrintsNumbersLikePrintf) {
    using Double = std::numeric_limits<double>;
    ExpectLikePrintf({"d", "i", "u", "x", "X", "hd", "hu", "hx"},
                     {0, 1, -1, 70000, 40000, INT32_MIN, INT32_MAX});
    ExpectLikePrintf({"ld", "lu", "lx", "lld", "llX"}, {0L, 7L, -1L, INT64_MIN, INT64_MAX});
    ExpectLikePrintf(
        {"f", "e", "E", "g", "G", "lf"},
        {0.0, -0.0, 0.5, -2.5, 9.9999996, 0.0001, 0.00001, 123456.0, 1234567.0, -1e100, Double::denorm_min(),
         Double::max(), Double::infinity(), -Double::infinity(), Double::quiet_NaN()});
}

TEST(FormatString, UnderstandsEachSizePrefix) {
    EXPECT_EQ(Formatted(u"%I64d|%I64i|%I64u|%I64x|%+020I64d", INT64_MIN, INT64_MAX, UINT64_MAX, UINT64_MAX,
                        INT64_C(1) << 40),
              "-9223372036854775808|9223372036854775807|18446744073709551615|ffffffffffffffff|+"
              "0000001099511627776");
    EXPECT_EQ(Formatted(u"%Fd %Nd %Fs %Ns %Lf", 7, 8, u"f", u"n", 1.5L), "7 8 f n 1.500000");
    EXPECT_EQ(Formatted(u"%ls|%5hs", u"w\u00E4", u"\u20AC"), "w\u00E4|    \u20AC");
}

TEST(FormatString, PrintsTexts) {
    char16_t const* const null = nullptr;
    char16_t const unterminated[] = {u'a', u'b'};
    char16_t const* const ab = u"ab";
    EXPECT_EQ(Formatted(u"%s|%5s|%-5s|%05s|%.1s|%.0s|%6.1s|%1s", ab, ab, ab, ab, ab, ab, ab, ab),
              "ab|   ab|ab   |000ab|a||     a|ab");
    EXPECT_EQ(Formatted(u"%s|%.2s|%s|%.2s", null, null, u"", unterminated), "(null)|(n||ab");
    EXPECT_EQ(Formatted(u"%c%c|%3c|%-3c|%%", u'x', u'\u20AC', u'y', 'z'), "x\u20AC|  y|z  |%");
    EXPECT_EQ(FormatString(u"a%cb%d", u'\0', 1), u"a");
    EXPECT_EQ(FormatString(nullptr) + FormatString(u""), u"");
}

TEST(FormatString, TakesItsArgumentsInOrder) {
    EXPECT_EQ(Formatted(u"%d%s%I64d%s%c%u%x%.0f%.0f%.0f%.0f%.0f%.0f%.0f%.0f%.0f%d%s", 1, u"s", INT64_C(2),
                        u"n", u'c', 3U, 10, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, 10, u"z"),
              "1s2nc3a12345678910z");
}

TEST(FormatString, HasNoLimitOfLength) {
    wstring const text(100'000, u'\u20AC');
    EXPECT_TRUE(FormatString((text + u"%s%d").c_str(), text.c_str(), 1) == text + text + u"1");
    EXPECT_TRUE(FormatString(u"%70000d%.70000d", 1, 1) ==
                wstring(69'999, u' ') + u"1" + wstring(69'999, u'0') + u"1");
    EXPECT_TRUE(FormatString(u"%.3000f", 1.0) == u"1." + wstring(3000, u'0'));
}

TEST(FormatString, PrintsAnUnknownConversionAsItStands) {
    int written = -1;
    EXPECT_EQ(Formatted(u"%n%5y%p%*d", &written) + Formatted(u"a%-5.2l"), "%n%5y%p%*da%-5.2l");
    EXPECT_EQ(written, -1);
}

}  // namespace
