// Texts of the built-in types, patterns and references.

#include "schema/Values.h"

#include <gtest/gtest.h>

#include <compare>
#include <string>
#include <vector>

#include "schema/RegularExpression.h"
#include "xml/Uri.h"

namespace BxGen {
namespace {

TEST(Values, TextsOfTheBuiltInTypes) {
    struct Row {
        BuiltIn m_type;
        std::vector<std::string> m_good;
        std::vector<std::string> m_bad;
    };
    // clang-format off
    Row const rows[] = {
        {BuiltIn::kBoolean, {"true", "0"}, {"TRUE", "2", ""}},
        {BuiltIn::kDecimal, {"1", "-.5", "+1.", "00.00"}, {"", ".", "1e2", "1,5", "+-1"}},
        {BuiltIn::kDouble, {"1E-5", "INF", "-INF", "NaN", ".5e+1"}, {"inf", "+INF", "1e", "e5", "1e1.5"}},
        {BuiltIn::kInteger, {"-0", "+7"}, {"1.0", "", "-"}},
        {BuiltIn::kLong, {"-9223372036854775808", "9223372036854775807"}, {"-9223372036854775809", "9223372036854775808"}},
        {BuiltIn::kInt, {"-2147483648", "2147483647"}, {"-2147483649", "2147483648"}},
        {BuiltIn::kShort, {"-32768", "+032767"}, {"-32769", "32768"}},
        {BuiltIn::kByte, {"-128", "127"}, {"-129", "128"}},
        {BuiltIn::kUnsignedLong, {"18446744073709551615", "-0"}, {"18446744073709551616", "-1"}},
        {BuiltIn::kUnsignedInt, {"4294967295", "0"}, {"4294967296", "-1"}},
        {BuiltIn::kUnsignedShort, {"65535", "0"}, {"65536", "-1"}},
        {BuiltIn::kUnsignedByte, {"255", "0"}, {"256", "-1"}},
        {BuiltIn::kPositiveInteger, {"1", "99999999999999999999999"}, {"0", "-1"}},
        {BuiltIn::kNonNegativeInteger, {"-0", "99999999999999999999999"}, {"-1"}},
        {BuiltIn::kNonPositiveInteger, {"+0", "-99999999999999999999999"}, {"1"}},
        {BuiltIn::kNegativeInteger, {"-1", "-99999999999999999999999"}, {"0", "-0"}},
        {BuiltIn::kDate, {"2000-02-29", "-0001-01-01Z", "12345-12-31+14:00"}, {"1900-02-29", "0000-01-01", "01999-01-01", "2000-1-1", "2000-01-01+14:01", "2000-13-01"}},
        {BuiltIn::kDateTime, {"2000-01-01T24:00:00", "2000-01-01T00:00:59.999Z"}, {"2000-01-01", "2000-01-01T24:00:01", "2000-01-01T00:60:00", "2000-01-01T00:00:00."}},
        {BuiltIn::kTime, {"12:00:00-05:30"}, {"12:00", "25:00:00"}},
        {BuiltIn::kGYearMonth, {"2000-12"}, {"2000-00"}},
        {BuiltIn::kGMonthDay, {"--02-29"}, {"--02-30", "02-29"}},
        {BuiltIn::kGDay, {"---31Z"}, {"---32"}},
        {BuiltIn::kGMonth, {"--12", "--12--"}, {"--13"}},
        {BuiltIn::kDuration, {"P1Y2M3DT4H5M6.7S", "-PT0S", "P400D"}, {"P", "PT", "P1H", "PT1.5M", "P1M1Y", "P-1D", "1D"}},
        {BuiltIn::kHexBinary, {"", "0aF9"}, {"0", "0g"}},
        {BuiltIn::kBase64Binary, {"", "AA==", "AAA=", "A A A A"}, {"A", "AB==", "AAB=", "A=AA", "===="}},
        {BuiltIn::kAnyUri, {"", "a b", "http://x/%20#y", "\xC3\xA9"}, {"%", "%2x", "a#b#c", ":x"}},
        {BuiltIn::kLanguage, {"en", "en-GB-1996"}, {"", "en-", "1n", "abcdefghi"}},
        {BuiltIn::kQName, {"a", "a:b"}, {"a:", ":a", "a:b:c", ""}},
        {BuiltIn::kNmToken, {"-a", "1"}, {"", "a b"}},
        {BuiltIn::kName, {":a", "\xC3\xA9"}, {"-a", "\xC3\x97"}},
        {BuiltIn::kId, {"_a"}, {"a:b"}},
    };
    // clang-format on
    for (Row const& row : rows) {
        for (std::string const& text : row.m_good) EXPECT_TRUE(IsLexical(row.m_type, text)) << text;
        for (std::string const& text : row.m_bad) EXPECT_FALSE(IsLexical(row.m_type, text)) << text;
    }
}

TEST(Values, OrderAndEquality) {
    struct Row {
        BuiltIn m_type;
        std::string m_left;
        std::string m_right;
        std::partial_ordering m_order;
    };
    auto const less = std::partial_ordering::less;
    auto const same = std::partial_ordering::equivalent;
    auto const none = std::partial_ordering::unordered;
    Row const rows[] = {
        {BuiltIn::kDecimal, "-0.0", "0", same},
        {BuiltIn::kDecimal, "9", "10.0", less},
        {BuiltIn::kDecimal, "-10", "-9.99", less},
        {BuiltIn::kDecimal, "1.1", "1.10", same},
        {BuiltIn::kFloat, "1e39", "INF", same},
        {BuiltIn::kDouble, "1e39", "INF", less},
        {BuiltIn::kDouble, "-1e-999", "0", same},
        {BuiltIn::kDate, "2000-01-01Z", "2000-01-02Z", less},
        {BuiltIn::kDateTime, "2000-01-01T12:00:00Z", "2000-01-01T13:00:00+01:00", same},
        {BuiltIn::kDateTime, "2000-01-01T12:00:00Z", "2000-01-01T13:00:00", none},
        {BuiltIn::kDateTime, "2000-01-01T12:00:00Z", "2000-01-03T13:00:00", less},
        {BuiltIn::kGMonth, "--01", "--02", less},
        {BuiltIn::kDuration, "P1Y", "P12M", same},
        {BuiltIn::kDuration, "P1M", "P30D", none},
        {BuiltIn::kDuration, "P1M", "P32D", less},
        {BuiltIn::kDuration, "P1D", "PT24H", same},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(CompareValues(row.m_type, row.m_left, row.m_right), row.m_order)
            << row.m_left << ' ' << row.m_right;
        EXPECT_EQ(CompareValues(row.m_type, row.m_right, row.m_left), 0 <=> row.m_order) << row.m_left;
        bool const hasOneKey = KeyOfValue(row.m_type, row.m_left) == KeyOfValue(row.m_type, row.m_right);
        EXPECT_EQ(hasOneKey, row.m_order == same) << row.m_left << ' ' << row.m_right;
    }
}

TEST(Patterns, ThoseThatAreAndThoseThatAreNot) {
    for (char const* const pattern :
         {"", "a|", "(a|b)*c+d?", "a{2}b{2,}c{0,99999999999999999999}", "[a-z-[aeiou]]", "[^a-z]",
          "[\\i-[:]][\\c-[:]]*", "[-a]", "[a-]", "[+\\-]", "\\p{Lu}\\P{IsGreek}\\p{IsBasicLatin}", "\\.\\^$^",
          "[.^$]", "[^-z]", "\\d+(\\.\\d+)?", "\xC3\xA9+", "[\xC3\xA0-\xC3\xA9]", "[\\s\\-x]"}) {
        EXPECT_EQ(WhatIsWrongWithPattern(pattern), std::nullopt) << pattern;
    }
    for (char const* const pattern : {"*",
                                      "a**",
                                      "(a",
                                      "a)",
                                      "[a",
                                      "[]",
                                      "a{",
                                      "a{x}",
                                      "a{3,2}",
                                      "\\",
                                      "\\q",
                                      "\\p{Xx}",
                                      "\\p{IsNowhere}",
                                      "\\pL",
                                      "[z-a]",
                                      "[a-\\d]",
                                      "[\\d-z]",
                                      "[a-[b]c]",
                                      "[a[b]]",
                                      "(?:a)",
                                      "]",
                                      "}",
                                      "{",
                                      "a|*"}) {
        EXPECT_NE(WhatIsWrongWithPattern(pattern), std::nullopt) << pattern;
    }
}

TEST(Uris, ResolvedAsTheStandardSays) {
    struct Row {
        std::string m_base;
        std::string m_reference;
        std::string m_result;
    };
    // Rows of RFC 3986, section 5.4, and paths.
    std::string const base = "http://a/b/c/d";
    Row const rows[] = {
        {base, "g", "http://a/b/c/g"},
        {base, "./g/", "http://a/b/c/g/"},
        {base, "/g", "http://a/g"},
        {base, "//g", "http://g"},
        {base, "../../g", "http://a/g"},
        {base, "../../../g", "http://a/g"},
        {base, "x:g", "http://a/b/c/x:g"},
        {base, "urn:g", "urn:g"},
        {base, "", "http://a/b/c/d"},
        {"d/a.xsd", "../b.xsd", "b.xsd"},
        {"a.xsd", "../b.xsd", "../b.xsd"},
        {"../a.xsd", "../b.xsd", "../../b.xsd"},
        {"/d/a.xsd", "e/./b.xsd", "/d/e/b.xsd"},
    };
    for (Row const& row : rows)
        EXPECT_EQ(ResolveUri(row.m_base, row.m_reference), row.m_result) << row.m_reference;
    EXPECT_EQ(PathOfUri("file:///a%20b#c"), "/a b");
    EXPECT_EQ(PathOfUri("file://localhost/a"), "/a");
    EXPECT_EQ(PathOfUri("file://elsewhere/a"), std::nullopt);
    EXPECT_EQ(PathOfUri("http://a/b"), std::nullopt);
    EXPECT_EQ(PathOfUri(UriOfPath("/a%20#?")), "/a%20#?");
}

}  // namespace
}  // namespace BxGen
