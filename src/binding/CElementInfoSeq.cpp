#include "BxXmlLib5/binding/CElementInfoSeq.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "binding/EntryKinds.h"
#include "binding/SiblingSearch.h"

namespace BxXmlLib5Data {

using namespace BxXmlLib5;

bool CElementInfoSeq::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool, bool) const {
    Steps::ThrowIsNeverValidated();
}

namespace {

[[noreturn]] void ThrowMissing(wstring const& name) {
    throw CBxValidationException(FormatString(u"Failed to find a required element [%s]", name.c_str()));
}

/// @return false under a pseudo element
/// @throws CBxValidationException under an owner with a tag
bool Missing(wstring const& name, XmlElementType ownerType) {
    if (ownerType == et_Element) ThrowMissing(name);
    return false;
}

/// Which owners may skip unknown elements.
enum class Skip { UnderElement, Always };

/// Looks for a mandatory element.
/// @param child moved on to the element if it is found, and behind what was skipped if the context says so
/// @param isThisElement tells the element by a child that may be null
/// @param read reads the element
/// @return whether the entry is satisfied
template <class IsThisElement, class Read>
bool ReadMandatory(CElementInfo const* entry, wstring const& name, CXmlSerializationContext const& context,
                   CXmlElement** child, XmlElementType ownerType, Skip skip, IsThisElement isThisElement,
                   Read read) {
    bool const isElement = ownerType == et_Element;
    bool const skips = context.GetIgnoreUnknownElements() && (isElement || skip == Skip::Always);
    CSiblingSearch search(entry, ownerType);
    while (!isThisElement(*child)) {
        if (isElement && context.GetIgnoreMissingMandatoryElements()) return true;
        if (!skips || *child == nullptr) {
            search.End(nullptr);
            return Missing(name, ownerType);
        }
        *child = search.After(*child);
    }
    search.End(*child);
    read();
    return true;
}

}  // namespace

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
    CSmartPtr<CXmlCollectionBase> const collection = Steps::CollectionInPlace(*this, owner);
    CXmlElement const* const first = *child;
    *child = FromXml_Int(collection, element, *child, context, false);
    Steps::TestItems<CElementInfoSeqPrimCol, CElementInfoSeqEnumCol>(*this, first, *child, context);
    Steps::ValidateCount(*collection, context);
    return true;
}

bool CElementInfoSeqUntpdCol::ElementFromXml(CXmlSerializationContext const& context,
                                             CXmlGeneratedClass* owner, CXmlElement* element,
                                             CXmlElement** child, char16_t const*, XmlElementType) {
    CSmartPtr<CXmlCollectionBase> const collection = Steps::CollectionInPlace(*this, owner);
    *child = Steps::ReadUntypedRun(*this, collection, element, *child, context);
    Steps::ValidateCount(*collection, context);
    return true;
}

bool CElementInfoSeqPrimMnd::ElementFromXml(CXmlSerializationContext const& context,
                                            CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                            char16_t const*, XmlElementType ownerType) {
    return ReadMandatory(
        this, m_elementName, context, child, ownerType, Skip::Always,
        [&](CXmlElement const* candidate) { return IsThisElement(context, candidate); },
        [&] { Steps::ReadPrim(*this, owner, child, context); });
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
    return ReadMandatory(
        this, m_elementName, context, child, ownerType, Skip::UnderElement,
        [&](CXmlElement const* candidate) { return IsThisElement(context, candidate); },
        [&] { Steps::ReadEnum(*this, owner, child, m_stringToEnum, context); });
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
    if (m_elementType == et_Element) {
        return ReadMandatory(
            this, m_elementName, context, child, ownerType, Skip::UnderElement,
            [&](CXmlElement const* candidate) { return IsThisElement(context, candidate); },
            [&] { Steps::ReadTag(Steps::ObjectInPlace(*this, owner), child, context); });
    }
    if (m_mustConsume && *child == nullptr) return Missing(m_elementName, ownerType);
    CXmlElement* const next =
        FromXml_Int(Steps::ObjectInPlace(*this, owner), element, *child, context, false);
    if (next == *child) {
        if (m_mustConsume) return Missing(m_elementName, ownerType);
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
    if (*child == nullptr) ThrowMissing(m_elementName);
    CXmlElement* const next =
        Steps::ReadUntyped(*this, Steps::ObjectInPlace(*this, owner), element, *child, context);
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

template class Detail::PrimEntry<CElementInfoSeq>;
template class Detail::EnumEntry<CElementInfoSeq>;
template class Detail::ObjectEntry<CElementInfoSeq>;
template class Detail::ClsMndEntry<CElementInfoSeq>;
template class Detail::ClsOptEntry<CElementInfoSeq>;
template class Detail::AbsClsEntry<CElementInfoSeq>;
template class Detail::UntpdEntry<CElementInfoSeq>;
template class Detail::ClsColEntry<CElementInfoSeqCol>;

}  // namespace BxXmlLib5Data
