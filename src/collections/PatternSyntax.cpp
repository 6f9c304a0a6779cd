#include "collections/PatternSyntax.h"

#include <algorithm>
#include <string_view>

namespace BxXmlLib5 {

namespace {

using namespace std::string_view_literals;

struct Rewriting {
    std::u16string_view search;
    std::u16string_view replacement;
};

constexpr auto kNameCharacter = uR"((\w|\.|-|:))"sv;

/// The multi-character escapes for names (XML Schema Part 2, F.1.1), which PCRE lacks or gives another
/// meaning. Each row is applied to the whole pattern before the next; the first and the last keep an escaped
/// backslash apart from the letter behind it.
// clang-format off
constexpr Rewriting kRewritings[] = {
    {uR"(\\)", u"\x01"},
    {uR"(\i)", uR"(([^\W\d]|:))"},
    {uR"(\I)", uR"(([\W\d]))"},
    {uR"(\c)", kNameCharacter},
    {uR"(\C)", uR"(([^\w\.\-\:]))"},
    {u"\x01",  uR"(\\)"},
};
// clang-format on

void Rewrite(wstring& pattern, Rewriting const& row) {
    for (std::size_t at = 0; (at = pattern.find(row.search, at)) != pattern.npos;
         at += row.replacement.size()) {
        pattern.replace(at, row.search.size(), row.replacement);
    }
}

/// Letters that an escape leaves what they are in the classic PCRE, and those that it does so in a class only.
/// PCRE2 refuses such escapes, unless it is told to take all malformed ones for letters, \p{Unknown} too.
constexpr auto kPlainLetters = u"FJMOTYjmqy"sv;
constexpr auto kPlainLettersOfClass = u"ABGKRXZkz"sv;

/// Escapes for sets of characters.
constexpr auto kSetLetters = u"dDwWsShHvVpP"sv;

constexpr auto kHexDigits = u"0123456789abcdefABCDEF"sv;

/// Escapes that something in braces may follow.
constexpr auto kBraceLetters = u"gkNopPx"sv;

bool Contains(std::u16string_view set, char16_t c) {
    return set.find(c) != set.npos;
}

/// Walks over a pattern and spells it for PCRE2.
class CSpeller {
public:
    explicit CSpeller(std::u16string_view pattern) : m_rest(pattern) {}

    wstring Spell() {
        m_out.reserve(m_rest.size() + 16);
        while (!m_rest.empty()) {
            if (m_rest.front() == u'\\') {
                TakeEscape();
            } else if (m_rest.front() == u'[') {
                TakeClass();
            } else if (m_rest.front() == u'{') {
                TakeBrace();
            } else if (m_rest.starts_with(u"(?#")) {
                TakeUntil(u")");
            } else if (m_rest.starts_with(kNameCharacter)) {
                TakeNameCharacter();
            } else {
                Take(1);
            }
        }
        return std::move(m_out);
    }

private:
    void Take(std::size_t count) {
        count = std::min(count, m_rest.size());
        m_out += m_rest.substr(0, count);
        m_rest.remove_prefix(count);
    }

    void TakeUntil(std::u16string_view end) {
        std::size_t const at = m_rest.find(end);
        Take(at == m_rest.npos ? at : at + end.size());
    }

    /// @return whether the escape stands for a set of characters
    bool TakeEscape(std::u16string_view plainLettersHere = {}) {
        char16_t const letter = m_rest.size() > 1 ? m_rest[1] : u'\0';
        if (letter == u'Q') {
            TakeUntil(u"\\E");
            return false;
        }
        if (Contains(kPlainLetters, letter) || Contains(plainLettersHere, letter)) {
            m_rest.remove_prefix(1);
            m_out += u"\\Q";  // apart from an escape by number before it
            Take(1);
            m_out += u"\\E";
            return false;
        }
        Take(2);
        // Without digits it is the number 0; later releases of PCRE2 refuse it.
        if (letter == u'x' && (m_rest.empty() || !(Contains(kHexDigits, m_rest[0]) || m_rest[0] == u'{'))) {
            m_out += u"00";
        }
        if (Contains(kBraceLetters, letter) && m_rest.starts_with(u'{')) {
            TakeUntil(u"}");
        } else if (letter == u'p' || letter == u'P') {
            Take(1);
        }
        return Contains(kSetLetters, letter);
    }

    /// A hyphen behind a set is one, and begins no range.
    void TakeClass() {
        Take(1);
        if (m_rest.starts_with(u'^')) Take(1);
        while (m_rest.starts_with(u"\\E")) Take(2);
        if (m_rest.starts_with(u']')) Take(1);
        while (!m_rest.empty() && m_rest.front() != u']') {
            bool isSet = false;
            if (m_rest.front() == u'\\') {
                isSet = TakeEscape(kPlainLettersOfClass);
            } else if (std::size_t const name = PosixName(); name > 0) {
                Take(name);
                isSet = true;
            } else {
                Take(1);
            }
            if (isSet && m_rest.size() > 1 && m_rest[0] == u'-' && m_rest[1] != u']') m_out += u'\\';
        }
        Take(1);
    }

    /// The size of a [:name:] that comes next; 0 if there is none.
    std::size_t PosixName() const {
        if (!m_rest.starts_with(u"[:")) return 0;
        std::size_t const end = m_rest.find_first_not_of(u"^abcdefghijklmnopqrstuvwxyz", 2);
        return end != m_rest.npos && m_rest.substr(end).starts_with(u":]") ? end + 2 : 0;
    }

    /// A brace that begins none of the classic PCRE's quantifiers stands for itself; later releases of PCRE2
    /// take more for quantifiers.
    void TakeBrace() {
        std::size_t const end = m_rest.find(u'}');
        auto const inside = m_rest.substr(1, end == m_rest.npos ? 0 : end - 1);
        std::size_t const comma = inside.find(u',');
        auto const isNumber = [](std::u16string_view text) {
            return text.find_first_not_of(u"0123456789") == text.npos;
        };
        bool const isQuantifier = !inside.empty() && comma != 0 && isNumber(inside.substr(0, comma)) &&
                                  (comma == inside.npos || isNumber(inside.substr(comma + 1)));
        if (!isQuantifier) m_out += u'\\';
        Take(1);
    }

    /// A repeated name character as a repeated class and one more character for the group to hold: the same
    /// matches, in the same order, without a place to come back to for each character.
    void TakeNameCharacter() {
        m_rest.remove_prefix(kNameCharacter.size());
        bool const isRepeated = m_rest.starts_with(u'*') || m_rest.starts_with(u'+');
        bool const isGreedy = m_rest.size() < 2 || !Contains(u"+?", m_rest[1]);
        if (!isRepeated || !isGreedy) {
            m_out += kNameCharacter;
            return;
        }
        m_out += uR"((?:[\w.\-:]*([\w.\-:])))";
        if (m_rest.front() == u'*') m_out += u'?';
        m_rest.remove_prefix(1);
    }

    std::u16string_view m_rest;
    wstring m_out;
};

}  // namespace

wstring TranslatePattern(wstring pattern) {
    for (Rewriting const& row : kRewritings) Rewrite(pattern, row);
    return CSpeller(pattern).Spell();
}

}  // namespace BxXmlLib5
