#include "BxXmlLib5/binding/CElementInfoAll.h"

#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlElement.h"

namespace BxXmlLib5Data {

bool CElementInfoAll::Missing(bool isElement) const {
    if (!isElement) return false;
    throw CBxValidationException(
        FormatString(u"Failed to find the mandatory element [%s]", m_elementName.c_str()));
}

void CElementInfoAll::ThrowCannotRead() {
    throw CBxException(
        u"AllAbsClsMndElm.ProcessXml, has not been implemented fully, contact the vendor's support");
}

CElementInfoAllNonCol::CElementInfoAllNonCol(char16_t const* elementName, char16_t const* elementNamespace,
                                             int propertyIndex)
    : CElementInfoAll(elementName, elementNamespace, propertyIndex) {}

bool CElementInfoAllRequired::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool found,
                                       bool isElement) const {
    return found || Missing(isElement);
}

bool CElementInfoAllOptional::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool,
                                       bool) const {
    return true;
}

CElementInfoAllCol::CElementInfoAllCol(char16_t const* elementName, char16_t const* elementNamespace,
                                       int propertyIndex)
    : CElementInfoAll(elementName, elementNamespace, propertyIndex) {}

bool CElementInfoAllCol::ElementToXml(CXmlSerializationContext const& context,
                                      CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
    return ElementToXmlCol(context, owner, writer);
}

bool CElementInfoAllCol::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                        CXmlElement* element, CXmlElement** child, char16_t const*,
                                        XmlElementType) {
    *child = FromXml_Int(CollectionInPlace(owner), element, *child, context, false);
    return false;
}

bool CElementInfoAllCol::Validate(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                  bool, bool) const {
    ValidateCount(*CollectionInPlace(owner), context);
    return true;
}

bool CElementInfoAllClsMnd::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                           CXmlElement* element, CXmlElement** child, char16_t const*,
                                           XmlElementType) {
    CXmlElement* const first = *child;
    if (m_elementType != et_Element) {
        *child = FromXml_Int(ObjectInPlace(owner), element, first, context, false);
    } else if (IsThisElement(context, first)) {
        ReadTag(ObjectInPlace(owner), child, context);
    }
    return *child != first;
}

bool CElementInfoAllClsMnd::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool found,
                                     bool isElement) const {
    if (found) return true;
    if (isElement && m_elementType == et_Element && !m_mustConsume) return true;
    return Missing(isElement);
}

bool CElementInfoAllClsOpt::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                           CXmlElement* element, CXmlElement** child, char16_t const*,
                                           XmlElementType) {
    return ReadNew(context, owner, element, child);
}

CElementInfoAllAbsClsMnd::CElementInfoAllAbsClsMnd(char16_t const* elementName,
                                                   char16_t const* elementNamespace, int propertyIndex,
                                                   XmlElementType elementType,
                                                   CreateFromElement createFromElement, int classId)
    : AllAbsClsEntry(elementName, elementNamespace, propertyIndex, elementType, createFromElement),
      m_classId(classId) {}

bool CElementInfoAllUntpdMnd::ElementFromXml(CXmlSerializationContext const& context,
                                             CXmlGeneratedClass* owner, CXmlElement* element,
                                             CXmlElement** child, char16_t const*, XmlElementType) {
    CXmlElement* const first = *child;
    if (first == nullptr) return false;
    *child = ReadUntyped(ObjectInPlace(owner), element, first, context);
    return *child != first;
}

bool CElementInfoAllUntpdOpt::ElementFromXml(CXmlSerializationContext const& context,
                                             CXmlGeneratedClass* owner, CXmlElement* element,
                                             CXmlElement** child, char16_t const* namespaceUri,
                                             XmlElementType) {
    return ReadNew(context, owner, element, child, namespaceUri);
}

}  // namespace BxXmlLib5Data
