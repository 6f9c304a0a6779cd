#include "BxXmlLib5/binding/CParentElementInfo.h"

#include "platform/TextView.h"

namespace BxXmlLib5Data {

CParentElementInfo::CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType,
                                       char16_t const* elementName, char16_t const* elementNamespace,
                                       int textPropertyIndex, bool failIfAttributeUnknown,
                                       bool hasBaseClasses)
    : m_groupType(groupType),
      m_elementType(elementType),
      m_elementName(BxXmlLib5::TextOf(elementName)),
      m_elementNamespace(BxXmlLib5::TextOf(elementNamespace)),
      m_textPropertyIndex(textPropertyIndex),
      m_failIfAttributeUnknown(failIfAttributeUnknown),
      m_hasBaseClasses(hasBaseClasses) {}

}  // namespace BxXmlLib5Data
