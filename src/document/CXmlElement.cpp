#include "BxXmlLib5/document/CXmlElement.h"

#include "platform/TextView.h"

namespace BxXmlLib5 {

CXmlElement::CXmlElement(CXmlDocument const* document, CXmlName const& name,
                         CNodeAttributes const& attributes, std::size_t line)
    : CInstanceMonitor(u"CXmlElement"),
      m_document(document),
      m_attributes(&attributes),
      m_name(&name),
      m_line(static_cast<std::uint32_t>(line)) {}

CXmlElement::~CXmlElement() = default;

wstring const& CXmlElement::GetText() const {
    return m_text.String();
}

std::vector<CXmlAttribute*> const& CXmlElement::GetAttributes() const {
    return m_attributes->Vector();
}

wstring const& CXmlElement::GetAttribute(wstring const& localName, wstring const& namespaceUri) const {
    for (CXmlAttribute const& attribute : GetAttributeView()) {
        if (Equal(attribute.GetLocalName(), localName) && Equal(attribute.GetNamespaceURI(), namespaceUri)) {
            return attribute.GetValue();
        }
    }
    return CNodeText().String();
}

}  // namespace BxXmlLib5
