#include "BxXmlLib5/binding/CElementInfo.h"

#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "binding/PropertyValues.h"
#include "collections/FacetChecks.h"
#include "platform/TextView.h"
#include "writers/WrittenPlace.h"

namespace BxXmlLib5Data {

using namespace BxXmlLib5;

CElementInfo::CElementInfo(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex)
    : m_elementName(TextOf(elementName)),
      m_namespace(TextOf(elementNamespace)),
      m_propertyIndex(propertyIndex) {}

CElementInfo::CElementInfo(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                           ItemType itemType, char16_t const* format,
                           CWhitespaceUtils::WhitespaceRule whitespaceRule,
                           CPrimitiveRestrictions const& restrictions)
    : m_elementName(TextOf(elementName)),
      m_namespace(TextOf(elementNamespace)),
      m_propertyIndex(propertyIndex),
      m_restrictions(restrictions),
      m_itemType(itemType),
      m_format(format),
      m_whitespaceRule(whitespaceRule),
      m_isPrimitive(true) {}

CElementInfo::~CElementInfo() = default;

void CElementInfo::PseudoChildAttributeToXml(CXmlSerializationContext const&, CXmlGeneratedClass const*,
                                             CXmlWriter*) const {}

void CElementInfo::CheckRestriction(BxVariant const& value) const {
    if (!m_isPrimitive) throw CBxException(u"Cannot CheckRestriction for type: " + value.GetType());
    CheckRestrictions(m_itemType, m_restrictions, m_elementName.c_str(), value);
}

bool CElementInfo::IsThisElement(CXmlSerializationContext const& context, CXmlElement const* element) const {
    return element != nullptr && Equal(element->GetLocalName(), m_elementName) &&
           (context.GetIgnoreNamespaces() || Equal(element->GetNamespaceURI(), m_namespace));
}

wstring CElementInfo::GetAnyDefaultNamespace(char16_t const* allowedNamespaces, char16_t const* namespaceUri,
                                             char16_t const* targetNamespace) {
    // The first of the tokens decides.
    std::u16string_view allowed = TextOf(allowedNamespaces);
    allowed = allowed.substr(0, allowed.find(u' '));
    if (allowed == u"##any") return wstring(TextOf(namespaceUri));
    if (allowed == u"##other") return TextOf(namespaceUri).empty() ? u"DefaultNamespace" : u"";
    if (allowed == u"##targetNamespace") return wstring(TextOf(targetNamespace));
    return {};
}

void CElementInfo::AccessProperty(CXmlGeneratedClass* owner, bool read, BxVariant& value) {
    owner->AccessProperty(m_propertyIndex, read, value);
}

void CElementInfo::ReadProperty(CXmlGeneratedClass const* owner, BxVariant& value) const {
    owner->ReadProperty(m_propertyIndex, value);
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                       CXmlSerializationContext const& context, bool allowEmptyChoice) {
    return object->FromXml_Int(element, firstChild, context, allowEmptyChoice);
}

void CElementInfo::AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                                       CXmlSerializationContext const& context) {
    object->AttributesToXml_Int(writer, context);
}

bool CElementInfo::ElementToXmlCls(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                   CXmlWriter* writer, bool allowEmptyChoice) const {
    BxVariant value;
    ReadProperty(owner, value);
    CXmlObjectBase const* const object = ObjectIn(value);
    if (object == nullptr) return false;
    object->ToXml_Int(writer, false, m_namespace.c_str(), context, allowEmptyChoice);
    return true;
}

bool CElementInfo::ElementToXmlCol(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                   CXmlWriter* writer) const {
    BxVariant value;
    ReadProperty(owner, value);
    CXmlCollectionBase& collection = PresentCollectionIn(value);
    if (collection.GetCount() <= 0) return false;
    CXmlObjectBase const* const object = collection.GetBase();
    try {
        object->ToXml_Int(writer, false, m_namespace.c_str(), context, false);
    } catch (CBxException& failure) {
        if (collection.GetCount() > 1) MarkRepeated(failure, m_elementName);
        throw;
    }
    return true;
}

bool CElementInfo::ElementToXmlPrim(CXmlSerializationContext const&, CXmlGeneratedClass const* owner,
                                    CXmlWriter* writer) const {
    BxVariant value;
    ReadProperty(owner, value);
    if (!value.IsValid()) return false;
    MakeNext(m_elementName, Step::Element, [&] { CheckRestriction(value); });
    writer->WriteStartElement(m_elementName, m_namespace);
    writer->WriteText(value.ToString(m_format));
    writer->WriteEndElement();
    return true;
}

bool CElementInfo::ElementToXmlEnum(CXmlSerializationContext const&, CXmlGeneratedClass const* owner,
                                    CXmlWriter* writer, Detail::EnumToString enumToString) const {
    BxVariant value;
    ReadProperty(owner, value);
    if (!value.IsValid()) return false;
    writer->WriteStartElement(m_elementName, m_namespace);
    writer->WriteText(EnumText(enumToString, value, m_elementName));
    writer->WriteEndElement();
    return true;
}

}  // namespace BxXmlLib5Data
