#include "xml/XmlElement.h"

namespace BxGen {

std::optional<std::string_view> NamespaceScope::Find(std::string_view prefix) const {
    if (prefix == "xml") return kXmlNamespace;
    for (NamespaceScope const* scope = this; scope != nullptr; scope = scope->m_outer) {
        for (Declaration const& declaration : scope->m_declarations) {
            if (declaration.m_prefix == prefix) return declaration.m_uri;
        }
    }
    return prefix.empty() ? std::optional<std::string_view>("") : std::nullopt;
}

std::string_view const* XmlElement::Find(std::string_view name) const {
    for (XmlAttribute const& attribute : m_attributes) {
        if (attribute.m_name.m_local == name && attribute.m_name.m_namespace.empty())
            return &attribute.m_value;
    }
    return nullptr;
}

std::string TextOf(XmlElement const& element) {
    std::string text;
    for (XmlElement::Node const& node : element.m_content) {
        if (auto const* const child = std::get_if<XmlElement const*>(&node)) {
            text += TextOf(**child);
        } else {
            text += std::get<std::string_view>(node);
        }
    }
    return text;
}

}  // namespace BxGen
