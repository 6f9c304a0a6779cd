// What prefixes mean where a document stands.
#pragma once

#include <cstddef>
#include <map>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "BxXmlLib5/platform/Text.h"
#include "document/CNameTable.h"
#include "platform/TextView.h"

namespace BxConvert {

struct PrefixDeclaration {
    BxXmlLib5::wstring const* m_prefix;  // empty for the default namespace
    BxXmlLib5::wstring const* m_namespace;
};

/// The prefixes in scope. All texts are of one table, so that equal ones are the same object. No operation goes through
/// all that is in scope, which may be as large as the document.
class PrefixScopes {
public:
    void StartElement() { ++m_depth; }
    void EndElement();

    /// Of the element that started last.
    void Bind(PrefixDeclaration const& declaration) { Bind(declaration, Made()); }
    /// The same with a prefix that means nothing here.
    /// @return the prefix
    BxXmlLib5::wstring const& BindNew(BxXmlLib5::wstring const& namespaceUri, BxXmlLib5::CNameTable& names);

    /// Null if the prefix is not declared.
    BxXmlLib5::wstring const* NamespaceOf(std::u16string_view prefix) const;

    /// One that means this namespace here, null if none is found.
    BxXmlLib5::wstring const* PrefixOf(BxXmlLib5::wstring const& namespaceUri, bool mayBeEmpty) const;

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    struct Binding {
        PrefixDeclaration m_declaration;
        std::size_t m_depth;
        std::size_t m_made;            // the number of the new prefix that was made last
        std::size_t m_formerOfPrefix;  // the binding that this one hides
        std::size_t m_formerOfNamespace;
    };

    void Bind(PrefixDeclaration const& declaration, std::size_t made);
    std::size_t Made() const { return m_bindings.empty() ? 0 : m_bindings.back().m_made; }

    std::size_t m_depth = 0;
    std::size_t m_passed = 0;  // a number that the document itself had, and none up to it is tried again
    std::vector<Binding> m_bindings;
    std::map<std::u16string_view, std::size_t, BxXmlLib5::LessBySize> m_lastOfPrefix;
    std::unordered_map<BxXmlLib5::wstring const*, std::size_t> m_lastOfNamespace;
};

}  // namespace BxConvert
