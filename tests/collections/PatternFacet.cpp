#include "collections/PatternFacet.h"

#include <thread>
#include <vector>

#include "BxXmlLib5/collections/CCompiledPattern.h"
#include "support/Expect.h"
#include "support/Stacks.h"

namespace {

using namespace BxXmlLib5;

bool Matches(wstring const& pattern, wstring const& value) {
    return MatchesPattern(pattern, value, u"n");
}

struct Row {
    wstring pattern, value;
    bool matches = true;
};

void ExpectRows(std::vector<Row> const& rows) {
    for (auto const& [pattern, value, matches] : rows)
        EXPECT_EQ(Matches(pattern, value), matches)
            << ToUtf8(pattern) << " for " << ToUtf8(value.substr(0, 50));
}

TEST(PatternFacet, TheFirstMatchSpansTheWholeValue) {
    ExpectRows({
        {u"[0-9]+", u"123x", false},
        {u"[0-9]+", u"x123", false},
        {u"[0-9]+", u"123\n", false},
        {u"a|ab", u"ab", false},  // the longer alternative is not sought
        {u"(a|ab)(c|bcd)", u"abcd"},
        {u".{3}", u"\u00E9\u20AC\U0001F600"},  // characters, not units or octets
        {u"a.c", wstring(u"a\0c", 3)},
        {u"a\\Kb", u"ab", false},  // does not start at the start
        {u".*", u"a\xD800", false},
        {u"(?:)|.", u"\xDC00", false},
        // The escapes for names.
        {u"\\i\\c*", u"a:b-c.d_9"},
        {u"\\i\\c*", u"_:"},
        {u"\\i\\c*", u"a b", false},
        {u"\\i", u"-", false},
        {u"\\I", u"9"},
        {u"\\I", u"a", false},
        {u"\\I", u":"},  // as rewritten
        {u"\\C+", u" /!"},
        {u"\\C", u".", false},
        {u"\\C", u"a", false},
        {u"\\\\i", u"\\i"},
        {u"\\\\\\i", u"\\a"},
        {u"\\\\\\\\c", u"\\\\c"},
        {u"a\x01", u"a\\"},             // the octet that stands in for an escaped backslash
        {u"\\c(a)\\1", u"xaa", false},  // the groups of the rewriting count
        {u"\\c(a)\\1", u"xax"},
        {u"(\\c+):(x\\c*)\\2\\4", u"a.b:xyzbz"},  // a repeated one holds its last character
        {u"(\\c*)y\\2", u"xyx"},
        {u"(?:(\\c*);)+\\2", u"ab;;b"},
        {u"\\c+?b", u"aab"},
        {u"\\c*+b", u"aab", false},
        {u"\\c*b", u"aab"},
        {u"[\\c+]+", u"(|a+"},
        {u"\\Q\\c+\\Ea", u"(\\w|\\.|-|:)+a"},
    });
}

/// What PCRE2 refuses, or might come to take for something else.
TEST(PatternFacet, TakesWhatTheClassicPcreTook) {
    ExpectRows({
        {u"\\F\\J\\M\\O\\T\\Y\\j\\m\\q\\y", u"FJMOTYjmqy"},
        {u"[\\A\\B\\G\\K\\R\\X\\Z\\k\\z\\F\\q]*", u"ABGKRXZkzFq"},
        {u"[\\w-.]+@[\\d-z]+", u"a-b.c@1-z"},
        {u"[^]\\p{Lu}-a][\\pN-.][[:alpha:]-.]", u"x--"},
        {u"[\\d-][\\E]\\c+]\\x\\F", wstring(u"-+\0F", 4)},
        {u"[--/\\d-+]*", u"-./1+"},
        {u"a{,2}{ 1}{x}{", u"a{,2}{ 1}{x}{"},
        {u"a{1,2}b{2}c{0,}\\x{41}", u"aabbA"},
        {u"(?=a\\Kb)?.(?#[)\\R", u"a\n"},
    });
}

TEST(PatternFacet, RefusesWhatIsNoRegularExpression) {
    std::pair<wstring, std::string> const rows[] = {
        {u"(", "missing closing parenthesis"},
        {u"[\\i-[:]][\\c-[:]]*", "unmatched closing parenthesis"},  // subtraction of classes
        {u"\\p{IsGreek}", "unknown property after \\P or \\p"},
        {u"[\\p{", "malformed \\P or \\p sequence"},
        {u"a\\", "\\ at end of pattern"},
        {u"a\xD800", "invalid UTF-16 string"},
    };
    for (auto const& row : rows)
        EXPECT_BX_THROW(
            Matches(row.first, u""), CBxException,
            "Invalid Regular Expression: " + ToUtf8(row.first) + " Error: '" + row.second + "' for 'n'");
}

wstring Repeated(std::u16string_view text, std::size_t count) {
    wstring all;
    while (count-- > 0) all += text;
    return all;
}

TEST(PatternFacet, LongValuesMatch) {
    ExpectRows({
        {u"\\c+", wstring(3'000'000, u'a')},
        {u"\\i\\c*", wstring(100'000, u'a')},
        {u"(\\i|\\c)*", wstring(50'000, u'a')},
        {u"([0-9A-Fa-f]{2})*", wstring(100'000, u'F')},
        {u"([+\\-]?\\d+(\\.\\d+)?)( [+\\-]?\\d+(\\.\\d+)?)*", u"1" + Repeated(u" -23.5", 20'000)},
        {u".*,.*", u"," + wstring(1'000'000, u'a')},  // comes back to each place
        {u"([\\x{90000}b]|a)*,[cd]?.*", wstring(200'000, u'a') + u","},
        {u"(a|b)*", wstring(200'000, u'a')},
    });
}

TEST(PatternFacet, HostileValuesDoNotMatch) {
    wstring const kLetters(100'000, u'a'), kDigits(100'000, u'1');
    ExpectRows({
        {u"(a|b)*", wstring(1'000'000, u'a'), false},  // too much memory
        {u"((a*)*)*b?c*b", kLetters, false},           // too many steps
        {u"(a|aa)+[bc]", wstring(60, u'a'), false},    //
        {u".*\\d+[%&]", kDigits, false},               // steps that look at all of the value
        {u"(.*)\\1[xy]", kLetters, false},             // the same where nothing tells of it
        {u"(\\d{50000}[%&]|.)*", kDigits, false}       //
    });
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
