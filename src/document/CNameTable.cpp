#include "document/CNameTable.h"

#include "platform/KeyedHash.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

namespace {

/// Tells most of the names of one document apart.
std::size_t Slot(std::u16string_view name) {
    return name.empty() ? 0 : name.size() + 3u * name.front() + 7u * name.back();
}

std::uint64_t HashOf(std::u16string_view text) {
    return KeyedHash(text.data(), text.size() * sizeof(char16_t));
}

}  // namespace

wstring const& CNameTable::InternText(std::u16string_view text) {
    std::uint64_t const hash = HashOf(text);
    auto const isText = [text](wstring const& known) { return Equal(known, text); };
    if (wstring const* const known = m_textIndex.Find(hash, isText)) return *known;
    wstring const& added = *m_texts.Create(text);
    m_textIndex.Add(hash, added);
    return added;
}

wstring const* CNameTable::FindText(std::u16string_view text) const {
    return m_textIndex.Find(HashOf(text), [text](wstring const& known) { return Equal(known, text); });
}

CXmlName const& CNameTable::Intern(wstring const& namespaceUri, std::u16string_view localName) {
    CXmlName const*& recent = m_recent[Slot(localName) % m_recent.size()];
    if (recent == nullptr || &recent->m_namespaceUri != &namespaceUri ||
        !Equal(recent->m_localName, localName)) {
        recent = &Combine(namespaceUri, InternText(localName));
    }
    return *recent;
}

CXmlName const& CNameTable::Combine(wstring const& namespaceUri, wstring const& localName) {
    wstring const* const parts[] = {&namespaceUri, &localName};
    std::uint64_t const hash = KeyedHash(parts, sizeof parts);
    CXmlName const* const known = m_nameIndex.Find(hash, [&](CXmlName const& name) {
        return &name.m_namespaceUri == &namespaceUri && &name.m_localName == &localName;
    });
    if (known != nullptr) return *known;
    CXmlName const& added = *m_names.Create(CXmlName{namespaceUri, localName});
    m_nameIndex.Add(hash, added);
    return added;
}

void CNameTable::Clear() {
    m_recent.fill(nullptr);
    m_nameIndex.Clear();
    m_names.Clear();
    m_textIndex.Clear();
    m_texts.Clear();
    m_blocks.Clear();
}

}  // namespace BxXmlLib5
