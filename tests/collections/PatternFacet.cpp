#include "collections/PatternFacet.h"

#include <pthread.h>

#include "platform/Stack.h"
#include "support/Expect.h"

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
        {u"\\i\\i\\i\\i\\i\\i\\i\\i\\c\\c\\c\\c", u"abcdefghijkl", true},
    };
    for (auto const& row : kRows) {
        EXPECT_EQ(Matches(row.pattern, row.value), row.matches)
            << ToUtf8(row.pattern) << " for " << ToUtf8(row.value);
    }
}

TEST(PatternFacet, RefusesWhatIsNoRegularExpression) {
    struct {
        wstring pattern;
        std::string error;
    } const kRows[] = {
        {u"(", "missing )"},
        {u"[\\i-[:]][\\c-[:]]*", "unmatched parentheses"},  // subtraction of classes
        {u"a\xD800", "invalid UTF-16 string"},
    };
    for (auto const& row : kRows) {
        EXPECT_BX_THROW(
            Matches(row.pattern, u""), CBxException,
            "Invalid Regular Expression: " + ToUtf8(row.pattern) + " Error: '" + row.error + "' for 'n'");
    }
}

TEST(PatternFacet, HostileValuesDoNotMatch) {
    wstring const kLetters(100'000, u'a'), kDigits(100'000, u'1'), kFew(60, u'a');
    struct {
        wstring pattern;
        wstring const& value;
    } const kRows[] = {
        {u"(a|b)*", kLetters},   {u"((a*)*)*b", kLetters},  {u"(a|aa)+b", kFew},
        {u".*.*\\d+%", kDigits}, {u"(a(?1)?)+b", kLetters}, {u"(\\c|\\i)+b", kLetters},
    };
    for (auto const& row : kRows) EXPECT_FALSE(Matches(row.pattern, row.value)) << ToUtf8(row.pattern);
}

TEST(PatternFacet, LongValuesMatchWithinTheLimits) {
    EXPECT_TRUE(Matches(u"[a-z]*", wstring(1'000'000, u'a')));
    EXPECT_TRUE(Matches(u"(a|b)*", wstring(3'000, u'a')));
}

/// Runs a test in a thread with a stack of this size.
void OnStack(std::size_t size, void (*test)()) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, size), 0);
    pthread_t thread;
    auto const run = [](void* function) -> void* {
        reinterpret_cast<void (*)()>(function)();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, reinterpret_cast<void*>(test)), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

TEST(PatternFacet, ASmallStackIsNotOverrun) {
    OnStack(512 * 1024, [] {
        EXPECT_LT(StackLeft().value(), 512u * 1024);
        EXPECT_FALSE(Matches(u"(a|b)*", wstring(100'000, u'a')));
        EXPECT_TRUE(Matches(u"(a|b)*", wstring(100, u'a')));
    });
}

}  // namespace
