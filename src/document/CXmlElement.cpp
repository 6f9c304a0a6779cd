#include "BxXmlLib5/document/CXmlElement.h"

#include "platform/TextView.h"

namespace BxXmlLib5 {

namespace {

wstring const& EmptyText() {
    static wstring const s_empty;
    return s_empty;
}

}  // namespace

CXmlElement::CXmlElement(CXmlDocument const* document)
    : CInstanceMonitor(u"CXmlElement"),
      m_document(document),
      m_localName(&EmptyText()),
      m_namespaceUri(&EmptyText()) {}

CXmlElement::~CXmlElement() = default;

wstring const& CXmlElement::GetAttribute(wstring const& localName, wstring const& namespaceUri) const {
    for (CXmlAttribute const* attribute : m_attributes) {
        if (Equal(attribute->GetLocalName(), localName) &&
            Equal(attribute->GetNamespaceURI(), namespaceUri)) {
            return attribute->GetValue();
        }
    }
    return EmptyText();
}

void CXmlElement::AppendText(std::u16string_view text) {
    // Text arrives in small pieces; append() grows by doubling.
    m_text.append(text);
}

void CXmlElement::AppendChild(CXmlElement* child) {
    (m_lastChild == nullptr ? m_firstChild : m_lastChild->m_nextSibling) = child;
    m_lastChild = child;
}

}  // namespace BxXmlLib5
