#include "BxXmlLib5/document/CXmlAttribute.h"

#include <algorithm>
#include <iterator>

#include "platform/StandardNamespaces.h"

namespace BxXmlLib5 {

CXmlAttribute::CXmlAttribute(CXmlName const& name, std::u16string_view value)
    : CInstanceMonitor(u"CXmlAttribute"), m_name(&name), m_value(value) {}

CXmlAttribute::~CXmlAttribute() = default;

wstring const& CXmlAttribute::GetValue() const {
    return m_value.String();
}

bool CXmlAttribute::IsNamespaceAttribute() const {
    if (GetNamespaceURI() != kXsiNamespace && GetNamespaceURI() != kXmlnsNamespace) return false;
    constexpr std::u16string_view kNames[] = {u"xmlns", u"type", u"schemaLocation",
                                              u"noNamespaceSchemaLocation"};
    return std::find(std::begin(kNames), std::end(kNames), GetLocalName()) != std::end(kNames);
}

}  // namespace BxXmlLib5
