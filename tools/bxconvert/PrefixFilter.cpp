#include "PrefixFilter.h"

#include <algorithm>
#include <functional>

#include "BxXmlLib5/core/CBxException.h"
#include "platform/StandardNamespaces.h"

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
    m_scopes.StartElement();
    m_declarations.clear();
    m_taken.clear();
    m_ordered = 0;
    m_takenInOrder.clear();
    for (PrefixDeclaration const& declaration : m_pending) {
        if (IsDeclarable(declaration) && !IsTaken(*declaration.m_prefix)) Bind(declaration);
    }
    m_pending.clear();
    std::u16string_view const prefix = Take(element.m_prefix, element.m_name.m_namespaceUri, false);
    m_attributes.assign(element.m_attributes.begin(), element.m_attributes.end());
    TestThatEachDiffers();
    for (DocumentAttribute& attribute : m_attributes) {
        attribute.m_prefix = Take(attribute.m_prefix, attribute.m_name->m_namespaceUri, true);
    }
    for (auto const& [declared, namespaceUri] : m_declarations)
        m_receiver.DeclareNamespace(*declared, *namespaceUri);
    m_receiver.StartElement({element.m_name, prefix, m_attributes, element.m_line});
}

void PrefixFilter::EndElement() {
    m_scopes.EndElement();
    m_receiver.EndElement();
}

/// Of the attributes; names of one table are equal if they are the same object.
void PrefixFilter::TestThatEachDiffers() {
    m_attributeNames.clear();
    for (DocumentAttribute const& attribute : m_attributes) m_attributeNames.push_back(attribute.m_name);
    std::ranges::sort(m_attributeNames, std::less());
    if (std::ranges::adjacent_find(m_attributeNames) != m_attributeNames.end())
        throw CBxInvalidValueException(u"An element has two attributes of the same name");
}

/// Whether XML text can declare that; what is bound to the prefix xml need not be declared.
bool PrefixFilter::IsDeclarable(PrefixDeclaration const& declaration) const {
    auto const [prefix, namespaceUri] = declaration;
    bool const undeclaresPrefix = !prefix->empty() && namespaceUri->empty();
    return !IsReserved(*prefix) && !undeclaresPrefix && namespaceUri != m_xmlNamespace;
}

/// The prefix that a name is written with. It keeps what it means here, for the element and all its attributes.
std::u16string_view PrefixFilter::Take(std::u16string_view prefix, wstring const& namespaceUri,
                                       bool isAttribute) {
    m_taken.push_back(Find(prefix, namespaceUri, isAttribute));
    return m_taken.back();
}

/// Namespaces of one table are equal if they are the same object.
std::u16string_view PrefixFilter::Find(std::u16string_view prefix, wstring const& namespaceUri,
                                       bool isAttribute) {
    if (namespaceUri.empty()) return isAttribute ? std::u16string_view() : WithoutDefault(namespaceUri);
    if (&namespaceUri == m_xmlNamespace) return u"xml";
    bool const mayBeEmpty = !isAttribute;
    if ((mayBeEmpty || !prefix.empty()) && m_scopes.NamespaceOf(prefix) == &namespaceUri) return prefix;
    if (wstring const* const known = m_scopes.PrefixOf(namespaceUri, mayBeEmpty)) return *known;
    bool const isUseless = IsReserved(prefix) || (prefix.empty() && isAttribute);
    if (isUseless || IsTaken(prefix)) {
        wstring const& made = m_scopes.BindNew(namespaceUri, m_names);
        m_declarations.push_back({&made, &namespaceUri});
        return made;
    }
    wstring const& bound = m_names.InternText(prefix);
    Bind({&bound, &namespaceUri});
    return bound;
}

/// An element in no namespace has no prefix, and no default namespace.
std::u16string_view PrefixFilter::WithoutDefault(wstring const& noNamespace) {
    wstring const* const defaultNamespace = m_scopes.NamespaceOf({});
    if (defaultNamespace == nullptr || defaultNamespace->empty()) return {};
    std::erase_if(m_declarations,
                  [](PrefixDeclaration const& declaration) { return declaration.m_prefix->empty(); });
    Bind({&m_names.InternText({}), &noNamespace});
    return {};
}

bool PrefixFilter::IsTaken(std::u16string_view prefix) {
    for (; m_ordered < m_taken.size(); ++m_ordered) m_takenInOrder.insert(m_taken[m_ordered]);
    return m_takenInOrder.contains(prefix);
}

void PrefixFilter::Bind(PrefixDeclaration const& declaration) {
    m_taken.push_back(*declaration.m_prefix);
    m_declarations.push_back(declaration);
    m_scopes.Bind(declaration);
}

}  // namespace BxConvert
