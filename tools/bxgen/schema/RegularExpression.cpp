#include "schema/RegularExpression.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

#include "xml/XmlNames.h"

namespace BxGen {

namespace {

constexpr int kMaxDepth = 256;

constexpr std::string_view kCategories[] = {
    "L",  "Lu", "Ll", "Lt", "Lm", "Lo", "M",  "Mn", "Mc", "Me", "N",  "Nd",
    "Nl", "No", "P",  "Pc", "Pd", "Ps", "Pe", "Pi", "Pf", "Po", "Z",  "Zs",
    "Zl", "Zp", "S",  "Sm", "Sc", "Sk", "So", "C",  "Cc", "Cf", "Co", "Cn",
};

/// The blocks of Part 2, appendix F.1.1, with the names that later versions of Unicode gave some of them.
constexpr std::string_view kBlocks[] = {
    "BasicLatin",
    "Latin-1Supplement",
    "LatinExtended-A",
    "LatinExtended-B",
    "IPAExtensions",
    "SpacingModifierLetters",
    "CombiningDiacriticalMarks",
    "Greek",
    "GreekandCoptic",
    "Cyrillic",
    "Armenian",
    "Hebrew",
    "Arabic",
    "Syriac",
    "Thaana",
    "Devanagari",
    "Bengali",
    "Gurmukhi",
    "Gujarati",
    "Oriya",
    "Tamil",
    "Telugu",
    "Kannada",
    "Malayalam",
    "Sinhala",
    "Thai",
    "Lao",
    "Tibetan",
    "Myanmar",
    "Georgian",
    "HangulJamo",
    "Ethiopic",
    "Cherokee",
    "UnifiedCanadianAboriginalSyllabics",
    "Ogham",
    "Runic",
    "Khmer",
    "Mongolian",
    "LatinExtendedAdditional",
    "GreekExtended",
    "GeneralPunctuation",
    "SuperscriptsandSubscripts",
    "CurrencySymbols",
    "CombiningMarksforSymbols",
    "CombiningDiacriticalMarksforSymbols",
    "LetterlikeSymbols",
    "NumberForms",
    "Arrows",
    "MathematicalOperators",
    "MiscellaneousTechnical",
    "ControlPictures",
    "OpticalCharacterRecognition",
    "EnclosedAlphanumerics",
    "BoxDrawing",
    "BlockElements",
    "GeometricShapes",
    "MiscellaneousSymbols",
    "Dingbats",
    "BraillePatterns",
    "CJKRadicalsSupplement",
    "KangxiRadicals",
    "IdeographicDescriptionCharacters",
    "CJKSymbolsandPunctuation",
    "Hiragana",
    "Katakana",
    "Bopomofo",
    "HangulCompatibilityJamo",
    "Kanbun",
    "BopomofoExtended",
    "EnclosedCJKLettersandMonths",
    "CJKCompatibility",
    "CJKUnifiedIdeographsExtensionA",
    "CJKUnifiedIdeographs",
    "YiSyllables",
    "YiRadicals",
    "HangulSyllables",
    "HighSurrogates",
    "HighPrivateUseSurrogates",
    "LowSurrogates",
    "PrivateUse",
    "PrivateUseArea",
    "CJKCompatibilityIdeographs",
    "AlphabeticPresentationForms",
    "ArabicPresentationForms-A",
    "CombiningHalfMarks",
    "CJKCompatibilityForms",
    "SmallFormVariants",
    "ArabicPresentationForms-B",
    "Specials",
    "HalfwidthandFullwidthForms",
    "OldItalic",
    "Gothic",
    "Deseret",
    "ByzantineMusicalSymbols",
    "MusicalSymbols",
    "MathematicalAlphanumericSymbols",
    "CJKUnifiedIdeographsExtensionB",
    "CJKCompatibilityIdeographsSupplement",
    "Tags",
    "SupplementaryPrivateUseArea-A",
    "SupplementaryPrivateUseArea-B",
};

template <std::size_t size>
bool Holds(std::string_view const (&names)[size], std::string_view name) {
    return std::ranges::find(names, name) != std::end(names);
}

/// Walks the productions of the appendix. Each returns false once something is wrong, which m_wrong tells.
class PatternChecker {
public:
    explicit PatternChecker(std::string_view pattern) : m_rest(pattern) {}

    std::optional<std::string> Check() {
        if (Expression(0) && !m_rest.empty()) Wrong("a closing parenthesis without an opening one");
        return m_wrong;
    }

private:
    bool Wrong(std::string text) {
        if (!m_wrong) m_wrong = std::move(text);
        return false;
    }

    bool Take(char c) {
        if (!m_rest.starts_with(c)) return false;
        m_rest.remove_prefix(1);
        return true;
    }

    char Next() const { return m_rest.empty() ? '\0' : m_rest.front(); }

    /// regExp ::= branch ( '|' branch )*, as far as the end or a closing parenthesis
    bool Expression(int depth) {
        if (depth > kMaxDepth) return Wrong("more than 256 groups within each other");
        while (!m_rest.empty() && Next() != ')') {
            if (!Take('|') && !(Atom(depth) && Quantifier())) return false;
        }
        return true;
    }

    bool Atom(int depth) {
        if (Take('(')) {
            if (!Expression(depth + 1)) return false;
            return Take(')') || Wrong("a group that is not closed");
        }
        if (Take('[')) return ClassExpression(depth);
        if (Take('\\')) return Escape().has_value();
        if (std::string_view("?*+{}]").find(Next()) != std::string_view::npos) {
            return Wrong(std::string("'") + Next() + "' where something must be repeated or matched");
        }
        TakeCharacter(m_rest);
        return true;
    }

    bool Quantifier() {
        if (Take('?') || Take('*') || Take('+') || !Take('{')) return true;
        std::size_t const end = m_rest.find('}');
        if (end == m_rest.npos) return Wrong("a '{' that is not closed");
        std::string_view const quantity = m_rest.substr(0, end);
        m_rest.remove_prefix(end + 1);
        std::size_t const comma = quantity.find(',');
        std::string_view const least = quantity.substr(0, comma);
        std::string_view const most = comma == quantity.npos ? least : quantity.substr(comma + 1);
        bool const isOpen = comma != quantity.npos && most.empty();
        if (!IsNumber(least) || (!isOpen && !IsNumber(most))) return Wrong("a quantity that is no number");
        return isOpen || !IsLess(most, least) || Wrong("a quantity whose end is below its start");
    }

    static bool IsNumber(std::string_view text) {
        return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
    }

    static bool IsLess(std::string_view left, std::string_view right) {
        left.remove_prefix(std::min(left.find_first_not_of('0'), left.size()));
        right.remove_prefix(std::min(right.find_first_not_of('0'), right.size()));
        return left.size() != right.size() ? left.size() < right.size() : left < right;
    }

    /// What stands between brackets, the opening one taken.
    bool ClassExpression(int depth) {
        if (depth > kMaxDepth) return Wrong("more than 256 groups within each other");
        Take('^');
        bool isFirst = true;
        while (!Take(']')) {
            if (m_rest.empty()) return Wrong("a character class that is not closed");
            if (!isFirst && m_rest.starts_with("-[")) {
                m_rest.remove_prefix(2);
                if (!ClassExpression(depth + 1)) return false;
                return Take(']') || Wrong("something behind the subtraction in a character class");
            }
            if (!ClassItem(isFirst)) return false;
            isFirst = false;
        }
        return !isFirst || Wrong("an empty character class");
    }

    /// A range, a character, or an escape for several.
    bool ClassItem(bool isFirst) {
        bool const startsWithHyphen = Next() == '-';
        auto const start = ClassCharacter();
        if (!start) return false;
        bool const isRange =
            m_rest.starts_with('-') && !m_rest.starts_with("-]") && !m_rest.starts_with("-[");
        // A hyphen stands for itself at either end alone.
        if (startsWithHyphen && !isFirst && Next() != ']') {
            return m_rest.starts_with("-[") || Wrong("a hyphen within a character class");
        }
        if (!isRange) return true;
        if (startsWithHyphen && !isFirst) return Wrong("a range that begins with a hyphen");
        Take('-');
        if (*start == kSeveral) return Wrong("a range that begins with an escape for several characters");
        auto const end = ClassCharacter();
        if (!end) return false;
        if (*end == kSeveral) return Wrong("a range that ends with an escape for several characters");
        return *start <= *end || Wrong("a range whose end is below its start");
    }

    /// A character of a class, kSeveral for an escape that stands for several.
    std::optional<char32_t> ClassCharacter() {
        if (Take('\\')) return Escape();
        if (Next() == '[') {
            Wrong("a '[' within a character class");
            return std::nullopt;
        }
        return TakeCharacter(m_rest);
    }

    /// What stands behind a backslash.
    std::optional<char32_t> Escape() {
        constexpr std::string_view kSingle = "\\|.-^?*+{}()[]";
        char const c = Next();
        if (m_rest.empty()) {
            Wrong("a backslash at the end");
            return std::nullopt;
        }
        m_rest.remove_prefix(1);
        if (kSingle.find(c) != kSingle.npos) return static_cast<char32_t>(c);
        if (c == 'n') return U'\n';
        if (c == 'r') return U'\r';
        if (c == 't') return U'\t';
        if (std::string_view("sSiIcCdDwW").find(c) != std::string_view::npos) return kSeveral;
        if ((c == 'p' || c == 'P') && Property()) return kSeveral;
        Wrong(std::string("the escape '\\") + c + "', which there is not");
        return std::nullopt;
    }

    bool Property() {
        if (!Take('{')) return Wrong("a '\\p' without '{'");
        std::size_t const end = m_rest.find('}');
        if (end == m_rest.npos) return Wrong("a '{' that is not closed");
        std::string_view const name = m_rest.substr(0, end);
        m_rest.remove_prefix(end + 1);
        bool const isThere =
            name.starts_with("Is") ? Holds(kBlocks, name.substr(2)) : Holds(kCategories, name);
        return isThere ||
               Wrong("the category or block '" + std::string(name.substr(0, 40)) + "', which there is not");
    }

    static constexpr char32_t kSeveral = 0xFFFFFFFE;

    std::string_view m_rest;
    std::optional<std::string> m_wrong;
};

}  // namespace

std::optional<std::string> WhatIsWrongWithPattern(std::string_view pattern) {
    return PatternChecker(pattern).Check();
}

}  // namespace BxGen
