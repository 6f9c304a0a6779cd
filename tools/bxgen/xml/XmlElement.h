// The elements of a document as they were read.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "xml/Place.h"
#include "xml/QName.h"

namespace BxGen {

/// The prefixes that an element declares, and those in scope around it.
struct NamespaceScope {
    struct Declaration {
        std::string_view m_prefix;  ///< empty for the default namespace
        std::string_view m_uri;     ///< empty where the default namespace is taken back
    };

    std::vector<Declaration> m_declarations;
    NamespaceScope const* m_outer = nullptr;

    /// The namespace that a prefix stands for here; nothing if it is not declared. The empty prefix without a
    /// declaration stands for no namespace.
    std::optional<std::string_view> Find(std::string_view prefix) const;
};

struct XmlAttribute {
    QName m_name;
    std::string_view m_value;
};

/// An element, its attributes, and its children and text in order. Whitespace between elements of a schema is
/// left out; within documentation and foreign elements nothing is. Lives as long as its document.
struct XmlElement {
    using Node = std::variant<XmlElement const*, std::string_view>;

    QName m_name;
    Place m_place;
    NamespaceScope const* m_scope = nullptr;
    std::vector<XmlAttribute> m_attributes;
    std::vector<Node> m_content;

    /// The value of an attribute without a namespace, or null.
    std::string_view const* Find(std::string_view name) const;
};

/// The text of an element and all within, whitespace as it stands.
std::string TextOf(XmlElement const& element);

}  // namespace BxGen
