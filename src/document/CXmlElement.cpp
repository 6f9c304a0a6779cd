#include "BxXmlLib5/document/CXmlElement.h"

#include "platform/TextView.h"

namespace BxXmlLib5 {

CXmlElement::CXmlElement(CXmlDocument const* document, CXmlName const& name)
    : CInstanceMonitor(u"CXmlElement"), m_document(document), m_name(&name) {}

CXmlElement::~CXmlElement() = default;

wstring const& CXmlElement::GetAttribute(wstring const& localName, wstring const& namespaceUri) const {
    for (CXmlAttribute const* attribute : m_attributes) {
        if (Equal(attribute->GetLocalName(), localName) &&
            Equal(attribute->GetNamespaceURI(), namespaceUri)) {
            return attribute->GetValue();
        }
    }
    static wstring const s_empty;
    return s_empty;
}

}  // namespace BxXmlLib5
