// The attributes of an element of the in-memory tree.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "BxXmlLib5/document/CXmlAttribute.h"

namespace BxXmlLib5 {

/// The attributes of one element, which lie one behind the other. Most are only looked at, so a vector is made when
/// somebody asks for one.
class CNodeAttributes {
public:
    /// None.
    CNodeAttributes() = default;
    /// @param attributes outlive the object
    explicit CNodeAttributes(std::span<CXmlAttribute> attributes) : m_attributes(attributes) {}

    /// In document order.
    std::span<CXmlAttribute> View() const { return m_attributes; }
    /// The same as pointers. The vector lives as long as the object.
    std::vector<CXmlAttribute*> const& Vector() const;

private:
    std::span<CXmlAttribute> m_attributes;
    mutable std::unique_ptr<std::vector<CXmlAttribute*>> m_vector;
};

}  // namespace BxXmlLib5
