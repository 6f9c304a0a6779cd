#include "document/CNameTable.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "platform/KeyedHash.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

namespace {

constexpr std::size_t kOctetsOfIndex = 48;  // what the place of an entry takes, most of all

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
    Count(sizeof(wstring) + text.size() * sizeof(char16_t));
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
    Count(sizeof(CXmlName));
    CXmlName const& added = *m_names.Create(CXmlName{namespaceUri, localName});
    m_nameIndex.Add(hash, added);
    return added;
}

void CNameTable::Count(std::size_t octets) {
    m_octets += octets + kOctetsOfIndex;
    if (m_octets > m_mostOctets) {
        throw CBxException(
            FormatString(u"The names of the document take more than %d octets, which is the limit",
                         static_cast<int>(m_mostOctets)));
    }
}

void CNameTable::Clear() {
    m_octets = 0;
    m_recent.fill(nullptr);
    m_nameIndex.Clear();
    m_names.Clear();
    m_textIndex.Clear();
    m_texts.Clear();
    m_blocks.Clear();
}

}  // namespace BxXmlLib5
