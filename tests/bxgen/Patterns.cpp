// Patterns of XML Schema, translated, against a matcher that follows the standard (Part 2, appendix F).

#include "mapping/Patterns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "BxXmlLib5/BxXmlLib5.h"
#include "schema/RegularExpression.h"

namespace BxGen {
namespace {

/// A character and what the standards say of it.
struct Letter {
    char32_t m_character;
    std::string m_text;     ///< in UTF-8
    std::string m_pattern;  ///< as it stands in a pattern
    std::string m_category;
    bool m_isNameStart;
    bool m_isNameCharacter;
    std::string m_block;
};

Letter const kLetters[] = {
    {U'\n', "\n", "\\n", "Cc", false, false, "BasicLatin"},
    {U' ', " ", " ", "Zs", false, false, "BasicLatin"},
    {U'$', "$", "$", "Sc", false, false, "BasicLatin"},
    {U'-', "-", "\\-", "Pd", false, true, "BasicLatin"},
    {U'.', ".", "\\.", "Po", false, true, "BasicLatin"},
    {U'3', "3", "3", "Nd", false, true, "BasicLatin"},
    {U':', ":", ":", "Po", true, true, "BasicLatin"},
    {U'B', "B", "B", "Lu", true, true, "BasicLatin"},
    {U'^', "^", "\\^", "Sk", false, false, "BasicLatin"},
    {U'_', "_", "_", "Pc", true, true, "BasicLatin"},
    {U'a', "a", "a", "Ll", true, true, "BasicLatin"},
    {U'\u00B7', "\u00B7", "\u00B7", "Po", false, true, "Latin-1Supplement"},
    {U'\u00D7', "\u00D7", "\u00D7", "Sm", false, false, "Latin-1Supplement"},
    {U'\u00E9', "\u00E9", "\u00E9", "Ll", true, true, "Latin-1Supplement"},
    {U'\u0300', "\u0300", "\u0300", "Mn", false, true, "CombiningDiacriticalMarks"},
    {U'\u03A9', "\u03A9", "\u03A9", "Lu", true, true, "Greek"},
    {U'\u0663', "\u0663", "\u0663", "Nd", true, true, "Arabic"},
    {U'\u20AC', "\u20AC", "\u20AC", "Sc", true, true, "CurrencySymbols"},
    {U'\U00010330', "\U00010330", "\U00010330", "Lo", true, true, "Gothic"},
};

using Predicate = std::function<bool(Letter const&)>;

/// Characters, as a pattern writes them and as a predicate.
struct Set {
    std::string m_pattern;
    Predicate m_holds;
};

/// A part of a pattern, and where it can end in a text if it starts at a place.
struct Part {
    using Text = std::vector<Letter const*>;
    std::string m_pattern;
    std::function<std::set<std::size_t>(Text const&, std::size_t)> m_ends;
};

class Maker {
public:
    explicit Maker(unsigned seed) : m_random(seed) {}

    std::size_t Below(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }
    Letter const& AnyLetter() { return kLetters[Below(std::size(kLetters))]; }

    Set Escape() {
        static Set const s_sets[] = {
            {"s", [](Letter const& l) { return l.m_character == U' ' || l.m_character == U'\n'; }},
            {"i", [](Letter const& l) { return l.m_isNameStart; }},
            {"c", [](Letter const& l) { return l.m_isNameCharacter; }},
            {"d", [](Letter const& l) { return l.m_category == "Nd"; }},
            {"w",
             [](Letter const& l) { return std::string("PZC").find(l.m_category[0]) == std::string::npos; }},
        };
        bool const isNegated = Below(3) == 0;
        if (Below(2) == 0) {
            Set set = s_sets[Below(std::size(s_sets))];
            if (isNegated) set.m_pattern[0] = static_cast<char>(set.m_pattern[0] - 0x20);
            return {'\\' + set.m_pattern, [=](Letter const& l) { return set.m_holds(l) != isNegated; }};
        }
        std::string name = AnyLetter().m_category;
        if (Below(2) == 0) name.pop_back();
        Predicate holds = [name](Letter const& l) { return l.m_category.starts_with(name); };
        if (Below(3) == 0) {
            std::string const block = AnyLetter().m_block;
            name = "Is" + block;
            holds = [block](Letter const& l) { return l.m_block == block; };
        }
        return {(isNegated ? "\\P{" : "\\p{") + name + '}',
                [=](Letter const& l) { return holds(l) != isNegated; }};
    }

    Set Member() {
        if (Below(3) == 0) return Escape();
        std::size_t first = Below(std::size(kLetters));
        std::size_t last = Below(std::size(kLetters));
        if (first > last) std::swap(first, last);
        bool const isRange = Below(3) == 0;
        if (!isRange) last = first;
        char32_t const from = kLetters[first].m_character;
        char32_t const to = kLetters[last].m_character;
        return {kLetters[first].m_pattern + (isRange ? '-' + kLetters[last].m_pattern : ""),
                [=](Letter const& l) { return l.m_character >= from && l.m_character <= to; }};
    }

    Set Class(int depth) {
        bool const isNegated = Below(3) == 0;
        std::string pattern = isNegated ? "[^" : "[";
        std::vector<Predicate> members;
        for (std::size_t count = 1 + Below(3); count > 0; --count) {
            Set const member = Member();
            pattern += member.m_pattern;
            members.push_back(member.m_holds);
        }
        Predicate subtracted = [](Letter const&) { return false; };
        if (depth > 0 && Below(3) == 0) {
            Set const less = Class(depth - 1);
            pattern += '-' + less.m_pattern;
            subtracted = less.m_holds;
        }
        return {pattern + ']', [=](Letter const& l) {
                    bool const isMember =
                        std::ranges::any_of(members, [&](auto const& holds) { return holds(l); });
                    return isMember != isNegated && !subtracted(l);
                }};
    }

    Part Atom(int depth) {
        if (depth > 0 && Below(4) == 0) {
            Part const inner = Branches(depth - 1);
            return {'(' + inner.m_pattern + ')', inner.m_ends};
        }
        Set set;
        switch (Below(4)) {
            case 0: {
                Letter const& letter = AnyLetter();
                set = {letter.m_pattern, [&letter](Letter const& l) { return &l == &letter; }};
                break;
            }
            case 1:
                set = Escape();
                break;
            case 2:
                set = {".", [](Letter const& l) { return l.m_character != U'\n'; }};
                break;
            default:
                set = Class(2);
        }
        return {set.m_pattern, [set](Part::Text const& text, std::size_t at) -> std::set<std::size_t> {
                    if (at < text.size() && set.m_holds(*text[at])) return {at + 1};
                    return {};
                }};
    }

    Part Piece(int depth) {
        struct Quantity {
            char const* m_text;
            std::size_t m_least;
            std::size_t m_most;
        };
        constexpr Quantity kQuantities[] = {{"", 1, 1},      {"", 1, 1},      {"?", 0, 1},
                                            {"*", 0, 99},    {"+", 1, 99},    {"{2}", 2, 2},
                                            {"{1,2}", 1, 2}, {"{2,}", 2, 99}, {"{0,1}", 0, 1}};
        Part const atom = Atom(depth);
        Quantity const quantity = kQuantities[Below(std::size(kQuantities))];
        return {atom.m_pattern + quantity.m_text, [=](Part::Text const& text, std::size_t at) {
                    std::set<std::size_t> ends;
                    std::set<std::size_t> here{at};
                    // No more rounds than there are characters tell anything new.
                    for (std::size_t i = 0; i <= std::min(quantity.m_most, text.size() + 2); ++i) {
                        if (i >= quantity.m_least) ends.insert(here.begin(), here.end());
                        std::set<std::size_t> next;
                        for (std::size_t const place : here) next.merge(atom.m_ends(text, place));
                        here = next;
                    }
                    return ends;
                }};
    }

    Part Branches(int depth) {
        Part whole{"", [](auto const&, std::size_t) { return std::set<std::size_t>(); }};
        for (std::size_t branch = 0, count = 1 + Below(2); branch < count; ++branch) {
            Part sequence{"", [](auto const&, std::size_t at) { return std::set<std::size_t>{at}; }};
            for (std::size_t pieces = Below(4); pieces > 0; --pieces) {
                Part const piece = Piece(depth);
                sequence = {
                    sequence.m_pattern + piece.m_pattern,
                    [before = sequence.m_ends, ends = piece.m_ends](Part::Text const& text, std::size_t at) {
                        std::set<std::size_t> result;
                        for (std::size_t const place : before(text, at)) result.merge(ends(text, place));
                        return result;
                    }};
            }
            whole = {whole.m_pattern + (branch > 0 ? "|" : "") + sequence.m_pattern,
                     [before = whole.m_ends, ends = sequence.m_ends](Part::Text const& text, std::size_t at) {
                         std::set<std::size_t> result = before(text, at);
                         result.merge(ends(text, at));
                         return result;
                     }};
        }
        return whole;
    }

private:
    std::mt19937 m_random;
};

TEST(Patterns, MeanTheSameTranslated) {
    Maker maker(7);
    int matches = 0;
    for (int i = 0; i < 3000; ++i) {
        std::vector<Part> steps;
        std::vector<std::string_view> patterns;
        for (std::size_t count = 1 + maker.Below(2); count > 0; --count) steps.push_back(maker.Branches(2));
        for (Part const& step : steps) {
            ASSERT_EQ(WhatIsWrongWithPattern(step.m_pattern), std::nullopt) << step.m_pattern;
            patterns.push_back(step.m_pattern);
        }
        std::string const translated = TranslatePatterns(patterns);
        BxXmlLib5::CCompiledPattern const compiled(BxXmlLib5::FromUtf8("(?:" + translated + ")\\z"), u"",
                                                   u"");
        for (int j = 0; j < 20; ++j) {
            Part::Text text;
            std::string octets;
            for (std::size_t length = maker.Below(5); length > 0; --length) {
                text.push_back(&maker.AnyLetter());
                octets += text.back()->m_text;
            }
            bool const matchesOne = std::ranges::any_of(
                steps, [&](Part const& step) { return step.m_ends(text, 0).contains(text.size()); });
            matches += matchesOne ? 1 : 0;
            ASSERT_EQ(compiled.MatchesWhole(BxXmlLib5::FromUtf8(octets)), matchesOne)
                << patterns[0] << '\n'
                << translated << "\n[" << octets << ']';
        }
    }
    EXPECT_GT(matches, 5000);
}

}  // namespace
}  // namespace BxGen
