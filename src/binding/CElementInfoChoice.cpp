#include "BxXmlLib5/binding/CElementInfoChoice.h"

#include "binding/EntryKinds.h"

namespace BxXmlLib5Data {

using namespace BxXmlLib5;

bool CElementInfoChoice::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool,
                                  bool) const {
    Steps::ThrowIsNeverValidated();
}

CElementInfoChoiceCol::CElementInfoChoiceCol(char16_t const* elementName, char16_t const* elementNamespace,
                                             int propertyIndex)
    : CElementInfoChoice(elementName, elementNamespace, propertyIndex) {}

bool CElementInfoChoiceCol::ElementToXml(CXmlSerializationContext const& context,
                                         CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
    return ElementToXmlCol(context, owner, writer);
}

bool CElementInfoChoiceCol::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                           CXmlElement* element, CXmlElement** child, char16_t const*,
                                           XmlElementType) {
    CSmartPtr<CXmlCollectionBase> const collection = Steps::CollectionInPlace(*this, owner);
    CXmlElement* const next = FromXml_Int(collection, element, *child, context, false);
    Steps::TestItems<CElementInfoChoicePrimCol, CElementInfoChoiceEnumCol>(*this, *child, next, context);
    return Steps::Advance(*collection, child, next, context);
}

bool CElementInfoChoiceUntpdCol::ElementFromXml(CXmlSerializationContext const& context,
                                                CXmlGeneratedClass* owner, CXmlElement* element,
                                                CXmlElement** child, char16_t const*, XmlElementType) {
    CSmartPtr<CXmlCollectionBase> const collection = Steps::CollectionInPlace(*this, owner);
    CXmlElement* const next = Steps::ReadUntypedRun(*this, collection, element, *child, context);
    return Steps::Advance(*collection, child, next, context);
}

bool CElementInfoChoiceClsOpt::ElementToXml(CXmlSerializationContext const& context,
                                            CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
    return ElementToXmlCls(context, owner, writer, true);
}

bool CElementInfoChoiceClsOpt::ElementFromXml(CXmlSerializationContext const& context,
                                              CXmlGeneratedClass* owner, CXmlElement* element,
                                              CXmlElement** child, char16_t const*, XmlElementType) {
    bool const isPseudo = m_elementType != et_Element;
    if (isPseudo ? *child == nullptr : !IsThisElement(context, *child)) return false;
    CSmartPtr<CXmlObjectBase> const object = Steps::Create(*this, m_createByClass, m_classId);
    if (!object) return false;
    Steps::StoreObject(*this, owner, object);
    if (!isPseudo) {
        Steps::ReadTag(object, child, context, true);
        return true;
    }
    if (Steps::ReadGroup(object, element, child, context)) return true;
    Steps::StoreObject(*this, owner, nullptr);
    return false;
}

bool CElementInfoChoiceAbsClsOpt::ElementFromXml(CXmlSerializationContext const& context,
                                                 CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                                 char16_t const*, XmlElementType) {
    if (!IsThisElement(context, *child)) return false;
    CSmartPtr<CXmlObjectBase> const object = m_createFromElement(*child);
    Steps::StoreObject(*this, owner, object);
    if (!object) return false;
    Steps::ReadTag(object, child, context);
    return true;
}

bool CElementInfoChoiceUntpdOpt::ElementFromXml(CXmlSerializationContext const& context,
                                                CXmlGeneratedClass* owner, CXmlElement* element,
                                                CXmlElement** child, char16_t const* namespaceUri,
                                                XmlElementType) {
    if (*child == nullptr) return false;
    CSmartPtr<CXmlObjectBase> const object =
        Steps::CreateUntyped(*this, m_allowedNamespaces, namespaceUri, m_targetNamespace);
    CXmlElement* const next = Steps::ReadUntyped(*this, object, element, *child, context);
    bool const isRead = next != *child;
    Steps::StoreObject(*this, owner, isRead ? object : nullptr);
    *child = next;
    return isRead;
}

template class Detail::PrimEntry<CElementInfoChoice>;
template class Detail::EnumEntry<CElementInfoChoice>;
template class Detail::ObjectEntry<CElementInfoChoice>;
template class Detail::ClsOptEntry<CElementInfoChoice>;
template class Detail::AbsClsEntry<CElementInfoChoice>;
template class Detail::UntpdEntry<CElementInfoChoice>;
template class Detail::ClsColEntry<CElementInfoChoiceCol>;

}  // namespace BxXmlLib5Data
