// An attribute of the in-memory tree.
#pragma once

#include "BxXmlLib5/binding/CInstanceMonitor.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

template <class T>
class CNodePool;

/// An attribute as a document holds it. It lives as long as the tree of its document.
class BXXMLLIB5_API CXmlAttribute : public CInstanceMonitor {
public:
    CXmlAttribute(CXmlAttribute const&) = delete;
    CXmlAttribute& operator=(CXmlAttribute const&) = delete;
    virtual ~CXmlAttribute();

    wstring const& GetLocalName() const { return *m_localName; }
    wstring const& GetValue() const { return m_value; }
    /// Empty for no namespace.
    wstring const& GetNamespaceURI() const { return *m_namespaceUri; }

    /// Whether the attribute is infrastructure, not content: its namespace is that of XML Schema instance or
    /// of xmlns, and its local name is xmlns, type, schemaLocation or noNamespaceSchemaLocation.
    bool IsNamespaceAttribute() const;

protected:
    /// Takes the names by reference: they are the document's.
    CXmlAttribute(wstring const& localName, wstring value, wstring const& namespaceUri);

private:
    template <class T>
    friend class CNodePool;

    wstring const* m_localName;
    wstring m_value;
    wstring const* m_namespaceUri;
};

}  // namespace BxXmlLib5
