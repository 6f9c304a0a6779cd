#include "BxXmlLib5/binding/CAttributeInfo.h"

#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlAttribute.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "binding/NamespaceRules.h"
#include "binding/PropertyValues.h"
#include "collections/FacetChecks.h"
#include "platform/TextView.h"
#include "writers/WrittenPlace.h"

namespace BxXmlLib5Data {

using namespace BxXmlLib5;

namespace {

/// @throws CBxValidationException always, for a required attribute
[[noreturn]] void ThrowNotFound(wstring const& name) {
    throw CBxValidationException(FormatString(u"Failed to find the required Attribute [%s]", name.c_str()));
}

/// Whether an optional attribute of this text is left out as its default.
bool IsDefault(CXmlSerializationContext const& context, wstring const& text, wstring const& defaultValue) {
    return !defaultValue.empty() && context.GetNoOptionalAttributeDefaultOutput() && text == defaultValue;
}

}  // namespace

CAttributeInfo::CAttributeInfo(char16_t const* attributeName, char16_t const* attributeNamespace,
                               int propertyIndex, bool optional, char16_t const* defaultValue)
    : m_attributeName(TextOf(attributeName)),
      m_namespace(TextOf(attributeNamespace)),
      m_propertyIndex(propertyIndex),
      m_optional(optional),
      m_defaultValue(TextOf(defaultValue)) {}

CAttributeInfo::~CAttributeInfo() = default;

bool CAttributeInfo::IsThisAttribute(CXmlSerializationContext const& context,
                                     CXmlAttribute* attribute) const {
    return attribute != nullptr && Equal(attribute->GetLocalName(), m_attributeName) &&
           (context.GetIgnoreNamespaces() || Equal(attribute->GetNamespaceURI(), m_namespace));
}

void CAttributeInfo::AccessProperty(CXmlGeneratedClass* owner, bool read, BxVariant& value) {
    owner->AccessProperty(m_propertyIndex, read, value);
}

void CAttributeInfo::ReadProperty(CXmlGeneratedClass const* owner, BxVariant& value) const {
    owner->ReadProperty(m_propertyIndex, value);
}

void CAttributeInfo::ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer, bool isRoot,
                               char16_t const* namespaceUri, CXmlSerializationContext const& context) {
    object->ToXml_Int(writer, isRoot, namespaceUri, context, false);
}

wstring CAttributeInfo::GetTargetNamespace(CXmlObjectBase const* object) {
    return object->GetTargetNamespace();
}

void CAttributeInfo::TestNamespace(wstring const& namespaceUri, wstring const& allowed,
                                   wstring const& targetNamespace) {
    BxXmlLib5::TestNamespace(namespaceUri, allowed, targetNamespace);
}

CAttributeInfoPrimitive::CAttributeInfoPrimitive(char16_t const* attributeName,
                                                 char16_t const* attributeNamespace, int propertyIndex,
                                                 bool optional, ItemType itemType, char16_t const* format,
                                                 CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                                 CPrimitiveRestrictions const& restrictions,
                                                 char16_t const* defaultValue)
    : CAttributeInfo(attributeName, attributeNamespace, propertyIndex, optional, defaultValue),
      m_restrictions(restrictions),
      m_itemType(itemType),
      m_format(format),
      m_whitespaceRule(whitespaceRule) {}

void CAttributeInfoPrimitive::CheckRestriction(BxVariant const& value) const {
    CheckRestrictions(m_itemType, m_restrictions, m_attributeName.c_str(), value);
}

void CAttributeInfoPrimitive::AttributeToXml(CXmlSerializationContext const& context,
                                             CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
    BxVariant value;
    ReadProperty(owner, value);
    if (m_optional && !value.IsValid()) return;
    wstring const text = MakeNext(m_attributeName, Step::Attribute, [&] { return value.ToString(m_format); });
    if (m_optional && IsDefault(context, text, m_defaultValue)) return;
    MakeNext(m_attributeName, Step::Attribute, [&] { CheckRestriction(value); });
    writer->WriteAttribute(m_attributeName, m_namespace, text);
}

bool CAttributeInfoPrimitive::AttributeFromXml(CXmlSerializationContext const&, CXmlGeneratedClass* owner,
                                               CXmlAttribute* attribute) {
    if (!Equal(attribute->GetLocalName(), m_attributeName) ||
        !Equal(attribute->GetNamespaceURI(), m_namespace)) {
        return false;
    }
    BxVariant value;
    value.FromString(attribute->GetValueView(), m_itemType, m_whitespaceRule);
    AccessProperty(owner, false, value);
    return true;
}

void CAttributeInfoPrimitive::Validate(CXmlSerializationContext const&, bool found) const {
    if (!m_optional && !found) ThrowNotFound(m_attributeName);
}

CAttributeInfoEnum::CAttributeInfoEnum(char16_t const* attributeName, char16_t const* attributeNamespace,
                                       int propertyIndex, bool optional, Detail::EnumToString enumToString,
                                       Detail::StringToEnum stringToEnum, char16_t const* defaultValue)
    : CAttributeInfo(attributeName, attributeNamespace, propertyIndex, optional, defaultValue),
      m_stringToEnum(stringToEnum),
      m_enumToString(enumToString) {}

void CAttributeInfoEnum::AttributeToXml(CXmlSerializationContext const& context,
                                        CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
    BxVariant value;
    ReadProperty(owner, value);
    if (m_optional && !value.IsValid()) return;
    wstring const text = MakeNext(m_attributeName, Step::Attribute, [&] {
        return value.IsValid() ? EnumText(m_enumToString, value, m_attributeName) : value.ToString(nullptr);
    });
    if (m_optional && IsDefault(context, text, m_defaultValue)) return;
    writer->WriteAttribute(m_attributeName, m_namespace, text);
}

bool CAttributeInfoEnum::AttributeFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                          CXmlAttribute* attribute) {
    if (!IsThisAttribute(context, attribute)) return false;
    BxVariant value = EnumValue(m_stringToEnum, attribute->GetValueView(), m_attributeName);
    AccessProperty(owner, false, value);
    return true;
}

void CAttributeInfoEnum::Validate(CXmlSerializationContext const&, bool found) const {
    if (!m_optional && !found) ThrowNotFound(m_attributeName);
}

CAttributeInfoAny::CAttributeInfoAny(char16_t const* attributeName, char16_t const* attributeNamespace,
                                     int propertyIndex, bool optional, char16_t const* allowedNamespaces,
                                     char16_t const* targetNamespace, char16_t const* defaultValue)
    : CAttributeInfo(attributeName, attributeNamespace, propertyIndex, optional, defaultValue),
      m_allowedNamespaces(TextOf(allowedNamespaces)),
      m_targetNamespace(TextOf(targetNamespace)) {}

void CAttributeInfoAny::AttributeToXml(CXmlSerializationContext const& context,
                                       CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
    BxVariant value;
    ReadProperty(owner, value);
    ToXml_Int(&PresentCollectionIn(value), writer, false, GetTargetNamespace(owner).c_str(), context);
}

bool CAttributeInfoAny::AttributeFromXml(CXmlSerializationContext const&, CXmlGeneratedClass* owner,
                                         CXmlAttribute* attribute) {
    TestNamespace(attribute->GetNamespaceURI(), m_allowedNamespaces, m_targetNamespace);
    BxVariant value;
    AccessProperty(owner, true, value);
    auto* const attributes =
        value.m_type == it_xmlCollection ? dynamic_cast<CAttributeCol*>(CollectionIn(value)) : nullptr;
    if (attributes == nullptr) {
        throw CBxException(
            u"Serialization Data Error : The collection should be a CAttributeCol, it was not!");
    }
    attributes->Add(*attribute);
    return true;
}

void CAttributeInfoAny::Validate(CXmlSerializationContext const&, bool) const {}

}  // namespace BxXmlLib5Data
