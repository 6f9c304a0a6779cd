// An element of the in-memory tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/document/CNodeAttributes.h"
#include "BxXmlLib5/document/CNodeText.h"
#include "BxXmlLib5/document/CXmlAttribute.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

class CXmlDocument;

/// An element as a document holds it: names, attributes, children, and one text. It lives as long as the tree
/// of its document. Prefixes, comments, processing instructions and the place of text among children are not
/// kept.
class BXXMLLIB5_API CXmlElement : public CInstanceMonitor {
public:
    /// @{
    /// The document owns the element.
    CXmlElement(CXmlElement const&) = delete;
    CXmlElement& operator=(CXmlElement const&) = delete;
    /// @}
    virtual ~CXmlElement();

    /// The name without a prefix.
    wstring const& GetLocalName() const { return m_name->m_localName; }
    /// The namespace.
    /// Empty for no namespace.
    wstring const& GetNamespaceURI() const { return m_name->m_namespaceUri; }

    /// All character data directly inside the element, joined in document order, whitespace included, CR left
    /// out.
    wstring const& GetText() const;
    /// The text without making a string of it.
    std::u16string_view GetTextView() const { return m_text.View(); }

    /// The first child element.
    /// Null if there is none.
    CXmlElement* GetFirstElement() const { return m_firstChild; }
    /// The next element of the same parent.
    /// Null if there is none.
    CXmlElement* GetNextSiblingElement() const { return m_nextSibling; }
    /// The document that owns the element, never null.
    CXmlDocument const* GetDocument() const { return m_document; }

    /// The line of the text on which the element's tag begins, 1 for the first one; 0 where there are no
    /// lines, as in Fast Infoset. An element that an entity stands for has the line of the outermost
    /// reference.
    std::size_t GetLine() const { return m_line; }

    /// The attributes, which the document owns.
    /// In document order. The first call makes a vector of them; GetAttributeView() makes none.
    std::vector<CXmlAttribute*> const& GetAttributes() const;
    /// The attributes without making a vector of them.
    std::span<CXmlAttribute> GetAttributeView() const { return m_attributes->View(); }

    /// The value of the first attribute with these names, the empty text if there is none.
    wstring const& GetAttribute(wstring const& localName, wstring const& namespaceUri) const;

private:
    friend class CDocumentBuilder;
    template <class T>
    friend class CNodePool;

    /// @param name,attributes the document's, which outlive the element
    CXmlElement(CXmlDocument const* document, CXmlName const& name, CNodeAttributes const& attributes,
                std::size_t line);

    CXmlDocument const* m_document;
    CXmlElement* m_nextSibling = nullptr;
    CXmlElement* m_firstChild = nullptr;
    CNodeAttributes const* m_attributes;
    CXmlName const* m_name;
    [[no_unique_address]] CNodeText m_text;  // which leaves the room for what follows
    std::uint32_t m_line;
};

}  // namespace BxXmlLib5
