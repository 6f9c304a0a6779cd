// The bodies of ElementInfoKinds.h, for the sources of the families, which instantiate them.
#pragma once

#include "BxXmlLib5/binding/ElementInfoKinds.h"
#include "binding/ElementSteps.h"
#include "platform/TextView.h"

namespace BxXmlLib5Data::Detail {

template <class Family>
PrimEntry<Family>::PrimEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                             ItemType itemType, char16_t const* format,
                             CWhitespaceUtils::WhitespaceRule whitespaceRule,
                             CPrimitiveRestrictions const& restrictions)
    : Family(elementName, elementNamespace, propertyIndex, itemType, format, whitespaceRule, restrictions) {}

template <class Family>
bool PrimEntry<Family>::ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                     CXmlWriter* writer) const {
    return this->ElementToXmlPrim(context, owner, writer);
}

template <class Family>
bool PrimEntry<Family>::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                       CXmlElement*, CXmlElement** child, char16_t const*, XmlElementType) {
    if (!this->IsThisElement(context, *child)) return false;
    Family::Steps::ReadPrim(*this, owner, child, context);
    return true;
}

template <class Family>
EnumEntry<Family>::EnumEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                             EnumToString enumToString, StringToEnum stringToEnum)
    : Family(elementName, elementNamespace, propertyIndex),
      m_enumToString(enumToString),
      m_stringToEnum(stringToEnum) {}

template <class Family>
bool EnumEntry<Family>::ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                     CXmlWriter* writer) const {
    return this->ElementToXmlEnum(context, owner, writer, m_enumToString);
}

template <class Family>
bool EnumEntry<Family>::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                       CXmlElement*, CXmlElement** child, char16_t const*, XmlElementType) {
    if (!this->IsThisElement(context, *child)) return false;
    Family::Steps::ReadEnum(*this, owner, child, m_stringToEnum, context);
    return true;
}

template <class Family>
ObjectEntry<Family>::ObjectEntry(char16_t const* elementName, char16_t const* elementNamespace,
                                 int propertyIndex, XmlElementType elementType)
    : Family(elementName, elementNamespace, propertyIndex), m_elementType(elementType) {}

template <class Family>
bool ObjectEntry<Family>::ElementToXml(CXmlSerializationContext const& context,
                                       CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
    return this->ElementToXmlCls(context, owner, writer, false);
}

template <class Family>
void ObjectEntry<Family>::PseudoChildAttributeToXml(CXmlSerializationContext const& context,
                                                    CXmlGeneratedClass const* owner,
                                                    CXmlWriter* writer) const {
    if (m_elementType == et_PseudoElement)
        Family::Steps::ObjectAttributesToXml(*this, context, owner, writer);
}

template <class Family>
ClsOptEntry<Family>::ClsOptEntry(char16_t const* elementName, char16_t const* elementNamespace,
                                 int propertyIndex, XmlElementType elementType, CreateByClass createByClass,
                                 int classId)
    : ObjectEntry<Family>(elementName, elementNamespace, propertyIndex, elementType),
      m_createByClass(createByClass),
      m_classId(classId) {}

template <class Family>
bool ClsOptEntry<Family>::ReadNew(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                  CXmlElement* element, CXmlElement** child) {
    bool const isPseudo = this->m_elementType != et_Element;
    if (isPseudo ? *child == nullptr : !this->IsThisElement(context, *child)) return false;
    CSmartPtr<CXmlObjectBase> const object = Family::Steps::Create(*this, m_createByClass, m_classId);
    if (!object) return false;
    if (!isPseudo) {
        Family::Steps::ReadTag(object, child, context);
    } else if (!Family::Steps::ReadGroup(object, element, child, context)) {
        return false;
    }
    Family::Steps::StoreObject(*this, owner, object);
    return true;
}

template <class Family>
ClsMndEntry<Family>::ClsMndEntry(char16_t const* elementName, char16_t const* elementNamespace,
                                 int propertyIndex, XmlElementType elementType, CreateByClass createByClass,
                                 int classId, bool mustConsume)
    : ObjectEntry<Family>(elementName, elementNamespace, propertyIndex, elementType),
      m_mustConsume(mustConsume),
      m_createByClass(createByClass),
      m_classId(classId) {}

template <class Family>
AbsClsEntry<Family>::AbsClsEntry(char16_t const* elementName, char16_t const* elementNamespace,
                                 int propertyIndex, XmlElementType elementType,
                                 CreateFromElement createFromElement)
    : ObjectEntry<Family>(elementName, elementNamespace, propertyIndex, elementType),
      m_createFromElement(createFromElement) {}

template <class Family>
bool AbsClsEntry<Family>::ReadSubstitution(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                           CXmlElement** child) {
    if (!this->IsThisElement(context, *child)) return false;
    CSmartPtr<CXmlObjectBase> const object = m_createFromElement(*child);
    if (!object) return false;
    Family::Steps::ReadTag(object, child, context);
    Family::Steps::StoreObject(*this, owner, object);
    return true;
}

template <class Family>
UntpdEntry<Family>::UntpdEntry(char16_t const* elementName, char16_t const* elementNamespace,
                               int propertyIndex, char16_t const* allowedNamespaces,
                               char16_t const* targetNamespace)
    : Family(elementName, elementNamespace, propertyIndex),
      m_allowedNamespaces(BxXmlLib5::TextOf(allowedNamespaces)),
      m_targetNamespace(BxXmlLib5::TextOf(targetNamespace)) {}

template <class Family>
bool UntpdEntry<Family>::ElementToXml(CXmlSerializationContext const& context,
                                      CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
    return this->ElementToXmlCls(context, owner, writer, false);
}

template <class Family>
bool UntpdEntry<Family>::ReadNew(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                 CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri) {
    CXmlElement* const first = *child;
    if (first == nullptr) return false;
    CSmartPtr<CXmlObjectBase> const object =
        Family::Steps::CreateUntyped(*this, m_allowedNamespaces, namespaceUri, m_targetNamespace);
    *child = Family::Steps::ReadUntyped(*this, object, element, first, context);
    if (*child == first) return false;
    Family::Steps::StoreObject(*this, owner, object);
    return true;
}

template <class Col>
ClsColEntry<Col>::ClsColEntry(char16_t const* elementName, char16_t const* elementNamespace,
                              int propertyIndex, XmlElementType elementType)
    : Col(elementName, elementNamespace, propertyIndex), m_elementType(elementType) {}

template <class Col>
void ClsColEntry<Col>::PseudoChildAttributeToXml(CXmlSerializationContext const& context,
                                                 CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
    if (m_elementType == et_PseudoElement) Col::Steps::ItemsAttributesToXml(*this, context, owner, writer);
}

}  // namespace BxXmlLib5Data::Detail
