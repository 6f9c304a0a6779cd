// An attribute of the in-memory tree.
#pragma once

#include <string_view>

#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/document/CNodeText.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

template <class T>
class CNodePool;

/// A name as a document holds it, once for all elements and attributes that have it.
struct CXmlName {
    wstring const& m_namespaceUri;  ///< empty for none
    wstring const& m_localName;     ///< without a prefix
};

/// An attribute as a document holds it. It lives as long as the tree of its document.
class BXXMLLIB5_API CXmlAttribute : public CInstanceMonitor {
public:
    /// @{
    /// The document owns the attribute.
    CXmlAttribute(CXmlAttribute const&) = delete;
    CXmlAttribute& operator=(CXmlAttribute const&) = delete;
    /// @}
    virtual ~CXmlAttribute();

    /// The name without a prefix.
    wstring const& GetLocalName() const { return m_name->m_localName; }
    /// The value. The first call makes a string of it; GetValueView() makes none.
    wstring const& GetValue() const;
    /// The value without making a string of it.
    std::u16string_view GetValueView() const { return m_value.View(); }
    /// Empty for no namespace.
    wstring const& GetNamespaceURI() const { return m_name->m_namespaceUri; }

    /// Whether the attribute is infrastructure, not content: its namespace is that of XML Schema instance or
    /// of xmlns, and its local name is xmlns, type, schemaLocation or noNamespaceSchemaLocation.
    bool IsNamespaceAttribute() const;

private:
    template <class T>
    friend class CNodePool;

    /// @param name,value the document's, which outlives the attribute
    CXmlAttribute(CXmlName const& name, std::u16string_view value);

    CXmlName const* m_name;
    CNodeText m_value;
};

}  // namespace BxXmlLib5
