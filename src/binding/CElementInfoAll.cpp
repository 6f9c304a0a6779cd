#include "BxXmlLib5/binding/CElementInfoAll.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "binding/EntryKinds.h"

namespace BxXmlLib5Data {

using namespace BxXmlLib5;

namespace {

/// @return false under a pseudo element
/// @throws CBxValidationException under an owner with a tag
bool Missing(wstring const& name, bool isElement) {
    if (!isElement) return false;
    throw CBxValidationException(FormatString(u"Failed to find the mandatory element [%s]", name.c_str()));
}

}  // namespace

CElementInfoAllNonCol::CElementInfoAllNonCol(char16_t const* elementName, char16_t const* elementNamespace,
                                             int propertyIndex)
    : CElementInfoAll(elementName, elementNamespace, propertyIndex) {}

bool Detail::AllRequired::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool found,
                                   bool isElement) const {
    return found || Missing(m_elementName, isElement);
}

bool Detail::AllOptional::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool,
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
    CXmlElement const* const first = *child;
    *child = FromXml_Int(Steps::CollectionInPlace(*this, owner), element, *child, context, false);
    Steps::TestItems<CElementInfoAllPrimCol, CElementInfoAllEnumCol>(*this, first, *child, context);
    return false;
}

bool CElementInfoAllCol::Validate(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                  bool, bool) const {
    Steps::ValidateCount(*Steps::CollectionInPlace(*this, owner), context);
    return true;
}

bool CElementInfoAllClsMnd::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                           CXmlElement* element, CXmlElement** child, char16_t const*,
                                           XmlElementType) {
    CXmlElement* const first = *child;
    if (m_elementType != et_Element) {
        *child = FromXml_Int(Steps::ObjectInPlace(*this, owner), element, first, context, false);
    } else if (IsThisElement(context, first)) {
        Steps::ReadTag(Steps::ObjectInPlace(*this, owner), child, context);
    }
    return *child != first;
}

bool CElementInfoAllClsMnd::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool found,
                                     bool isElement) const {
    if (found) return true;
    if (isElement && m_elementType == et_Element && !m_mustConsume) return true;
    return Missing(m_elementName, isElement);
}

bool CElementInfoAllClsOpt::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                           CXmlElement* element, CXmlElement** child, char16_t const*,
                                           XmlElementType) {
    return ReadNew(context, owner, element, child);
}

CElementInfoAllAbsClsMnd::CElementInfoAllAbsClsMnd(char16_t const* elementName,
                                                   char16_t const* elementNamespace, int propertyIndex,
                                                   XmlElementType elementType,
                                                   Detail::CreateFromElement createFromElement, int classId)
    : AllAbsClsEntry(elementName, elementNamespace, propertyIndex, elementType, createFromElement),
      m_classId(classId) {}

bool CElementInfoAllUntpdMnd::ElementFromXml(CXmlSerializationContext const& context,
                                             CXmlGeneratedClass* owner, CXmlElement* element,
                                             CXmlElement** child, char16_t const*, XmlElementType) {
    CXmlElement* const first = *child;
    if (first == nullptr) return false;
    *child = Steps::ReadUntyped(*this, Steps::ObjectInPlace(*this, owner), element, first, context);
    return *child != first;
}

bool CElementInfoAllUntpdOpt::ElementFromXml(CXmlSerializationContext const& context,
                                             CXmlGeneratedClass* owner, CXmlElement* element,
                                             CXmlElement** child, char16_t const* namespaceUri,
                                             XmlElementType) {
    return ReadNew(context, owner, element, child, namespaceUri);
}

template <class Family>
bool Detail::AllAbsClsEntry<Family>::ElementFromXml(CXmlSerializationContext const&, CXmlGeneratedClass*,
                                                    CXmlElement*, CXmlElement** child, char16_t const*,
                                                    XmlElementType) {
    if (*child == nullptr) return false;
    throw CBxException(
        u"AllAbsClsMndElm.ProcessXml, has not been implemented fully, contact the vendor's support");
}

template class Detail::PrimEntry<Detail::AllRequired>;
template class Detail::PrimEntry<Detail::AllOptional>;
template class Detail::EnumEntry<Detail::AllRequired>;
template class Detail::EnumEntry<Detail::AllOptional>;
template class Detail::ObjectEntry<CElementInfoAll>;
template class Detail::ObjectEntry<Detail::AllRequired>;
template class Detail::ObjectEntry<Detail::AllOptional>;
template class Detail::ClsMndEntry<CElementInfoAll>;
template class Detail::ClsOptEntry<Detail::AllOptional>;
template class Detail::AbsClsEntry<Detail::AllRequired>;
template class Detail::AbsClsEntry<Detail::AllOptional>;
template class Detail::AllAbsClsEntry<Detail::AllRequired>;
template class Detail::AllAbsClsEntry<Detail::AllOptional>;
template class Detail::UntpdEntry<Detail::AllRequired>;
template class Detail::UntpdEntry<Detail::AllOptional>;
template class Detail::ClsColEntry<CElementInfoAllCol>;

}  // namespace BxXmlLib5Data
