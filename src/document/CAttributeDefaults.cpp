#include "document/CAttributeDefaults.h"

#include <algorithm>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"
#include "document/ExpatParser.h"
#include "platform/XmlCharacters.h"

namespace BxXmlLib5 {

namespace {

constexpr std::u16string_view kStart = u"<!ATTLIST", kEnd = u">", kFixed = u"#FIXED";

bool IsLiteral(std::u16string_view word) {
    return word.starts_with(u'\'') || word.starts_with(u'"');
}

void ThrowIfTooMany(std::size_t attributes) {
    if (attributes <= kMaxDeclaredAttributes) return;
    throw CBxException(
        FormatString(u"The document type declares more than %d attributes of one element, which is the limit",
                     static_cast<int>(kMaxDeclaredAttributes)));
}

/// Takes a name, a keyword, a list in brackets or a literal from the beginning of a declaration.
/// @return empty at the end
std::u16string_view TakeWord(std::u16string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kXmlSpace), rest.size()));
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
    if (m_declaration.empty() && piece.starts_with(u'%') && piece.ends_with(u';')) ReadNoValues();
    if (m_declaration.empty() && piece != kStart) return;
    if (piece != kEnd || m_openQuote != 0) {
        CountAttribute(piece);
        m_declaration += piece;
        return;
    }
    Declare(entities);
    m_declaration.clear();
    m_attributes = 0;
}

/// If it ends in this piece, with a literal or a keyword. Other attributes may share a declaration with it, and what
/// Expat does for each of them takes the longer the more there are.
void CAttributeDefaults::CountAttribute(std::u16string_view piece) {
    bool const begins = m_openQuote == 0 && IsLiteral(piece);
    char16_t const quote = begins ? piece[0] : m_openQuote;
    if (quote == 0) {
        if (!piece.starts_with(u'#') || piece == kFixed) return;
    } else {
        bool const ends = piece.ends_with(quote) && !(begins && piece.size() == 1);
        m_openQuote = ends ? u'\0' : quote;
        if (!ends) return;
    }
    ThrowIfTooMany(++m_attributes);
}

/// As XML 1.0, 3.3, has it: of several declarations for one attribute the first one holds.
void CAttributeDefaults::Declare(CEntities& entities) {
    NormalizeLineEnds(m_declaration);
    std::u16string_view rest = m_declaration;
    rest.remove_prefix(kStart.size());
    auto& [defaults, attributes] = m_elements[wstring(TakeWord(rest))];
    ThrowIfTooMany(attributes += m_attributes);
    if (!m_areValuesRead) return;
    for (auto name = TakeWord(rest); !name.empty(); name = TakeWord(rest)) {
        std::u16string_view value;
        do {
            value = TakeWord(rest);
        } while (!value.empty() && !IsLiteral(value) && (value[0] != u'#' || value == kFixed));
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
    auto const known = m_elements.find(element);
    return known == m_elements.end() ? nullptr : &known->second.m_defaults;
}

}  // namespace BxXmlLib5
