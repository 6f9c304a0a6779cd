#include "collections/PatternFacet.h"

#include <thread>

#include "BxXmlLib5/collections/CCompiledPattern.h"
#include "support/Expect.h"
#include "support/Stacks.h"

namespace {

using namespace BxXmlLib5;

bool Matches(wstring const& pattern, wstring const& value) {
    return MatchesPattern(pattern, value, u"n");
}

TEST(PatternFacet, TheFirstMatchSpansTheWholeValue) {
    struct {
        wstring pattern;
        wstring value;
        bool matches;
    } const kRows[] = {
        {u"[0-9]+", u"123x", false},
        {u"[0-9]+", u"x123", false},
        {u"[0-9]+", u"123\n", false},
        {u"a|ab", u"ab", false},  // the longer alternative is not sought
        {u"(a|ab)(c|bcd)", u"abcd", true},
        {u".{3}", u"\u00E9\u20AC\U0001F600", true},  // characters, not units or octets
        {u"a.c", wstring(u"a\0c", 3), true},
        {u"a\\Kb", u"ab", false},  // does not start at the start
        {u".*", u"a\xD800", false},
        {u"(?:)|.", u"\xDC00", false},
        // The escapes for names.
        {u"\\i\\c*", u"a:b-c.d_9", true},
        {u"\\i\\c*", u"_:", true},
        {u"\\i\\c*", u"a b", false},
        {u"\\i", u"-", false},
        {u"\\I", u"9", true},
        {u"\\I", u"a", false},
        {u"\\I", u":", true},  // as rewritten
        {u"\\C+", u" /!", true},
        {u"\\C", u".", false},
        {u"\\C", u"a", false},
        {u"\\\\i", u"\\i", true},
        {u"\\\\\\i", u"\\a", true},
        {u"\\\\\\\\c", u"\\\\c", true},
        {u"a\x01", u"a\\", true},       // the octet that stands in for an escaped backslash
        {u"\\c(a)\\1", u"xaa", false},  // the groups of the rewriting count
        {u"\\c(a)\\1", u"xax", true},
        {u"(\\c+):(x\\c*)\\2\\4", u"a.b:xyzbz", true},  // a repeated one holds its last character
        {u"(\\c*)y\\2", u"xyx", true},
        {u"(?:(\\c*);)+\\2", u"ab;;b", true},
        {u"\\c+?b", u"aab", true},
        {u"\\c*+b", u"aab", false},
        {u"\\c*b", u"aab", true},
        {u"[\\c+]+", u"(|a+", true},
        {u"\\Q\\c+\\Ea", u"(\\w|\\.|-|:)+a", true},
    };
    for (auto const& row : kRows) {
        EXPECT_EQ(Matches(row.pattern, row.value), row.matches)
            << ToUtf8(row.pattern) << " for " << ToUtf8(row.value);
    }
}

/// What PCRE2 refuses, or might come to take for something else.
TEST(PatternFacet, TakesWhatTheClassicPcreTook) {
    struct {
        wstring pattern;
        wstring value;
    } const kRows[] = {
        {u"\\F\\J\\M\\O\\T\\Y\\j\\m\\q\\y", u"FJMOTYjmqy"},
        {u"[\\A\\B\\G\\K\\R\\X\\Z\\k\\z\\F\\q]*", u"ABGKRXZkzFq"},
        {u"[\\w-.]+@[\\d-z]+", u"a-b.c@1-z"},
        {u"[^]\\p{Lu}-a][\\pN-.][[:alpha:]-.]", u"x--"},
        {u"[\\d-][\\E]\\c+]\\x\\F", wstring(u"-+\0F", 4)},
        {u"[--/\\d-+]*", u"-./1+"},
        {u"a{,2}{ 1}{x}{", u"a{,2}{ 1}{x}{"},
        {u"a{1,2}b{2}c{0,}\\x{41}", u"aabbA"},
        {u"(?=a\\Kb)?.(?#[)\\R", u"a\n"},
    };
    for (auto const& row : kRows) {
        EXPECT_TRUE(Matches(row.pattern, row.value)) << ToUtf8(row.pattern) << " for " << ToUtf8(row.value);
    }
}

TEST(PatternFacet, RefusesWhatIsNoRegularExpression) {
    struct {
        wstring pattern;
        std::string error;
    } const kRows[] = {
        {u"(", "missing closing parenthesis"},
        {u"[\\i-[:]][\\c-[:]]*", "unmatched closing parenthesis"},  // subtraction of classes
        {u"\\p{IsGreek}", "unknown property after \\P or \\p"},
        {u"[\\p{", "malformed \\P or \\p sequence"},
        {u"a\\", "\\ at end of pattern"},
        {u"a\xD800", "invalid UTF-16 string"},
    };
    for (auto const& row : kRows) {
        EXPECT_BX_THROW(
            Matches(row.pattern, u""), CBxException,
            "Invalid Regular Expression: " + ToUtf8(row.pattern) + " Error: '" + row.error + "' for 'n'");
    }
}

wstring Repeated(std::u16string_view text, std::size_t count) {
    wstring all;
    while (count-- > 0) all += text;
    return all;
}

TEST(PatternFacet, LongValuesMatch) {
    struct {
        wstring pattern;
        wstring value;
    } const kRows[] = {
        {u"\\c+", wstring(3'000'000, u'a')},
        {u"\\i\\c*", wstring(100'000, u'a')},
        {u"(\\i|\\c)*", wstring(50'000, u'a')},
        {u"([0-9A-Fa-f]{2})*", wstring(100'000, u'F')},
        {u"([+\\-]?\\d+(\\.\\d+)?)( [+\\-]?\\d+(\\.\\d+)?)*", u"1" + Repeated(u" -23.5", 20'000)},
        {u".*,.*", u"," + wstring(1'000'000, u'a')},  // comes back to each place
        {u"([\\x{90000}b]|a)*,[cd]?.*", wstring(200'000, u'a') + u","},
        {u"(a|b)*", wstring(200'000, u'a')},
    };
    for (auto const& row : kRows) EXPECT_TRUE(Matches(row.pattern, row.value)) << ToUtf8(row.pattern);
}

TEST(PatternFacet, HostileValuesDoNotMatch) {
    wstring const kLetters(100'000, u'a'), kDigits(100'000, u'1'), kMany(1'000'000, u'a'), kFew(60, u'a');
    struct {
        wstring pattern;
        wstring const& value;
    } const kRows[] = {
        {u"(a|b)*", kMany},                // too much memory
        {u"((a*)*)*b?c*b", kLetters},      // too many steps
        {u"(a|aa)+[bc]", kFew},            //
        {u".*\\d+[%&]", kDigits},          // steps that look at all of the value
        {u"(.*)\\1[xy]", kLetters},        // the same where nothing tells of it
        {u"(\\d{50000}[%&]|.)*", kDigits}  //
    };
    for (auto const& row : kRows) EXPECT_FALSE(Matches(row.pattern, row.value)) << ToUtf8(row.pattern);
}

wstring const kNestedGroups = Repeated(u"(", 250) + u"a|b" + Repeated(u")", 250) + u"*";

TEST(PatternFacet, SmallStacksSuffice) {
    BxTest::OnSmallStacks([] {
        EXPECT_TRUE(Matches(u"((a)|b)*", wstring(10'000, u'a')));
        EXPECT_FALSE(Matches(u"((a)|b)*", wstring(10'000, u'c')));
    });
}

TEST(PatternFacet, GroupsNestAsDeepAsTheStackAllows) {
    EXPECT_TRUE(Matches(kNestedGroups, u"abab"));
    auto const refused = [] {
        EXPECT_BX_THROW(Matches(kNestedGroups, u"a"), CBxException,
                        "Invalid Regular Expression: " + ToUtf8(kNestedGroups) +
                            " Error: 'parentheses are too deeply nested (stack check)' for 'n'");
    };
    BxTest::OnThread(128 * 1024, refused);
    BxTest::OnOwnStack(64 * 1024, refused);
    BxTest::OnOwnStack(64 * 1024, [] {
        wstring const nested = Repeated(u"(", 10) + u"a|b" + Repeated(u")", 10) + u"*";
        EXPECT_TRUE(Matches(nested, u"abab"));
    });
}

TEST(CompiledPattern, ServesManyThreads) {
    CCompiledPattern const kPattern(u"(?=(?:[a-z]|\\d+)\\z)(?:\\d|\\w+)\\z", u"", u"n");
    auto const match = [&kPattern] {
        for (int i = 0; i < 1'000; ++i) {
            EXPECT_TRUE(kPattern.MatchesWhole(u"123"));
            EXPECT_FALSE(kPattern.MatchesWhole(u"ab"));
        }
    };
    std::thread other(match);
    match();
    other.join();
}

TEST(CompiledPattern, TakesThePatternAsItStands) {
    EXPECT_TRUE(CCompiledPattern(u"[\\N{U+20AC}]", u"", u"n").MatchesWhole(u"\u20AC"));
    EXPECT_BX_THROW(CCompiledPattern(u"\\q", u"given", u"n"), CBxException,
                    "Invalid Regular Expression: given Error: 'unrecognized character follows \\' for 'n'");
}

}  // namespace
