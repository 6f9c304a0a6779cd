// One attribute that a generated class can hold.
#pragma once

#include "BxXmlLib5/binding/CElementInfo.h"

namespace BxXmlLib5 {
class CXmlAttribute;
}

namespace BxXmlLib5Data {

using BxXmlLib5::CXmlAttribute;

/// An entry of the table of attributes of a generated class: it writes one property, and reads it from an
/// attribute of an element.
///
/// A default value serves to leave an optional attribute out on writing. Reading supplies none: an attribute
/// that is not there leaves the property as ResetContent() has left it.
///
/// An entry never changes once it is made, so all threads may use it. It copies its texts and facets, but
/// keeps the format as a pointer. A text that is null counts as empty.
class BXXMLLIB5_API CAttributeInfo {
protected:
    /// Writes the property of the owner, unless it is optional and not set, or has its default value and the
    /// context leaves defaults out.
    virtual void AttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                CXmlWriter* writer) const = 0;

    /// Reads the property of the owner.
    /// @return whether the attribute is the entry's
    virtual bool AttributeFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                  CXmlAttribute* attribute) = 0;

    /// Tests, after all attributes were read, whether the entry is content.
    /// @param found whether it took an attribute
    /// @throws CBxValidationException if it must have taken one
    virtual void Validate(CXmlSerializationContext const& context, bool found) const = 0;

public:
    /// @{
    /// Copies texts and facets; a format stays the same pointer.
    CAttributeInfo(CAttributeInfo const&) = default;
    CAttributeInfo& operator=(CAttributeInfo const&) = default;
    /// @}
    virtual ~CAttributeInfo();

protected:
    /// @param attributeNamespace empty for an unqualified attribute
    CAttributeInfo(char16_t const* attributeName, char16_t const* attributeNamespace, int propertyIndex,
                   bool optional, char16_t const* defaultValue);

    /// Whether an attribute has the entry's name and, unless the context ignores namespaces, its namespace.
    /// @param attribute null gives false
    bool IsThisAttribute(CXmlSerializationContext const& context, CXmlAttribute* attribute) const;

    /// CXmlGeneratedClass::AccessProperty() of the owner, for the entry's property.
    void AccessProperty(CXmlGeneratedClass* owner, bool read, BxVariant& value);
    /// The entry's property of an owner that is not to be changed.
    void ReadProperty(CXmlGeneratedClass const* owner, BxVariant& value) const;

    /// The operation of the object behind a property.
    static void ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer, bool isRoot,
                          char16_t const* namespaceUri, CXmlSerializationContext const& context);
    /// The namespace in which the object would be written as a root.
    static wstring GetTargetNamespace(CXmlObjectBase const* object);

    /// @throws CBxInvalidNamespaceException if the wildcard does not allow the namespace
    static void TestNamespace(wstring const& namespaceUri, wstring const& allowed,
                              wstring const& targetNamespace);

    wstring m_attributeName;  ///< the local name
    wstring m_namespace;      ///< empty for none
    int m_propertyIndex;      ///< as AccessProperty() takes it
    bool m_optional;          ///< it may be missing
    wstring m_defaultValue;   ///< empty for none

private:
    friend class BxXmlLib5::CXmlGeneratedClass;
};

/// An attribute of simple type. Its namespace is compared even where the context ignores namespaces.
class BXXMLLIB5_API CAttributeInfoPrimitive : public CAttributeInfo {
public:
    /// @param format as for BxVariant::ToString; must outlive the entry
    CAttributeInfoPrimitive(char16_t const* attributeName, char16_t const* attributeNamespace,
                            int propertyIndex, bool optional, ItemType itemType, char16_t const* format,
                            CWhitespaceUtils::WhitespaceRule whitespaceRule,
                            CPrimitiveRestrictions const& restrictions, char16_t const* defaultValue);

    /// Tests a value against the facets of the entry.
    /// @throws CBxException if it breaks one, or the value is of another kind
    void CheckRestriction(BxVariant const& value) const;

protected:
    void AttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                        CXmlWriter* writer) const override;
    bool AttributeFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                          CXmlAttribute* attribute) override;
    void Validate(CXmlSerializationContext const& context, bool found) const override;

    CPrimitiveRestrictions m_restrictions;              ///< the facets of its type
    ItemType m_itemType;                                ///< the kind of its value
    char16_t const* m_format;                           ///< not owned; null for the default
    CWhitespaceUtils::WhitespaceRule m_whitespaceRule;  ///< for its text
};

/// An attribute of an enumeration.
class BXXMLLIB5_API CAttributeInfoEnum : public CAttributeInfo {
public:
    /// @param enumToString,stringToEnum functions of the enumeration, which generated code supplies
    CAttributeInfoEnum(char16_t const* attributeName, char16_t const* attributeNamespace, int propertyIndex,
                       bool optional, Detail::EnumToString enumToString, Detail::StringToEnum stringToEnum,
                       char16_t const* defaultValue);

protected:
    void AttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                        CXmlWriter* writer) const override;
    bool AttributeFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                          CXmlAttribute* attribute) override;
    void Validate(CXmlSerializationContext const& context, bool found) const override;

    Detail::StringToEnum m_stringToEnum;  ///< from text to value
    Detail::EnumToString m_enumToString;  ///< from value to text
};

/// The anyAttribute wildcard of XML Schema: it takes every attribute that it is offered into a CAttributeCol,
/// so it stands last in a table.
class BXXMLLIB5_API CAttributeInfoAny : public CAttributeInfo {
public:
    /// @param allowedNamespaces as for CXmlObjectBase::IsNamespaceValid. An attribute of another namespace
    ///        is an error, whatever the context tolerates.
    CAttributeInfoAny(char16_t const* attributeName, char16_t const* attributeNamespace, int propertyIndex,
                      bool optional, char16_t const* allowedNamespaces, char16_t const* targetNamespace,
                      char16_t const* defaultValue);

protected:
    void AttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                        CXmlWriter* writer) const override;
    bool AttributeFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                          CXmlAttribute* attribute) override;
    void Validate(CXmlSerializationContext const& context, bool found) const override;

    wstring m_allowedNamespaces;  ///< what the wildcard admits
    wstring m_targetNamespace;    ///< the namespace of the schema, for the wildcard
};

}  // namespace BxXmlLib5Data
