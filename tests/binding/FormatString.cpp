#include "BxXmlLib5/binding/FormatString.h"

#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <locale>
#include <vector>

#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

/// The same format and arguments give what printf gives in the "C" locale.
template <class... Arguments>
void ExpectLikePrintf(std::string const& format, Arguments... arguments) {
    std::vector<char> expected(2048);
    std::snprintf(expected.data(), expected.size(), format.c_str(), arguments...);
    EXPECT_EQ(ToUtf8(FormatString(FromUtf8(format).c_str(), arguments...)), expected.data()) << format;
}

/// Every combination of flags, width, precision and these conversions, for each value.
template <class T>
void ExpectAllFormatsLikePrintf(std::initializer_list<char const*> conversions,
                                std::initializer_list<T> values) {
    for (char const* flags : {"", "-", "+", " ", "#", "0", "+0", "-0", "+ ", "#0", "-+ #0"}) {
        for (char const* width : {"", "1", "13"}) {
            for (char const* precision : {"", ".", ".0", ".3", ".20"}) {
                for (char const* conversion : conversions) {
                    for (T const value : values) {
                        ExpectLikePrintf(std::string("%") + flags + width + precision + conversion + "|",
                                         value);
                    }
                }
            }
        }
    }
}

template <class... Arguments>
std::string Formatted(char16_t const* format, Arguments... arguments) {
    return ToUtf8(FormatString(format, arguments...));
}

/// A locale with a decimal comma, for the life of the object; made on the spot where none is installed.
class CommaLocale {
public:
    CommaLocale() {
        struct Comma : std::numpunct<char16_t> {
            char16_t do_decimal_point() const override { return u','; }
        };
        struct NarrowComma : std::numpunct<char> {
            char do_decimal_point() const override { return ','; }
            char do_thousands_sep() const override { return '.'; }
            std::string do_grouping() const override { return "\3"; }
        };
        std::locale::global(std::locale(std::locale(std::locale(), new Comma), new NarrowComma));
        if (Set()) return;
        std::string const folder = testing::TempDir() + "bxxmllib5-locales";
        std::filesystem::create_directories(folder);
        setenv("LOCPATH", folder.c_str(), 1);
        m_isSet =
            std::system(("localedef -c -f UTF-8 -i de_DE " + folder + "/de_DE.UTF-8 2>&1").c_str()) == 0 &&
            Set();
    }
    ~CommaLocale() {
        std::locale::global(std::locale::classic());
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
    }
    bool IsSet() const { return m_isSet; }

private:
    bool Set() { return m_isSet = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr; }

    bool m_isSet = false;
};

TEST(FormatString, PrintsIntegersLikePrintf) {
    ExpectAllFormatsLikePrintf(
        {"d", "i", "u", "o", "x", "X", "hd", "hu", "hx"},
        {0, 1, -1, 42, 70000, 40000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()});
    ExpectAllFormatsLikePrintf(
        {"ld", "lu", "lx", "lld", "llu", "llo"},
        {0L, 7L, -1L, std::numeric_limits<long>::min(), std::numeric_limits<long>::max()});
}

TEST(FormatString, PrintsFloatingPointLikePrintf) {
    using Limits = std::numeric_limits<double>;
    ExpectAllFormatsLikePrintf({"f", "e", "E", "g", "G", "lf", "lg"},
                               {0.0, -0.0, 0.5, 1.0, -2.5, 9.9999996, 0.0001, 0.00001, 123456.0, 1234567.0,
                                1e21, -1e100, Limits::min(), Limits::denorm_min(), Limits::max(),
                                Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()});
    ExpectLikePrintf("%.500f", 0.1);
    ExpectLikePrintf("%.400e", Limits::denorm_min());
    EXPECT_EQ(Formatted(u"%Lf %Lg %LE", 1.5L, -0.25L, 12.0L), "1.500000 -0.25 1.200000E+01");
}

TEST(FormatString, UnderstandsEachSizePrefix) {
    std::int64_t const least = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(
        Formatted(u"%I64d|%I64i|%I64u|%I64x|%I64X", least, least, UINT64_MAX, UINT64_MAX, INT64_MAX),
        "-9223372036854775808|-9223372036854775808|18446744073709551615|ffffffffffffffff|7FFFFFFFFFFFFFFF");
    EXPECT_EQ(Formatted(u"%+024I64d|%-5I64d|", std::int64_t{12345678901}, std::int64_t{3}),
              "+00000000000012345678901|3    |");
    EXPECT_EQ(Formatted(u"%hd %hu %ld %lu", 65537, 65537, 5000000000L, 5000000000UL),
              "1 1 5000000000 5000000000");
    EXPECT_EQ(Formatted(u"%Fd %Nd %Fs %Ns", 7, 8, u"f", u"n"), "7 8 f n");
    EXPECT_EQ(Formatted(u"%ls|%hs|%5hs|%.3hs", u"w\u00E4", "n\xC3\xA4", "\xE2\x82\xAC", "abcd"),
              "w\xC3\xA4|n\xC3\xA4|    \xE2\x82\xAC|abc");
}

TEST(FormatString, PrintsTexts) {
    char16_t const* const null = nullptr;
    char16_t const unterminated[] = {u'a', u'b'};
    EXPECT_EQ(Formatted(u"[%s] [%5s] [%-5s] [%05s] [%.1s] [%.0s] [%6.1s]", u"ab", u"ab", u"ab", u"ab", u"ab",
                        u"ab", u"ab"),
              "[ab] [   ab] [ab   ] [000ab] [a] [] [     a]");
    EXPECT_EQ(Formatted(u"%s|%s|%1s", null, u"", u"longer"), "(null)||longer");
    EXPECT_EQ(Formatted(u"%hs", static_cast<char const*>(nullptr)), "(null)");
    EXPECT_EQ(Formatted(u"%.2s", unterminated), "ab");
    EXPECT_EQ(FormatString(u"\xD83D%s\xDC00", u"\xDC00\xD83D\xDE00\xDFFF"),
              u"\xD83D\xDC00\xD83D\xDE00\xDFFF\xDC00");
    EXPECT_EQ(Formatted(u"%c%c|%3c|%-3c|%%|%c", u'x', u'\u20AC', u'y', u'z', 'w'),
              "x\xE2\x82\xAC|  y|z  |%|w");
}

TEST(FormatString, TakesWidthAndPrecisionFromArguments) {
    EXPECT_EQ(Formatted(u"%*s|%*s|%-*s|%0*d", 4, u"a", -4, u"a", 3, u"b", 4, 7), "   a|a   |b  |0007");
    EXPECT_EQ(Formatted(u"%.*s|%.*s|%.*d|%.*d", 1, u"ab", -1, u"ab", 3, 7, -1, 7), "a|ab|007|7");
    EXPECT_EQ(Formatted(u"%*.*f|%-*.*f|%*.*f", 8, 2, 1.5, 8, 1, 1.5, -6, -1, 0.25),
              "    1.50|1.5     |0.250000");
}

TEST(FormatString, TakesItsArgumentsInOrder) {
    EXPECT_EQ(Formatted(u"%d %s %f %I64d %hs %c %e %u %g %x %.1f %d %.2f %s %.1f %.1f %.1f %.1f %.1f %d", -1,
                        u"s", 1.5, std::int64_t{1} << 40, "n", u'c', 2.0, 3U, 0.5, 255, 4.0, 5, 6.0, u"t",
                        1.0, 2.0, 3.0, 4.0, 5.0, 9),
              "-1 s 1.500000 1099511627776 n c 2.000000e+00 3 0.5 ff 4.0 5 6.00 t 1.0 2.0 3.0 4.0 5.0 9");
}

TEST(FormatString, HasNoLimitOfLength) {
    wstring const longText(100'000, u'\u20AC');
    EXPECT_EQ(FormatString(u"<%s%s>", longText.c_str(), longText.c_str()), u"<" + longText + longText + u">");
    EXPECT_EQ(FormatString((longText + u"%d").c_str(), 1), longText + u"1");
    EXPECT_EQ(FormatString(u"%70000d", 1), wstring(69'999, u' ') + u"1");
    EXPECT_EQ(FormatString(u"%.70000d", 1), wstring(69'999, u'0') + u"1");
    EXPECT_EQ(FormatString(u"%.3000f", 1.0), u"1." + wstring(3000, u'0'));
}

TEST(FormatString, EndsAtTheFirstZero) {
    EXPECT_EQ(FormatString(u"a%cb%d", u'\0', 1), u"a");
    EXPECT_EQ(FormatString(u"%c", u'\0'), u"");
    EXPECT_EQ(FormatString(nullptr), u"");
    EXPECT_EQ(FormatString(u""), u"");
}

TEST(FormatString, PrintsAnUnknownConversionAsItStands) {
    int written = -1;
    EXPECT_EQ(Formatted(u"%n%y%5y", &written), "%n%y%5y");
    EXPECT_EQ(written, -1);
    EXPECT_EQ(Formatted(u"a%"), "a%");
    EXPECT_EQ(Formatted(u"a%-5.2l"), "a%-5.2l");
}

TEST(FormatString, IgnoresTheLocale) {
    CommaLocale const locale;
    if (!locale.IsSet()) GTEST_SKIP() << "no locale with a decimal comma, and none could be made";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(Formatted(u"%f %.1e %g %.2f %d", 1.5, 2500.0, 0.25, 1234567.0, 1234567),
              "1.500000 2.5e+03 0.25 1234567.00 1234567");
}

}  // namespace
