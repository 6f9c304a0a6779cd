#include "BxXmlLib5/binding/CElementInfoSeq.h"

#include "BxXmlLib5/binding/CBxException.h"
#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/binding/FormatString.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/document/CXmlElement.h"

namespace BxXmlLib5Data {

bool CElementInfoSeq::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool, bool) const {
    ThrowIsNeverValidated();
}

CElementInfoSeq::Search CElementInfoSeq::FindMandatory(CXmlSerializationContext const& context,
                                                       CXmlElement** child, XmlElementType ownerType,
                                                       Skip skip) const {
    bool const isElement = ownerType == et_Element;
    bool const skips = context.GetIgnoreUnknownElements() && (isElement || skip == Skip::Always);
    for (;; *child = (*child)->GetNextSiblingElement()) {
        if (IsThisElement(context, *child)) return Search::Found;
        if (isElement && context.GetIgnoreMissingMandatoryElements()) return Search::Excused;
        if (!skips || *child == nullptr) break;
    }
    Missing(ownerType);
    return Search::Failed;
}

bool CElementInfoSeq::Missing(XmlElementType ownerType) const {
    if (ownerType == et_Element) ThrowMissing();
    return false;
}

void CElementInfoSeq::ThrowMissing() const {
    throw CBxValidationException(
        FormatString(u"Failed to find a required element [%s]", m_elementName.c_str()));
}

CElementInfoSeqNonCol::CElementInfoSeqNonCol(char16_t const* elementName, char16_t const* elementNamespace,
                                             int propertyIndex)
    : CElementInfoSeq(elementName, elementNamespace, propertyIndex) {}

CElementInfoSeqCol::CElementInfoSeqCol(char16_t const* elementName, char16_t const* elementNamespace,
                                       int propertyIndex)
    : CElementInfoSeq(elementName, elementNamespace, propertyIndex) {}

bool CElementInfoSeqCol::ElementToXml(CXmlSerializationContext const& context,
                                      CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
    return ElementToXmlCol(context, owner, writer);
}

bool CElementInfoSeqCol::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                        CXmlElement* element, CXmlElement** child, char16_t const*,
                                        XmlElementType) {
    CSmartPtr<CXmlCollectionBase> const collection = CollectionInPlace(owner);
    *child = FromXml_Int(collection, element, *child, context, false);
    ValidateCount(*collection, context);
    return true;
}

bool CElementInfoSeqUntpdCol::ElementFromXml(CXmlSerializationContext const& context,
                                             CXmlGeneratedClass* owner, CXmlElement* element,
                                             CXmlElement** child, char16_t const*, XmlElementType) {
    CSmartPtr<CXmlCollectionBase> const collection = CollectionInPlace(owner);
    *child = ReadUntypedRun(collection, element, *child, context);
    ValidateCount(*collection, context);
    return true;
}

bool CElementInfoSeqPrimMnd::ElementFromXml(CXmlSerializationContext const& context,
                                            CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                            char16_t const*, XmlElementType ownerType) {
    Search const search = FindMandatory(context, child, ownerType, Skip::Always);
    if (search == Search::Found) ReadPrim(owner, child);
    return search != Search::Failed;
}

bool CElementInfoSeqPrimOpt::ElementFromXml(CXmlSerializationContext const& context,
                                            CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                            char16_t const*, XmlElementType) {
    if (IsThisElement(context, *child)) ReadPrim(owner, child);
    return true;
}

bool CElementInfoSeqEnumMnd::ElementFromXml(CXmlSerializationContext const& context,
                                            CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                            char16_t const*, XmlElementType ownerType) {
    Search const search = FindMandatory(context, child, ownerType, Skip::UnderElement);
    if (search == Search::Found) ReadEnum(owner, child, m_stringToEnum);
    return search != Search::Failed;
}

bool CElementInfoSeqEnumOpt::ElementFromXml(CXmlSerializationContext const& context,
                                            CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                            char16_t const*, XmlElementType) {
    if (IsThisElement(context, *child)) ReadEnum(owner, child, m_stringToEnum);
    return true;
}

bool CElementInfoSeqClsMnd::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                           CXmlElement* element, CXmlElement** child, char16_t const*,
                                           XmlElementType ownerType) {
    return m_elementType == et_Element ? TagFromXml(context, owner, child, ownerType)
                                       : PseudoFromXml(context, owner, element, child, ownerType);
}

bool CElementInfoSeqClsMnd::TagFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                       CXmlElement** child, XmlElementType ownerType) {
    Search const search = FindMandatory(context, child, ownerType, Skip::UnderElement);
    if (search == Search::Found) ReadTag(ObjectInPlace(owner), child, context);
    return search != Search::Failed;
}

bool CElementInfoSeqClsMnd::PseudoFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                          CXmlElement* element, CXmlElement** child,
                                          XmlElementType ownerType) {
    if (m_mustConsume && *child == nullptr) return Missing(ownerType);
    CXmlElement* const next = FromXml_Int(ObjectInPlace(owner), element, *child, context, false);
    if (next == *child) {
        if (m_mustConsume) return Missing(ownerType);
        // Under this tolerance the driver skips the child and asks again.
        if (*child != nullptr && context.GetIgnoreUnknownElements() && ownerType == et_Element) return false;
    }
    *child = next;
    return true;
}

bool CElementInfoSeqClsOpt::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                           CXmlElement* element, CXmlElement** child, char16_t const*,
                                           XmlElementType) {
    bool const isPseudo = m_elementType != et_Element;
    if (isPseudo ? *child == nullptr : !IsThisElement(context, *child)) return true;
    CSmartPtr<CXmlObjectBase> const object = Create();
    if (!object) return true;
    CXmlElement* const first = *child;
    if (isPseudo) {
        *child = FromXml_Int(object, element, first, context, false);
    } else {
        ReadTag(object, child, context);
    }
    if (*child != first) StoreObject(owner, object);
    return true;
}

bool CElementInfoSeqAbsClsMnd::ElementFromXml(CXmlSerializationContext const& context,
                                              CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                              char16_t const*, XmlElementType ownerType) {
    CSmartPtr<CXmlObjectBase> object;
    if (IsThisElement(context, *child)) object = m_createFromElement(*child);
    if (!object) {
        if (ownerType != et_Element) return false;
        throw CBxValidationException(
            FormatString(u"Failed to find a suitable substitution element for [%s]", m_elementName.c_str()));
    }
    ReadTag(object, child, context);
    StoreObject(owner, object);
    return true;
}

bool CElementInfoSeqAbsClsOpt::ElementFromXml(CXmlSerializationContext const& context,
                                              CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                              char16_t const*, XmlElementType) {
    if (!IsThisElement(context, *child)) return true;
    CSmartPtr<CXmlObjectBase> const object = m_createFromElement(*child);
    if (!object) return true;
    ReadTag(object, child, context);
    StoreObject(owner, object);
    return true;
}

bool CElementInfoSeqUntpdMnd::ElementFromXml(CXmlSerializationContext const& context,
                                             CXmlGeneratedClass* owner, CXmlElement* element,
                                             CXmlElement** child, char16_t const*, XmlElementType ownerType) {
    if (*child == nullptr) ThrowMissing();
    CXmlElement* const next = ReadUntyped(ObjectInPlace(owner), element, *child, context);
    if (next == *child) {
        if (ownerType != et_Element) return false;
        throw CBxValidationException(
            FormatString(u"Failed to find the required element from namespace [%s]", m_namespace.c_str()));
    }
    *child = next;
    return true;
}

bool CElementInfoSeqUntpdOpt::ElementFromXml(CXmlSerializationContext const& context,
                                             CXmlGeneratedClass* owner, CXmlElement* element,
                                             CXmlElement** child, char16_t const* namespaceUri,
                                             XmlElementType) {
    if (*child == nullptr) return true;
    CSmartPtr<CXmlObjectBase> const object = Create(namespaceUri);
    CXmlElement* const next = ReadUntyped(object, element, *child, context);
    if (next != *child) StoreObject(owner, object);
    *child = next;
    return true;
}

}  // namespace BxXmlLib5Data
