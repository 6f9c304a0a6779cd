#include "BxXmlLib5/binding/CElementInfoSeq.h"

#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "core/NestingDepth.h"

namespace BxXmlLib5Data {

bool CElementInfoSeq::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool, bool) const {
    ThrowIsNeverValidated();
}

/// Reads the element where it is found.
/// @param skip which owners may skip unknown elements on the way to it, if the context allows it
/// @return whether the entry is satisfied
template <class Read>
bool CElementInfoSeq::ReadMandatory(CXmlSerializationContext const& context, CXmlElement** child,
                                    XmlElementType ownerType, Skip skip, Read read) {
    bool const isElement = ownerType == et_Element;
    bool const skips = context.GetIgnoreUnknownElements() && (isElement || skip == Skip::Always);
    for (std::size_t steps = 0;; ++steps, *child = (*child)->GetNextSiblingElement()) {
        if (IsThisElement(context, *child)) {
            read();
            return true;
        }
        if (isElement && context.GetIgnoreMissingMandatoryElements()) return true;
        if (skips && *child != nullptr) continue;
        CObjectLevel::CountVainSteps(steps);
        return Missing(ownerType);
    }
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
    return ReadMandatory(context, child, ownerType, Skip::Always, [&] { ReadPrim(owner, child); });
}

bool CElementInfoSeqPrimOpt::ElementFromXml(CXmlSerializationContext const& context,
                                            CXmlGeneratedClass* owner, CXmlElement* element,
                                            CXmlElement** child, char16_t const* namespaceUri,
                                            XmlElementType ownerType) {
    PrimEntry::ElementFromXml(context, owner, element, child, namespaceUri, ownerType);
    return true;
}

bool CElementInfoSeqEnumMnd::ElementFromXml(CXmlSerializationContext const& context,
                                            CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                            char16_t const*, XmlElementType ownerType) {
    return ReadMandatory(context, child, ownerType, Skip::UnderElement,
                         [&] { ReadEnum(owner, child, m_stringToEnum); });
}

bool CElementInfoSeqEnumOpt::ElementFromXml(CXmlSerializationContext const& context,
                                            CXmlGeneratedClass* owner, CXmlElement* element,
                                            CXmlElement** child, char16_t const* namespaceUri,
                                            XmlElementType ownerType) {
    EnumEntry::ElementFromXml(context, owner, element, child, namespaceUri, ownerType);
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
    return ReadMandatory(context, child, ownerType, Skip::UnderElement,
                         [&] { ReadTag(ObjectInPlace(owner), child, context); });
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
    ReadNew(context, owner, element, child);
    return true;
}

bool CElementInfoSeqAbsClsMnd::ElementFromXml(CXmlSerializationContext const& context,
                                              CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                              char16_t const*, XmlElementType ownerType) {
    if (ReadSubstitution(context, owner, child)) return true;
    if (ownerType != et_Element) return false;
    throw CBxValidationException(
        FormatString(u"Failed to find a suitable substitution element for [%s]", m_elementName.c_str()));
}

bool CElementInfoSeqAbsClsOpt::ElementFromXml(CXmlSerializationContext const& context,
                                              CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                              char16_t const*, XmlElementType) {
    ReadSubstitution(context, owner, child);
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
    ReadNew(context, owner, element, child, namespaceUri);
    return true;
}

}  // namespace BxXmlLib5Data
