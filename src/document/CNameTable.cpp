#include "document/CNameTable.h"

namespace BxXmlLib5 {

namespace {

/// Tells most of the names of one document apart.
std::size_t Slot(std::u16string_view name) {
    return name.empty() ? 0 : name.size() + 3u * name.front() + 7u * name.back();
}

}  // namespace

wstring const& CNameTable::InternText(std::u16string_view text) {
    auto const known = m_texts.find(text);
    return known != m_texts.end() ? *known : *m_texts.emplace(text).first;
}

wstring const* CNameTable::FindText(std::u16string_view text) const {
    auto const known = m_texts.find(text);
    return known != m_texts.end() ? &*known : nullptr;
}

CXmlName const& CNameTable::Intern(std::u16string_view namespaceUri, std::u16string_view localName) {
    // A name is mostly in the namespace of the one before it.
    if (m_lastNamespace == nullptr || !Equal(*m_lastNamespace, namespaceUri)) {
        m_lastNamespace = &InternText(namespaceUri);
    }
    CXmlName const*& recent = m_recent[Slot(localName) % m_recent.size()];
    if (recent == nullptr || &recent->m_namespaceUri != m_lastNamespace ||
        !Equal(recent->m_localName, localName)) {
        recent = &Combine(*m_lastNamespace, InternText(localName));
    }
    return *recent;
}

CXmlName const& CNameTable::Combine(wstring const& namespaceUri, wstring const& localName) {
    return *m_names.insert(CXmlName{namespaceUri, localName}).first;
}

void CNameTable::Clear() {
    m_lastNamespace = nullptr;
    m_recent.fill(nullptr);
    m_names.clear();
    m_texts.clear();
}

}  // namespace BxXmlLib5
