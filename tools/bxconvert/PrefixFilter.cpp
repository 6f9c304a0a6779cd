#include "PrefixFilter.h"

#include <algorithm>
#include <string>

#include "platform/StandardNamespaces.h"
#include "platform/TextView.h"

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

/// Namespaces in XML 1.0, 3: no document may bind these to anything else.
bool IsReserved(std::u16string_view prefix) {
    return prefix == u"xml" || prefix == u"xmlns";
}

}  // namespace

PrefixFilter::PrefixFilter(CDocumentReceiver& receiver, CNameTable& names)
    : m_receiver(receiver), m_names(names), m_xmlNamespace(&names.InternText(kXmlNamespace)) {}

void PrefixFilter::StartElement(DocumentElement const& element) {
    ++m_depth;
    m_declarations.clear();
    for (Declaration const& declaration : m_pending) {
        if (IsDeclarable(declaration) && !IsDeclaredHere(*declaration.m_prefix)) Bind(declaration);
    }
    m_pending.clear();
    std::u16string_view const prefix = Find(element.m_prefix, element.m_name.m_namespaceUri, false);
    m_attributes.assign(element.m_attributes.begin(), element.m_attributes.end());
    for (DocumentAttribute& attribute : m_attributes) {
        attribute.m_prefix = Find(attribute.m_prefix, attribute.m_name->m_namespaceUri, true);
    }
    for (auto const& [declared, namespaceUri] : m_declarations)
        m_receiver.DeclareNamespace(*declared, *namespaceUri);
    m_receiver.StartElement({element.m_name, prefix, m_attributes, element.m_line});
}

void PrefixFilter::EndElement() {
    while (!m_bindings.empty() && m_bindings.back().m_depth == m_depth) m_bindings.pop_back();
    --m_depth;
    m_receiver.EndElement();
}

/// Whether XML text can declare that; what is bound to the prefix xml need not be declared.
bool PrefixFilter::IsDeclarable(Declaration const& declaration) const {
    auto const [prefix, namespaceUri] = declaration;
    bool const undeclaresPrefix = !prefix->empty() && namespaceUri->empty();
    return !IsReserved(*prefix) && !undeclaresPrefix && namespaceUri != m_xmlNamespace;
}

/// Null if the prefix is not declared.
wstring const* PrefixFilter::NamespaceOf(std::u16string_view prefix) const {
    auto const binding = std::find_if(m_bindings.rbegin(), m_bindings.rend(), [prefix](Binding const& known) {
        return Equal(*known.m_declaration.m_prefix, prefix);
    });
    return binding == m_bindings.rend() ? nullptr : binding->m_declaration.m_namespace;
}

/// Namespaces of one table are equal if they are the same object.
std::u16string_view PrefixFilter::Find(std::u16string_view prefix, wstring const& namespaceUri,
                                       bool isAttribute) {
    if (namespaceUri.empty()) {
        wstring const* const defaultNamespace = isAttribute ? nullptr : NamespaceOf({});
        if (defaultNamespace == nullptr || defaultNamespace->empty()) return {};
    }
    if (&namespaceUri == m_xmlNamespace) return u"xml";
    bool const mayBeEmpty = !isAttribute;
    if ((mayBeEmpty || !prefix.empty()) && NamespaceOf(prefix) == &namespaceUri) return prefix;
    for (Binding const& binding : m_bindings) {
        auto const [known, ns] = binding.m_declaration;
        if (ns == &namespaceUri && NamespaceOf(*known) == ns && (mayBeEmpty || !known->empty()))
            return *known;
    }
    wstring made;
    if (namespaceUri.empty()) {
        prefix = {};
        std::erase_if(m_declarations,
                      [](Declaration const& declaration) { return declaration.m_prefix->empty(); });
    } else {
        bool const isUseless = IsReserved(prefix) || (prefix.empty() && isAttribute);
        for (std::size_t at = 1; (at == 1 && isUseless) || IsDeclaredHere(prefix); ++at) {
            made = u"ns" + FromUtf8(std::to_string(at));
            prefix = made;
        }
    }
    wstring const& bound = m_names.InternText(prefix);
    Bind({&bound, &namespaceUri});
    return bound;
}

bool PrefixFilter::IsDeclaredHere(std::u16string_view prefix) const {
    return std::ranges::any_of(
        m_declarations, [prefix](Declaration const& declaration) { return *declaration.m_prefix == prefix; });
}

void PrefixFilter::Bind(Declaration const& declaration) {
    m_declarations.push_back(declaration);
    m_bindings.push_back({declaration, m_depth});
}

}  // namespace BxConvert
