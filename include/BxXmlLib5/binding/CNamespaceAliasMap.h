// The aliases that the root of a document declares.
#pragma once

#include <map>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// Namespace URIs with their aliases, ordered by URI, by 16-bit units. A null text is the empty text.
class BXXMLLIB5_API CNamespaceAliasMap {
public:
    /// Gives the namespace this alias, in place of any it had. Two namespaces may share an alias.
    void Add(char16_t const* alias, char16_t const* namespaceUri);

    /// Removes the entry of a namespace.
    /// A namespace that is not there is no failure.
    void RemoveNamespace(char16_t const* namespaceUri);

    /// The first namespace, in the order of the URIs, with this alias.
    /// @throws CBxException if there is none
    wstring GetNamespaceFromAlias(char16_t const* alias) const;

    /// The alias of the namespace. A namespace that is not there is added with the empty alias, so the call
    /// is a write as far as threads go.
    wstring GetAliasFromNamespace(char16_t const* namespaceUri) const;

    /// Whether the namespace has an entry, be it with the empty alias.
    bool DoesNamespaceExist(char16_t const* namespaceUri) const;
    /// Whether a namespace has this alias.
    bool DoesAliasExist(char16_t const* alias) const;
    /// The number of entries.
    int GetNamespaceCount() const;

    /// The URI at a position of the order.
    /// @param index 0 to GetNamespaceCount() - 1
    /// @throws CBxInvalidParamException for any other index
    wstring GetNamespaceAt(int index) const;

    /// All of them, URI to alias.
    std::map<wstring, wstring> const& GetAll() const { return m_aliases; }

private:
    std::map<wstring, wstring>::const_iterator FindAlias(char16_t const* alias) const;

    mutable std::map<wstring, wstring> m_aliases;
};

}  // namespace BxXmlLib5
