#include "Prefixes.h"

#include <algorithm>
#include <string>

#include "platform/StandardNamespaces.h"

namespace BxConvert {

using namespace BxXmlLib5;

void Prefixes::Declare(std::u16string_view prefix, std::u16string_view namespaceUri) {
    m_pending.push_back({prefix, namespaceUri});
}

void Prefixes::Start(DocumentElement const& element) {
    ++m_depth;
    m_declarations.clear();
    for (Declaration const& declaration : m_pending) {
        if (!IsDeclaredHere(declaration.m_prefix)) Bind(declaration.m_prefix, declaration.m_namespace);
    }
    m_pending.clear();
    m_ofElement = Find(element.m_prefix, element.m_name.m_namespaceUri, false);
    m_ofAttributes.clear();
    for (DocumentAttribute const& attribute : element.m_attributes) {
        m_ofAttributes.push_back(Find(attribute.m_prefix, attribute.m_name->m_namespaceUri, true));
    }
}

void Prefixes::End() {
    while (!m_bindings.empty() && m_bindings.back().m_depth == m_depth) m_bindings.pop_back();
    --m_depth;
}

std::u16string_view Prefixes::NamespaceOf(std::u16string_view prefix) const {
    auto const binding = std::find_if(m_bindings.rbegin(), m_bindings.rend(), [prefix](Binding const& known) {
        return known.m_declaration.m_prefix == prefix;
    });
    return binding == m_bindings.rend() ? std::u16string_view() : binding->m_declaration.m_namespace;
}

std::u16string_view Prefixes::Find(std::u16string_view prefix, wstring const& namespaceUri,
                                   bool isAttribute) {
    if (namespaceUri.empty() && (isAttribute || NamespaceOf({}).empty())) return {};
    if (namespaceUri == kXmlNamespace) return u"xml";
    bool const mayBeEmpty = !isAttribute;
    if ((mayBeEmpty || !prefix.empty()) && NamespaceOf(prefix) == namespaceUri) return prefix;
    for (Binding const& binding : m_bindings) {
        auto const& [known, ns] = binding.m_declaration;
        if (ns == namespaceUri && NamespaceOf(known) == ns && (mayBeEmpty || !known.empty())) return known;
    }
    if (namespaceUri.empty()) {
        prefix = {};
        std::erase_if(m_declarations,
                      [](Declaration const& declaration) { return declaration.m_prefix.empty(); });
    } else {
        bool const isUseless = prefix.empty() && isAttribute;
        for (std::size_t at = 0; (at == 0 && isUseless) || IsDeclaredHere(prefix); ++at) {
            if (at == m_made.size()) m_made.push_back(u"ns" + FromUtf8(std::to_string(at + 1)));
            prefix = m_made[at];
        }
    }
    Bind(prefix, namespaceUri);
    return prefix;
}

bool Prefixes::IsDeclaredHere(std::u16string_view prefix) const {
    return std::ranges::find(m_declarations, prefix, &Declaration::m_prefix) != m_declarations.end();
}

void Prefixes::Bind(std::u16string_view prefix, std::u16string_view namespaceUri) {
    m_declarations.push_back({prefix, namespaceUri});
    m_bindings.push_back({m_declarations.back(), m_depth});
}

}  // namespace BxConvert
