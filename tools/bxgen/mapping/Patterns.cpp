#include "mapping/Patterns.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <iterator>

#include "xml/XmlNames.h"

namespace BxGen {

namespace {

struct Block {
    std::string_view m_name;
    char32_t m_first;
    char32_t m_last;
    char32_t m_first2 = 1;  ///< of a second range, for those that have one
    char32_t m_last2 = 0;
};

/// XML Schema Part 2, appendix F.1.1, and the names that later versions of Unicode gave some.
constexpr Block kBlocks[] = {
    {"BasicLatin", 0x0000, 0x007F},
    {"Latin-1Supplement", 0x0080, 0x00FF},
    {"LatinExtended-A", 0x0100, 0x017F},
    {"LatinExtended-B", 0x0180, 0x024F},
    {"IPAExtensions", 0x0250, 0x02AF},
    {"SpacingModifierLetters", 0x02B0, 0x02FF},
    {"CombiningDiacriticalMarks", 0x0300, 0x036F},
    {"Greek", 0x0370, 0x03FF},
    {"GreekandCoptic", 0x0370, 0x03FF},
    {"Cyrillic", 0x0400, 0x04FF},
    {"Armenian", 0x0530, 0x058F},
    {"Hebrew", 0x0590, 0x05FF},
    {"Arabic", 0x0600, 0x06FF},
    {"Syriac", 0x0700, 0x074F},
    {"Thaana", 0x0780, 0x07BF},
    {"Devanagari", 0x0900, 0x097F},
    {"Bengali", 0x0980, 0x09FF},
    {"Gurmukhi", 0x0A00, 0x0A7F},
    {"Gujarati", 0x0A80, 0x0AFF},
    {"Oriya", 0x0B00, 0x0B7F},
    {"Tamil", 0x0B80, 0x0BFF},
    {"Telugu", 0x0C00, 0x0C7F},
    {"Kannada", 0x0C80, 0x0CFF},
    {"Malayalam", 0x0D00, 0x0D7F},
    {"Sinhala", 0x0D80, 0x0DFF},
    {"Thai", 0x0E00, 0x0E7F},
    {"Lao", 0x0E80, 0x0EFF},
    {"Tibetan", 0x0F00, 0x0FFF},
    {"Myanmar", 0x1000, 0x109F},
    {"Georgian", 0x10A0, 0x10FF},
    {"HangulJamo", 0x1100, 0x11FF},
    {"Ethiopic", 0x1200, 0x137F},
    {"Cherokee", 0x13A0, 0x13FF},
    {"UnifiedCanadianAboriginalSyllabics", 0x1400, 0x167F},
    {"Ogham", 0x1680, 0x169F},
    {"Runic", 0x16A0, 0x16FF},
    {"Khmer", 0x1780, 0x17FF},
    {"Mongolian", 0x1800, 0x18AF},
    {"LatinExtendedAdditional", 0x1E00, 0x1EFF},
    {"GreekExtended", 0x1F00, 0x1FFF},
    {"GeneralPunctuation", 0x2000, 0x206F},
    {"SuperscriptsandSubscripts", 0x2070, 0x209F},
    {"CurrencySymbols", 0x20A0, 0x20CF},
    {"CombiningMarksforSymbols", 0x20D0, 0x20FF},
    {"CombiningDiacriticalMarksforSymbols", 0x20D0, 0x20FF},
    {"LetterlikeSymbols", 0x2100, 0x214F},
    {"NumberForms", 0x2150, 0x218F},
    {"Arrows", 0x2190, 0x21FF},
    {"MathematicalOperators", 0x2200, 0x22FF},
    {"MiscellaneousTechnical", 0x2300, 0x23FF},
    {"ControlPictures", 0x2400, 0x243F},
    {"OpticalCharacterRecognition", 0x2440, 0x245F},
    {"EnclosedAlphanumerics", 0x2460, 0x24FF},
    {"BoxDrawing", 0x2500, 0x257F},
    {"BlockElements", 0x2580, 0x259F},
    {"GeometricShapes", 0x25A0, 0x25FF},
    {"MiscellaneousSymbols", 0x2600, 0x26FF},
    {"Dingbats", 0x2700, 0x27BF},
    {"BraillePatterns", 0x2800, 0x28FF},
    {"CJKRadicalsSupplement", 0x2E80, 0x2EFF},
    {"KangxiRadicals", 0x2F00, 0x2FDF},
    {"IdeographicDescriptionCharacters", 0x2FF0, 0x2FFF},
    {"CJKSymbolsandPunctuation", 0x3000, 0x303F},
    {"Hiragana", 0x3040, 0x309F},
    {"Katakana", 0x30A0, 0x30FF},
    {"Bopomofo", 0x3100, 0x312F},
    {"HangulCompatibilityJamo", 0x3130, 0x318F},
    {"Kanbun", 0x3190, 0x319F},
    {"BopomofoExtended", 0x31A0, 0x31BF},
    {"EnclosedCJKLettersandMonths", 0x3200, 0x32FF},
    {"CJKCompatibility", 0x3300, 0x33FF},
    {"CJKUnifiedIdeographsExtensionA", 0x3400, 0x4DB5},
    {"CJKUnifiedIdeographs", 0x4E00, 0x9FFF},
    {"YiSyllables", 0xA000, 0xA48F},
    {"YiRadicals", 0xA490, 0xA4CF},
    {"HangulSyllables", 0xAC00, 0xD7A3},
    {"PrivateUse", 0xE000, 0xF8FF, 0xF0000, 0x10FFFD},
    {"CJKCompatibilityIdeographs", 0xF900, 0xFAFF},
    {"AlphabeticPresentationForms", 0xFB00, 0xFB4F},
    {"ArabicPresentationForms-A", 0xFB50, 0xFDFF},
    {"CombiningHalfMarks", 0xFE20, 0xFE2F},
    {"CJKCompatibilityForms", 0xFE30, 0xFE4F},
    {"SmallFormVariants", 0xFE50, 0xFE6F},
    {"ArabicPresentationForms-B", 0xFE70, 0xFEFE},
    {"Specials", 0xFEFF, 0xFEFF, 0xFFF0, 0xFFFD},
    {"HalfwidthandFullwidthForms", 0xFF00, 0xFFEF},
    {"OldItalic", 0x10300, 0x1032F},
    {"Gothic", 0x10330, 0x1034F},
    {"Deseret", 0x10400, 0x1044F},
    {"ByzantineMusicalSymbols", 0x1D000, 0x1D0FF},
    {"MusicalSymbols", 0x1D100, 0x1D1FF},
    {"MathematicalAlphanumericSymbols", 0x1D400, 0x1D7FF},
    {"CJKUnifiedIdeographsExtensionB", 0x20000, 0x2A6D6},
    {"CJKCompatibilityIdeographsSupplement", 0x2F800, 0x2FA1F},
    {"Tags", 0xE0000, 0xE007F},
};

struct MultiCharacterEscape {
    char m_letter;
    std::string_view m_members;  ///< as they stand in a class of PCRE2
};

// Productions [4] and [4a] of XML 1.0, fifth edition.
#define BX_NAME_START                                                                                     \
    R"(\:A-Z_a-z\x{C0}-\x{D6}\x{D8}-\x{F6}\x{F8}-\x{2FF}\x{370}-\x{37D}\x{37F}-\x{1FFF}\x{200C}\x{200D})" \
    R"(\x{2070}-\x{218F}\x{2C00}-\x{2FEF}\x{3001}-\x{D7FF}\x{F900}-\x{FDCF}\x{FDF0}-\x{FFFD}\x{10000}-\x{EFFFF})"

/// Appendix F.1.1, with the characters of names as XML has them today.
constexpr MultiCharacterEscape kEscapes[] = {
    {'s', R"(\x20\t\n\r)"},
    {'i', BX_NAME_START},
    {'c', BX_NAME_START R"(\-.0-9\x{B7}\x{300}-\x{36F}\x{203F}\x{2040})"},
    {'d', R"(\p{Nd})"},
    {'w', R"(\p{L}\p{M}\p{N}\p{S})"},
};

#undef BX_NAME_START

constexpr std::uint64_t kMaxRepeats = 65535;  // of PCRE2

std::string Hexadecimal(char32_t c) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "\\x{%X}", static_cast<unsigned>(c));
    return buffer;
}

/// A class of characters: those that are members, and all that are not in one of the complements.
struct Members {
    std::string m_members;
    std::vector<std::string> m_complements;

    void Add(std::string_view members, bool isComplement) {
        if (isComplement) {
            m_complements.emplace_back(members);
        } else {
            m_members += members;
        }
    }

    /// Something that matches one character.
    std::string Text(bool isNegated) const {
        if (m_complements.empty()) return (isNegated ? "[^" : "[") + m_members + ']';
        if (m_members.empty() && m_complements.size() == 1)
            return (isNegated ? "[" : "[^") + m_complements[0] + ']';
        std::string branches = m_members.empty() ? "" : '[' + m_members + "]|";
        for (std::string const& complement : m_complements) branches += "[^" + complement + "]|";
        branches.pop_back();
        return isNegated ? "(?:(?!" + branches + ")(?s:.))" : "(?:" + branches + ')';
    }
};

class Translator {
public:
    explicit Translator(std::string_view pattern) : m_rest(pattern) {}

    std::string Translate() {
        while (!m_rest.empty()) TakeOne();
        return std::move(m_output);
    }

private:
    char Take() {
        char const c = m_rest.front();
        m_rest.remove_prefix(1);
        return c;
    }

    void TakeOne() {
        switch (char const c = Take()) {
            case '(':
                m_output += "(?:";
                break;
            case '.':
                m_output += "[^\\n\\r]";
                break;
            case '^':
            case '$':
                m_output += '\\';
                m_output += c;
                break;
            case '\\':
                m_output += Escape().Text(false);
                break;
            case '[':
                m_output += Class();
                break;
            case '{':
                Repeats();
                break;
            default:
                m_output += c;
        }
    }

    static std::uint64_t Number(std::string_view text) {
        std::uint64_t number = kMaxRepeats + 1;
        std::from_chars(text.data(), text.data() + text.size(), number);
        return number;
    }

    /// What PCRE2 does not count to is no bound.
    void Repeats() {
        std::size_t const end = m_rest.find('}');
        std::string_view const quantity = m_rest.substr(0, end);
        m_rest.remove_prefix(end + 1);
        std::size_t const comma = quantity.find(',');
        std::uint64_t const least = std::min(Number(quantity.substr(0, comma)), kMaxRepeats);
        m_output += '{' + std::to_string(least);
        if (comma != quantity.npos) {
            m_output += ',';
            std::string_view const most = quantity.substr(comma + 1);
            if (!most.empty() && Number(most) <= kMaxRepeats) m_output += most;
        }
        m_output += '}';
    }

    /// The characters of an escape, behind its backslash.
    Members Escape() {
        Members members;
        char const c = Take();
        if (c == 'p' || c == 'P') {
            std::size_t const end = m_rest.find('}');
            std::string_view const name = m_rest.substr(1, end - 1);
            m_rest.remove_prefix(end + 1);
            if (name.starts_with("Is")) {
                members.Add(BlockMembers(name.substr(2)), c == 'P');
            } else {
                members.Add(std::string("\\") + c + '{' + std::string(name) + '}', false);
            }
            return members;
        }
        char const small = static_cast<char>(c | 0x20);
        auto const* const escape = std::ranges::find(kEscapes, small, &MultiCharacterEscape::m_letter);
        if (escape != std::end(kEscapes)) {
            members.Add(escape->m_members, c != small);
        } else {
            members.Add(std::string("\\") + c, false);
        }
        return members;
    }

    static std::string BlockMembers(std::string_view name) {
        auto const* const block = std::ranges::find(kBlocks, name, &Block::m_name);
        if (block == std::end(kBlocks)) return "\\p{Cs}";  // a block of surrogates, which no text holds
        std::string members = Hexadecimal(block->m_first) + '-' + Hexadecimal(block->m_last);
        if (block->m_first2 <= block->m_last2)
            members += Hexadecimal(block->m_first2) + '-' + Hexadecimal(block->m_last2);
        return members;
    }

    /// A class, behind its bracket.
    std::string Class() {
        bool const isNegated = m_rest.starts_with('^');
        if (isNegated) Take();
        Members members;
        std::string subtracted;
        while (!m_rest.starts_with(']')) {
            if (m_rest.starts_with("-[")) {
                m_rest.remove_prefix(2);
                subtracted = Class();
                break;
            }
            TakeMember(members);
        }
        Take();
        std::string const text = members.Text(isNegated);
        return subtracted.empty() ? text : "(?:(?!" + subtracted + ')' + text + ')';
    }

    /// A character, a range or an escape. A hyphen that stands for itself is escaped, so that it divides nothing.
    void TakeMember(Members& members) {
        if (m_rest.starts_with('\\')) {
            Take();
            Members const escaped = Escape();
            members.m_members += escaped.m_members;
            for (std::string const& complement : escaped.m_complements) members.Add(complement, true);
            if (!escaped.m_members.starts_with('\\') || escaped.m_members.size() > 2) return;
        } else {
            members.m_members += Character();
        }
        bool const isRange = m_rest.size() > 1 && m_rest[0] == '-' && m_rest[1] != ']' && m_rest[1] != '[';
        if (!isRange) return;
        Take();
        members.m_members += '-';
        if (m_rest.starts_with('\\')) {
            Take();
            members.m_members += Escape().m_members;
        } else {
            members.m_members += Character();
        }
    }

    std::string Character() {
        std::string_view const rest = m_rest;
        TakeCharacter(m_rest);
        std::string const octets(rest.substr(0, rest.size() - m_rest.size()));
        bool const isSpecial =
            octets.size() == 1 && std::string_view("[]^-\\&~:").find(octets[0]) != std::string_view::npos;
        return isSpecial ? '\\' + octets : octets;
    }

    std::string_view m_rest;
    std::string m_output;
};

}  // namespace

std::string TranslatePatterns(std::vector<std::string_view> const& patterns) {
    if (patterns.size() == 1) return Translator(patterns[0]).Translate();
    std::string joined;
    for (std::string_view const pattern : patterns) {
        if (!joined.empty()) joined += '|';
        joined += "(?:" + Translator(pattern).Translate() + ')';
    }
    return joined;
}

}  // namespace BxGen
