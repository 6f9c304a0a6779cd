#include "BxXmlLib5/binding/CElementInfoChoice.h"

#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/document/CXmlElement.h"

namespace BxXmlLib5Data {

bool CElementInfoChoice::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool,
                                  bool) const {
    ThrowIsNeverValidated();
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
    CSmartPtr<CXmlCollectionBase> const collection = CollectionInPlace(owner);
    return Advance(*collection, child, FromXml_Int(collection, element, *child, context, false), context);
}

bool CElementInfoChoiceCol::Advance(CXmlCollectionBase const& collection, CXmlElement** child,
                                    CXmlElement* next, CXmlSerializationContext const& context) {
    if (next == *child) return false;
    *child = next;
    ValidateCount(collection, context);
    return true;
}

bool CElementInfoChoiceUntpdCol::ElementFromXml(CXmlSerializationContext const& context,
                                                CXmlGeneratedClass* owner, CXmlElement* element,
                                                CXmlElement** child, char16_t const*, XmlElementType) {
    CSmartPtr<CXmlCollectionBase> const collection = CollectionInPlace(owner);
    return Advance(*collection, child, ReadUntypedRun(collection, element, *child, context), context);
}

bool CElementInfoChoiceClsOpt::ElementToXml(CXmlSerializationContext const& context,
                                            CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
    return ElementToXmlCls(context, owner, writer, true);
}

bool CElementInfoChoiceClsOpt::ElementFromXml(CXmlSerializationContext const& context,
                                              CXmlGeneratedClass* owner, CXmlElement* element,
                                              CXmlElement** child, char16_t const*, XmlElementType) {
    return m_elementType == et_Element ? TagFromXml(context, owner, child)
                                       : PseudoFromXml(context, owner, element, child);
}

bool CElementInfoChoiceClsOpt::TagFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                          CXmlElement** child) {
    if (!IsThisElement(context, *child)) return false;
    CSmartPtr<CXmlObjectBase> const object = Create();
    if (!object) return false;
    StoreObject(owner, object);
    ReadTag(object, child, context, true);
    return true;
}

bool CElementInfoChoiceClsOpt::PseudoFromXml(CXmlSerializationContext const& context,
                                             CXmlGeneratedClass* owner, CXmlElement* element,
                                             CXmlElement** child) {
    if (*child == nullptr) return false;
    CSmartPtr<CXmlObjectBase> const object = Create();
    if (!object) return false;
    StoreObject(owner, object);
    CXmlElement* const next = FromXml_Int(object, element, *child, context, false);
    if (next == *child) {
        StoreObject(owner, nullptr);
        return false;
    }
    *child = next;
    return true;
}

bool CElementInfoChoiceAbsClsOpt::ElementFromXml(CXmlSerializationContext const& context,
                                                 CXmlGeneratedClass* owner, CXmlElement*, CXmlElement** child,
                                                 char16_t const*, XmlElementType) {
    if (!IsThisElement(context, *child)) return false;
    CSmartPtr<CXmlObjectBase> const object = m_createFromElement(*child);
    StoreObject(owner, object);
    if (!object) return false;
    ReadTag(object, child, context);
    return true;
}

bool CElementInfoChoiceUntpdOpt::ElementFromXml(CXmlSerializationContext const& context,
                                                CXmlGeneratedClass* owner, CXmlElement* element,
                                                CXmlElement** child, char16_t const* namespaceUri,
                                                XmlElementType) {
    if (*child == nullptr) return false;
    CSmartPtr<CXmlObjectBase> const object = Create(namespaceUri);
    CXmlElement* const next = ReadUntyped(object, element, *child, context);
    bool const isRead = next != *child;
    StoreObject(owner, isRead ? object : nullptr);
    *child = next;
    return isRead;
}

}  // namespace BxXmlLib5Data
