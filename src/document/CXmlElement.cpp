#include "BxXmlLib5/document/CXmlElement.h"

#include "document/NodeText.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

CXmlElement::CXmlElement(CXmlDocument const* document, CXmlName const& name)
    : CInstanceMonitor(u"CXmlElement"), m_document(document), m_name(&name) {}

CXmlElement::~CXmlElement() = default;

wstring const& CXmlElement::GetText() const {
    return StringOf(m_text, m_textString);
}

wstring const& CXmlElement::GetAttribute(wstring const& localName, wstring const& namespaceUri) const {
    for (CXmlAttribute const* attribute : m_attributes) {
        if (Equal(attribute->GetLocalName(), localName) &&
            Equal(attribute->GetNamespaceURI(), namespaceUri)) {
            return attribute->GetValue();
        }
    }
    std::unique_ptr<wstring> none;
    return StringOf({}, none);
}

}  // namespace BxXmlLib5
