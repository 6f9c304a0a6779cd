// What the entries of one kind share in all families: members, constructor, and how they write. Generated
// code names the entries themselves.
#pragma once

#include "BxXmlLib5/binding/CElementInfo.h"

namespace BxXmlLib5Data::Detail {

/// A simple type. Unless a class says otherwise, it reads a child that is its element, and no other satisfies
/// it.
template <class Family>
class BXXMLLIB5_API PrimEntry : public Family {
public:
    /// @param format as for BxVariant::ToString; must outlive the entry
    PrimEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
              ItemType itemType, char16_t const* format, CWhitespaceUtils::WhitespaceRule whitespaceRule,
              CPrimitiveRestrictions const& restrictions);

protected:
    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// An enumeration. Unless a class says otherwise, it reads a child that is its element, and no other
/// satisfies it.
template <class Family>
class BXXMLLIB5_API EnumEntry : public Family {
public:
    EnumEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
              EnumToString enumToString, StringToEnum stringToEnum);

protected:
    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;

    EnumToString m_enumToString;
    StringToEnum m_stringToEnum;
};

/// An object of a class that may be a pseudo element.
template <class Family>
class BXXMLLIB5_API ObjectEntry : public Family {
protected:
    ObjectEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                XmlElementType elementType);

    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;
    void PseudoChildAttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                   CXmlWriter* writer) const override;

    XmlElementType m_elementType;
};

/// A generated class of which there is one object at most.
template <class Family>
class BXXMLLIB5_API ClsOptEntry : public ObjectEntry<Family> {
public:
    /// @param createByClass makes the object
    /// @param classId handed to createByClass
    ClsOptEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                XmlElementType elementType, CreateByClass createByClass, int classId);

protected:
    /// Reads a new object, and stores it if it consumed a child.
    /// @return whether it did
    bool ReadNew(CXmlSerializationContext const& context, CXmlGeneratedClass* owner, CXmlElement* element,
                 CXmlElement** child);

    CreateByClass m_createByClass;
    int m_classId;
};

/// A generated class of which there is exactly one object, which the owner provides.
template <class Family>
class BXXMLLIB5_API ClsMndEntry : public ObjectEntry<Family> {
public:
    /// @param createByClass,classId kept, not used: the object is there
    /// @param mustConsume a pseudo element of a sequence must read a child, an element with a tag of an all
    ///        group must be there; elsewhere it makes no difference
    ClsMndEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                XmlElementType elementType, CreateByClass createByClass, int classId, bool mustConsume);

protected:
    bool m_mustConsume;
    CreateByClass m_createByClass;
    int m_classId;
};

/// An object whose class the document picks.
template <class Family>
class BXXMLLIB5_API AbsClsEntry : public ObjectEntry<Family> {
public:
    AbsClsEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                XmlElementType elementType, CreateFromElement createFromElement);

protected:
    /// Reads and stores an object, if the child is the entry's and has a class.
    /// @return whether it did
    bool ReadSubstitution(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                          CXmlElement** child);

    CreateFromElement m_createFromElement;
};

/// One untyped element. The element name "AnyElement" admits every local name.
template <class Family>
class BXXMLLIB5_API UntpdEntry : public Family {
public:
    /// @param allowedNamespaces as for CXmlObjectBase::IsNamespaceValid
    UntpdEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
               char16_t const* allowedNamespaces, char16_t const* targetNamespace);

protected:
    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;

    /// Reads a new element, and stores it if it consumed the child.
    /// @return whether it did
    bool ReadNew(CXmlSerializationContext const& context, CXmlGeneratedClass* owner, CXmlElement* element,
                 CXmlElement** child, char16_t const* namespaceUri);

    wstring m_allowedNamespaces;
    wstring m_targetNamespace;
};

/// A collection of objects of classes that may be pseudo elements.
template <class Col>
class BXXMLLIB5_API ClsColEntry : public Col {
public:
    ClsColEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                XmlElementType elementType);

protected:
    void PseudoChildAttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                   CXmlWriter* writer) const override;

    XmlElementType m_elementType;
};

}  // namespace BxXmlLib5Data::Detail
