// One element that a generated class can hold.
#pragma once

#include "BxXmlLib5/binding/CParentElementInfo.h"
#include "BxXmlLib5/collections/CPrimitiveRestrictions.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"
#include "BxXmlLib5/values/ItemType.h"

namespace BxXmlLib5 {
struct BxVariant;
class CXmlElement;
class CXmlGeneratedClass;
class CXmlObjectBase;
class CXmlSerializationContext;
class CXmlWriter;
}  // namespace BxXmlLib5

namespace BxXmlLib5Data {

using BxXmlLib5::BxVariant;
using BxXmlLib5::CPrimitiveRestrictions;
using BxXmlLib5::CWhitespaceUtils;
using BxXmlLib5::CXmlElement;
using BxXmlLib5::CXmlGeneratedClass;
using BxXmlLib5::CXmlObjectBase;
using BxXmlLib5::CXmlSerializationContext;
using BxXmlLib5::CXmlWriter;
using BxXmlLib5::ItemType;

namespace Detail {

/// Creates an object of a class that generated code has numbered, for an element of this name. A null result
/// means that the element is not the entry's.
using CreateByClass = CSmartPtr<CXmlObjectBase> (*)(int classId, char16_t const* elementName);

/// Picks the class that an element of a document stands for, by its name or its xsi:type, and creates an
/// object of it. A null result says that no class fits.
using CreateFromElement = CSmartPtr<CXmlObjectBase> (*)(CXmlElement* element);

/// The value of a text of an enumeration, and the text of a value. The text is not cleaned of whitespace. A
/// null text says that the value is none of the enumeration.
using StringToEnum = int (*)(char16_t const* text);
using EnumToString = char16_t const* (*)(int value);

}  // namespace Detail

/// An entry of the table of elements of a generated class: it writes one property, and reads it from the
/// children of an element.
///
/// There is a family of entries for each compositor of XML Schema: CElementInfoSeq, CElementInfoAll,
/// CElementInfoChoice. The name of a class in a family ends in the kind of the value and in how often the
/// element occurs.
///
/// | kind | |
/// |---|---|
/// | Cls | a generated class |
/// | AbsCls | an abstract class or the head of a substitution group: the document says which class it is |
/// | Prim | a simple type |
/// | Enum | an enumeration |
/// | Untpd | untyped content |
///
/// | occurrence | |
/// |---|---|
/// | Mnd | exactly one |
/// | Opt | at most one |
/// | Col | a collection |
///
/// An entry never changes once it is made, so all threads may use it. It copies its texts and facets, but
/// keeps the format as a pointer. A text that is null counts as empty.
class BXXMLLIB5_API CElementInfo {
protected:
    /// Writes the property of the owner.
    /// @return whether anything was written
    virtual bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                              CXmlWriter* writer) const = 0;

    /// Reads the property of the owner.
    /// @param element the element whose children are read: that of the owner or, if the owner is a pseudo
    ///        element, of the nearest class with a tag
    /// @param child the child at which reading stands, null if none is left; moved behind what was consumed
    /// @param namespaceUri the namespace of the owner, for untyped content
    /// @param ownerType a mandatory element that is not there is an error under et_Element; a pseudo element
    ///        does not match
    /// @return whether the entry is satisfied, with or without having consumed anything
    virtual bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                                XmlElementType ownerType) = 0;

    /// Tests, after all children were read, whether the entry is content; for the entries of an all group.
    /// @param found whether the entry was satisfied
    /// @param isElement whether the owner has a tag
    /// @return false if the owner, a pseudo element, does not match
    virtual bool Validate(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                          bool found, bool isElement) const = 0;

    /// Writes the attributes of a pseudo element into the tag of its owner.
    virtual void PseudoChildAttributeToXml(CXmlSerializationContext const& context,
                                           CXmlGeneratedClass const* owner, CXmlWriter* writer) const;

public:
    /// @{
    /// Copies texts and facets; a format stays the same pointer.
    CElementInfo(CElementInfo const&) = default;
    CElementInfo& operator=(CElementInfo const&) = default;
    /// @}
    virtual ~CElementInfo();

    /// Tests a value against the facets of the entry.
    /// @throws CBxException if it breaks one, if the entry is not of simple type, or the value of another kind
    void CheckRestriction(BxVariant const& value) const;

protected:
    /// For anything but a simple type.
    /// @param elementName the local name of the element
    /// @param elementNamespace its namespace, empty for none
    /// @param propertyIndex as CXmlGeneratedClass::AccessProperty() takes it
    CElementInfo(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex);

    /// For a simple type.
    /// @param format as for BxVariant::ToString; must outlive the entry
    CElementInfo(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                 ItemType itemType, char16_t const* format, CWhitespaceUtils::WhitespaceRule whitespaceRule,
                 CPrimitiveRestrictions const& restrictions);

    /// The local name.
    wstring GetElementName() const { return m_elementName; }
    /// The namespace, empty for none.
    wstring GetElementNamespace() const { return m_namespace; }
    /// As AccessProperty() takes it.
    int GetPropertyIndex() const { return m_propertyIndex; }

    /// Whether an element has the entry's name and, unless the context ignores namespaces, its namespace.
    /// @param element null gives false
    bool IsThisElement(CXmlSerializationContext const& context, CXmlElement const* element) const;

    /// The namespace of a new untyped element.
    static wstring GetAnyDefaultNamespace(char16_t const* allowedNamespaces, char16_t const* namespaceUri,
                                          char16_t const* targetNamespace);

    /// CXmlGeneratedClass::AccessProperty() of the owner, for the entry's property.
    void AccessProperty(CXmlGeneratedClass* owner, bool read, BxVariant& value);
    /// The entry's property of an owner that is not to be changed.
    void ReadProperty(CXmlGeneratedClass const* owner, BxVariant& value) const;

    /// @{
    /// The operations of the object behind a property.
    static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                    CXmlSerializationContext const& context, bool allowEmptyChoice);
    static void AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                                    CXmlSerializationContext const& context);
    /// @}

    /// @{
    /// Write the property, one operation for each kind of value. Nothing is written for a property that is
    /// not set.
    /// @return whether anything was written
    bool ElementToXmlCls(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                         CXmlWriter* writer, bool allowEmptyChoice) const;
    bool ElementToXmlCol(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                         CXmlWriter* writer) const;
    bool ElementToXmlPrim(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                          CXmlWriter* writer) const;
    bool ElementToXmlPrimOpt(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                             CXmlWriter* writer) const {
        return ElementToXmlPrim(context, owner, writer);
    }
    bool ElementToXmlEnum(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                          CXmlWriter* writer, Detail::EnumToString enumToString) const;
    bool ElementToXmlEnumOpt(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                             CXmlWriter* writer, Detail::EnumToString enumToString) const {
        return ElementToXmlEnum(context, owner, writer, enumToString);
    }
    /// @}

    /// What the entries of the library share.
    struct Steps;

    wstring m_elementName;                        ///< the local name
    wstring m_namespace;                          ///< empty for none
    int m_propertyIndex;                          ///< as AccessProperty() takes it
    CPrimitiveRestrictions m_restrictions;        ///< the facets of a simple type
    ItemType m_itemType = BxXmlLib5::it_invalid;  ///< the kind of a value of simple type
    char16_t const* m_format = nullptr;           ///< not owned; null for the default
    CWhitespaceUtils::WhitespaceRule m_whitespaceRule =
        CWhitespaceUtils::ws_Preserve;  ///< for the text of a value
    bool m_isPrimitive = false;         ///< whether it is of simple type

private:
    friend class BxXmlLib5::CXmlGeneratedClass;
};

}  // namespace BxXmlLib5Data
