#include "document/CAttributeDefaults.h"

#include <algorithm>

#include "document/ExpatParser.h"

namespace BxXmlLib5 {

namespace {

constexpr std::u16string_view kStart = u"<!ATTLIST", kEnd = u">";

bool IsLiteral(std::u16string_view word) {
    return word.starts_with(u'\'') || word.starts_with(u'"');
}

/// Takes a name, a keyword, a list in brackets or a literal from the beginning of a declaration.
/// @return empty at the end
std::u16string_view TakeWord(std::u16string_view& rest) {
    constexpr std::u16string_view kSpace = u" \t\r\n";
    rest.remove_prefix(std::min(rest.find_first_not_of(kSpace), rest.size()));
    if (rest.empty()) return {};
    std::size_t end = rest.find_first_of(u" \t\r\n('\"");
    if (IsLiteral(rest)) end = rest.find(rest[0], 1) + 1;
    if (rest[0] == u'(') end = rest.find(u')') + 1;
    std::u16string_view const word = rest.substr(0, end);
    rest.remove_prefix(word.size());
    return word;
}

}  // namespace

void CAttributeDefaults::Add(std::u16string_view piece, CEntities& entities) {
    // A parameter entity that is not read may declare anything first.
    if (m_declaration.empty() && piece.starts_with(u'%') && piece.ends_with(u';')) m_isRestRead = false;
    if (!m_isRestRead || (m_declaration.empty() && piece != kStart)) return;
    if (piece != kEnd) {
        m_declaration += piece;
        return;
    }
    Declare(entities);
    m_declaration.clear();
}

/// As XML 1.0, 3.3, has it: of several declarations for one attribute the first one holds.
void CAttributeDefaults::Declare(CEntities& entities) {
    NormalizeLineEnds(m_declaration);
    std::u16string_view rest = m_declaration;
    rest.remove_prefix(kStart.size());
    Defaults& defaults = m_defaults[wstring(TakeWord(rest))];
    for (auto name = TakeWord(rest); !name.empty(); name = TakeWord(rest)) {
        std::u16string_view value;
        do {
            value = TakeWord(rest);
        } while (!value.empty() && !IsLiteral(value) && (value[0] != u'#' || value == u"#FIXED"));
        auto const [added, isFirst] = defaults.try_emplace(wstring(name));
        if (!isFirst || !IsLiteral(value)) continue;
        Default& known = added->second;
        entities.ForEachUndeclared(value, [&](std::u16string_view entity) {
            if (known.m_undeclared++ == 0) known.m_first = entity;
        });
        if (known.m_undeclared == 0) continue;
        known.m_literal = value;
        m_hasUndeclared = true;
    }
}

CAttributeDefaults::Defaults const* CAttributeDefaults::Of(std::u16string_view element) const {
    if (!m_hasUndeclared) return nullptr;
    auto const known = m_defaults.find(element);
    return known == m_defaults.end() ? nullptr : &known->second;
}

}  // namespace BxXmlLib5
