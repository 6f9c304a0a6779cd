// What the entries of one kind share in all families: members, constructor, and how they write.
#pragma once

#include "BxXmlLib5/binding/CElementInfo.h"

namespace BxXmlLib5Data {

/// A simple type. Unless a class says otherwise, it reads a child that is its element, and no other satisfies
/// it.
template <class Family>
class PrimEntry : public Family {
public:
    /// @param format as for BxVariant::ToString; must outlive the entry
    PrimEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
              ItemType itemType, char16_t const* format, CWhitespaceUtils::WhitespaceRule whitespaceRule,
              CPrimitiveRestrictions const& restrictions)
        : Family(elementName, elementNamespace, propertyIndex, itemType, format, whitespaceRule,
                 restrictions) {}

protected:
    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override {
        return this->ElementToXmlPrim(context, owner, writer);
    }

    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner, CXmlElement*,
                        CXmlElement** child, char16_t const*, XmlElementType) override {
        if (!this->IsThisElement(context, *child)) return false;
        this->ReadPrim(owner, child);
        return true;
    }
};

/// An enumeration. Unless a class says otherwise, it reads a child that is its element, and no other
/// satisfies it.
template <class Family>
class EnumEntry : public Family {
public:
    EnumEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
              EnumToString enumToString, StringToEnum stringToEnum)
        : Family(elementName, elementNamespace, propertyIndex),
          m_enumToString(enumToString),
          m_stringToEnum(stringToEnum) {}

protected:
    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override {
        return this->ElementToXmlEnum(context, owner, writer, m_enumToString);
    }

    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner, CXmlElement*,
                        CXmlElement** child, char16_t const*, XmlElementType) override {
        if (!this->IsThisElement(context, *child)) return false;
        this->ReadEnum(owner, child, m_stringToEnum);
        return true;
    }

    EnumToString m_enumToString;
    StringToEnum m_stringToEnum;
};

/// An object of a class that may be a pseudo element.
template <class Family>
class ObjectEntry : public Family {
protected:
    ObjectEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                XmlElementType elementType)
        : Family(elementName, elementNamespace, propertyIndex), m_elementType(elementType) {}

    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override {
        return this->ElementToXmlCls(context, owner, writer, false);
    }

    void PseudoChildAttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                   CXmlWriter* writer) const override {
        if (m_elementType == et_PseudoElement) this->PseudoObjectAttributesToXml(context, owner, writer);
    }

    XmlElementType m_elementType;
};

/// A generated class of which there is one object at most.
template <class Family>
class ClsOptEntry : public ObjectEntry<Family> {
public:
    /// @param createByClass makes the object
    /// @param classId handed to createByClass
    ClsOptEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                XmlElementType elementType, CreateByClass createByClass, int classId)
        : ObjectEntry<Family>(elementName, elementNamespace, propertyIndex, elementType),
          m_createByClass(createByClass),
          m_classId(classId) {}

protected:
    CSmartPtr<CXmlObjectBase> Create() const { return CElementInfo::Create(m_createByClass, m_classId); }

    /// Reads a new object, and stores it if it consumed a child.
    /// @return whether it did
    bool ReadNew(CXmlSerializationContext const& context, CXmlGeneratedClass* owner, CXmlElement* element,
                 CXmlElement** child) {
        bool const isPseudo = this->m_elementType != et_Element;
        if (isPseudo ? *child == nullptr : !this->IsThisElement(context, *child)) return false;
        CSmartPtr<CXmlObjectBase> const object = Create();
        if (!object) return false;
        CXmlElement* const first = *child;
        if (isPseudo) {
            *child = this->FromXml_Int(object, element, first, context, false);
        } else {
            this->ReadTag(object, child, context);
        }
        if (*child == first) return false;
        this->StoreObject(owner, object);
        return true;
    }

    CreateByClass m_createByClass;
    int m_classId;
};

/// A generated class of which there is exactly one object, which the owner provides.
template <class Family>
class ClsMndEntry : public ObjectEntry<Family> {
public:
    /// @param createByClass,classId kept, not used: the object is there
    /// @param mustConsume a pseudo element of a sequence must read a child, an element with a tag of an all
    ///        group must be there; elsewhere it makes no difference
    ClsMndEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                XmlElementType elementType, CreateByClass createByClass, int classId, bool mustConsume)
        : ObjectEntry<Family>(elementName, elementNamespace, propertyIndex, elementType),
          m_mustConsume(mustConsume),
          m_createByClass(createByClass),
          m_classId(classId) {}

protected:
    bool m_mustConsume;
    CreateByClass m_createByClass;
    int m_classId;
};

/// An object whose class the document picks.
template <class Family>
class AbsClsEntry : public ObjectEntry<Family> {
public:
    AbsClsEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                XmlElementType elementType, CreateFromElement createFromElement)
        : ObjectEntry<Family>(elementName, elementNamespace, propertyIndex, elementType),
          m_createFromElement(createFromElement) {}

protected:
    /// Reads and stores an object, if the child is the entry's and has a class.
    bool ReadSubstitution(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                          CXmlElement** child) {
        if (!this->IsThisElement(context, *child)) return false;
        CSmartPtr<CXmlObjectBase> const object = m_createFromElement(*child);
        if (!object) return false;
        this->ReadTag(object, child, context);
        this->StoreObject(owner, object);
        return true;
    }

    CreateFromElement m_createFromElement;
};

/// One untyped element. The element name "AnyElement" admits every local name.
template <class Family>
class UntpdEntry : public Family {
public:
    /// @param allowedNamespaces as for CXmlObjectBase::IsNamespaceValid
    UntpdEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
               char16_t const* allowedNamespaces, char16_t const* targetNamespace)
        : Family(elementName, elementNamespace, propertyIndex),
          m_allowedNamespaces(allowedNamespaces == nullptr ? u"" : allowedNamespaces),
          m_targetNamespace(targetNamespace == nullptr ? u"" : targetNamespace) {}

protected:
    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override {
        return this->ElementToXmlCls(context, owner, writer, false);
    }

    CSmartPtr<CXmlObjectBase> Create(char16_t const* namespaceUri) const {
        return this->CreateUntyped(m_allowedNamespaces, namespaceUri, m_targetNamespace);
    }

    /// Reads a new element, and stores it if it consumed the child.
    /// @return whether it did
    bool ReadNew(CXmlSerializationContext const& context, CXmlGeneratedClass* owner, CXmlElement* element,
                 CXmlElement** child, char16_t const* namespaceUri) {
        CXmlElement* const first = *child;
        if (first == nullptr) return false;
        CSmartPtr<CXmlObjectBase> const object = Create(namespaceUri);
        *child = this->ReadUntyped(object, element, first, context);
        if (*child == first) return false;
        this->StoreObject(owner, object);
        return true;
    }

    wstring m_allowedNamespaces;
    wstring m_targetNamespace;
};

/// A collection of objects of classes that may be pseudo elements.
template <class Col>
class ClsColEntry : public Col {
public:
    ClsColEntry(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                XmlElementType elementType)
        : Col(elementName, elementNamespace, propertyIndex), m_elementType(elementType) {}

protected:
    void PseudoChildAttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                   CXmlWriter* writer) const override {
        if (m_elementType == et_PseudoElement) this->PseudoItemsAttributesToXml(context, owner, writer);
    }

    XmlElementType m_elementType;
};

}  // namespace BxXmlLib5Data
