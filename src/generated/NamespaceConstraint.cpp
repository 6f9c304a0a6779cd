#include "generated/NamespaceConstraint.h"

#include <algorithm>

#include "BxXmlLib5/generated/SimpleTypes.h"
#include "platform/TextView.h"

namespace BxXmlLib5::Generated {

NamespaceConstraint::NamespaceConstraint(std::u16string_view namespaces,
                                         std::u16string_view targetNamespace) {
    if (namespaces == u"##any") {
        m_rule = Rule::Any;
    } else if (namespaces == u"##other") {
        m_rule = Rule::Other;
        m_namespaces.emplace_back(targetNamespace);
    }
    if (m_rule != Rule::List) return;
    while (auto const token = TakeItem(namespaces)) {
        if (*token == u"##other") {
            m_rule = Rule::Other;
        } else if (*token == u"##local") {
            m_namespaces.emplace_back();
        } else {
            m_namespaces.emplace_back(*token == u"##targetNamespace" ? targetNamespace : *token);
        }
    }
}

bool NamespaceConstraint::Admits(std::u16string_view namespaceUri) const {
    if (m_rule == Rule::Any) return true;
    bool const isNamed = std::ranges::any_of(
        m_namespaces, [&](wstring const& one) { return BxXmlLib5::Equal(one, namespaceUri); });
    return m_rule == Rule::List ? isNamed : !isNamed && !namespaceUri.empty();
}

}  // namespace BxXmlLib5::Generated
