// The namespaces that a wildcard of a schema admits.
#pragma once

#include <string_view>
#include <vector>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5::Generated {

/// The rules of XML Schema Part 1, 3.10: unlike those of untyped content, a namespace in a list does not admit
/// names in none, and neither does ##other.
class NamespaceConstraint {
public:
    /// @param namespaces ##any, ##other, or a list of ##local, ##targetNamespace and namespaces; ##other ahead of
    ///        one of these is everything but it, and no namespace
    NamespaceConstraint(std::u16string_view namespaces, std::u16string_view targetNamespace);

    bool Admits(std::u16string_view namespaceUri) const;

private:
    enum class Rule { Any, Other, List };

    Rule m_rule = Rule::List;
    std::vector<wstring> m_namespaces;  ///< Of Other, the one that is not admitted.
};

}  // namespace BxXmlLib5::Generated
