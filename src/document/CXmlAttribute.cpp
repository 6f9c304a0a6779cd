#include "BxXmlLib5/document/CXmlAttribute.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/StandardNamespaces.h"

namespace BxXmlLib5 {

CXmlAttribute::CXmlAttribute(wstring const& localName, wstring value, wstring const& namespaceUri)
    : CInstanceMonitor(u"CXmlAttribute"),
      m_localName(&localName),
      m_value(std::move(value)),
      m_namespaceUri(&namespaceUri) {}

CXmlAttribute::~CXmlAttribute() = default;

bool CXmlAttribute::IsNamespaceAttribute() const {
    if (*m_namespaceUri != kXsiNamespace && *m_namespaceUri != kXmlnsNamespace) return false;
    constexpr std::u16string_view kNames[] = {u"xmlns", u"type", u"schemaLocation",
                                              u"noNamespaceSchemaLocation"};
    return std::find(std::begin(kNames), std::end(kNames), *m_localName) != std::end(kNames);
}

}  // namespace BxXmlLib5
