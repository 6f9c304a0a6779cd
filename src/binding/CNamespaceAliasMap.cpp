#include "BxXmlLib5/binding/CNamespaceAliasMap.h"

#include <algorithm>
#include <iterator>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/IndexRange.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

void CNamespaceAliasMap::Add(char16_t const* alias, char16_t const* namespaceUri) {
    m_aliases[wstring(TextOf(namespaceUri))] = TextOf(alias);
}

void CNamespaceAliasMap::RemoveNamespace(char16_t const* namespaceUri) {
    m_aliases.erase(wstring(TextOf(namespaceUri)));
}

wstring CNamespaceAliasMap::GetNamespaceFromAlias(char16_t const* alias) const {
    auto const entry = FindAlias(alias);
    if (entry == m_aliases.end()) {
        throw CBxException(FormatString(u"Namespace alias [%s] not found", wstring(TextOf(alias)).c_str()));
    }
    return entry->first;
}

wstring CNamespaceAliasMap::GetAliasFromNamespace(char16_t const* namespaceUri) const {
    return m_aliases[wstring(TextOf(namespaceUri))];
}

bool CNamespaceAliasMap::DoesNamespaceExist(char16_t const* namespaceUri) const {
    return m_aliases.contains(wstring(TextOf(namespaceUri)));
}

bool CNamespaceAliasMap::DoesAliasExist(char16_t const* alias) const {
    return FindAlias(alias) != m_aliases.end();
}

int CNamespaceAliasMap::GetNamespaceCount() const {
    return static_cast<int>(m_aliases.size());
}

wstring CNamespaceAliasMap::GetNamespaceAt(int index) const {
    ThrowIfIndexOutOfRange(index, GetNamespaceCount());
    return std::next(m_aliases.begin(), index)->first;
}

std::map<wstring, wstring>::const_iterator CNamespaceAliasMap::FindAlias(char16_t const* alias) const {
    return std::find_if(m_aliases.begin(), m_aliases.end(),
                        [wanted = TextOf(alias)](auto const& entry) { return Equal(entry.second, wanted); });
}

}  // namespace BxXmlLib5
