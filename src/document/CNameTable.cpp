#include "document/CNameTable.h"

namespace BxXmlLib5 {

namespace {

/// Tells most of the names of one document apart.
std::size_t Slot(std::u16string_view name) {
    return name.empty() ? 0 : name.size() + 3u * name.front() + 7u * name.back();
}

}  // namespace

CXmlName const& CNameTable::Intern(std::u16string_view namespaceUri, std::u16string_view localName) {
    wstring const& known = InternNamespace(namespaceUri);
    CXmlName const*& recent = m_recent[Slot(localName) % m_recent.size()];
    if (recent == nullptr || &recent->m_namespaceUri != &known || !Equal(recent->m_localName, localName)) {
        recent = &Find(known, localName);
    }
    return *recent;
}

wstring const& CNameTable::InternNamespace(std::u16string_view namespaceUri) {
    if (namespaceUri.empty()) return m_noNamespace;
    // A name is mostly in the namespace of the one before it.
    if (m_lastNamespace == nullptr || !Equal(*m_lastNamespace, namespaceUri)) {
        m_lastNamespace = &InternText(namespaceUri);
    }
    return *m_lastNamespace;
}

CXmlName const& CNameTable::Find(wstring const& namespaceUri, std::u16string_view localName) {
    auto const known = m_names.find(Key{namespaceUri, localName});
    return known != m_names.end() ? *known
                                  : *m_names.insert(CXmlName{namespaceUri, InternText(localName)}).first;
}

void CNameTable::Clear() {
    m_lastNamespace = nullptr;
    m_recent.fill(nullptr);
    m_names.clear();
    m_texts.clear();
}

wstring const& CNameTable::InternText(std::u16string_view text) {
    auto const known = m_texts.find(text);
    return known != m_texts.end() ? *known : *m_texts.emplace(text).first;
}

}  // namespace BxXmlLib5
