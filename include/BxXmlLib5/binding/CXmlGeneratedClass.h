// The driver of generated classes.
#pragma once

#include "BxXmlLib5/binding/CParentElementInfo.h"
#include "BxXmlLib5/binding/CXmlObjectBase.h"

namespace BxXmlLib5Data {
class CAttributeInfo;
class CElementInfo;
}  // namespace BxXmlLib5Data

namespace BxXmlLib5 {

struct BxVariant;

/// The base of every generated class. The derived class holds the values of its properties and describes
/// itself by metadata: one CParentElementInfo, a table of elements and a table of attributes. This class
/// walks the tables, to write the object and to read it.
///
/// A read resets the object first, and names an object with a tag for the element that it was read from. A
/// failed read leaves what was stored so far; the object can be read again.
///
/// Objects inside each other take stack, those without a tag included: where little is left, reading and writing
/// throw CBxException.
///
/// The metadata is made by the generated class, once for all its objects, and given back by CleanMetaData().
/// All threads may share it once it is made. An object belongs to one thread at a time.
class BXXMLLIB5_API CXmlGeneratedClass : public CXmlObjectBase {
protected:
    void AttributesToXml_Int(CXmlWriter* writer, CXmlSerializationContext const& context) const override;
    using CXmlObjectBase::AttributesToXml_Int;

    /// @throws CBxValidationException if the object is a choice with no member set, where that is not allowed
    /// @throws CBxException for metadata with an unknown group type, and for a property that holds a value of
    ///         another kind than its metadata says
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override;
    using CXmlObjectBase::ToXml_Int;

    /// @throws CBxValidationException for an attribute or a child that no entry takes, and for what is
    ///         mandatory and not there, unless the context tolerates it; and what the entries throw
    /// @throws CBxException for metadata with an unknown group type, and for a property that should hold an
    ///         object or a collection and holds none
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;
    using CXmlObjectBase::FromXml_Int;

    /// The one door to the values of the properties.
    ///
    /// | property | what the variant holds |
    /// |---|---|
    /// | simple type | its kind; invalid for a property that is not set |
    /// | enumeration | it_i4; invalid for a property that is not set |
    /// | generated class, CElement | it_xmlObject; null for a property that is not set |
    /// | collection of any kind | it_xmlCollection; never null, never stored |
    /// | text of the element | it_string |
    ///
    /// @param propertyIndex as the metadata gives it
    /// @param read true to fill value from the property, which const operations do too; false to store value
    ///        in the property, which may move it out
    virtual void AccessProperty(int propertyIndex, bool read, BxVariant& value) = 0;

    /// The same object at every call.
    virtual BxXmlLib5Data::CParentElementInfo* GetClassInfo() const = 0;
    /// The elements in document order, ended by a null; never null itself.
    virtual BxXmlLib5Data::CElementInfo** GetClassElementInfo() const = 0;
    /// The attributes, ended by a null; never null itself.
    virtual BxXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const = 0;

    /// Brings the object to its initial state: each mandatory property of a class holds an object, each
    /// property that is a collection holds its collection.
    virtual void ResetContent() = 0;

public:
    /// No element name; the derived class sets it.
    CXmlGeneratedClass();
    /// @{
    /// Takes what CXmlObjectBase copies; properties are the derived class's.
    CXmlGeneratedClass(CXmlGeneratedClass const& other);
    CXmlGeneratedClass& operator=(CXmlGeneratedClass const& other);
    /// @}
    ~CXmlGeneratedClass() override;

protected:
    /// Offers each attribute of an element to the entries, but for infrastructure
    /// (CXmlAttribute::IsNamespaceAttribute), and then lets each entry test whether it is content.
    /// @param failIfUnknown an attribute that no entry takes is an error, unless the context ignores it
    /// @throws CBxValidationException for such an attribute, and what the entries throw
    void ProcessAttributesFromXml(CXmlSerializationContext const& context, CXmlElement* element,
                                  bool failIfUnknown);

    /// Whether the table of elements has one of the name and, unless the context ignores namespaces, of the
    /// namespace of this one.
    /// @param element null gives false
    bool IsElementInList(CXmlSerializationContext const& context, CXmlElement* element) const;

    /// Whether the object, a choice, has a member that is a collection without a minimum: such a member may
    /// be chosen and have no items.
    bool DoesElementContainOptionalElementCollections() const;

    /// AccessProperty() for reading, of an object that is not to be changed.
    void ReadProperty(int propertyIndex, BxVariant& value) const;

    /// Deletes metadata, the entries of the tables included, and sets the pointers to null. Nulls are
    /// accepted.
    static void CleanMetaData(BxXmlLib5Data::CParentElementInfo*& parent,
                              BxXmlLib5Data::CElementInfo**& elements,
                              BxXmlLib5Data::CAttributeInfo**& attributes);

private:
    friend class CXmlObjectBase;
    friend class BxXmlLib5Data::CElementInfo;
    friend class BxXmlLib5Data::CAttributeInfo;

    void StartElementToXml(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                           CXmlSerializationContext const& context, bool allowEmptyChoice) const;
    void TextToXml(int textPropertyIndex, CXmlWriter* writer) const;

    void ProcessAttributesToXml(CXmlSerializationContext const& context,
                                BxXmlLib5Data::CElementInfo** elements,
                                BxXmlLib5Data::CAttributeInfo** attributes, CXmlWriter* writer) const;
    void ProcessElementSeqToXml(CXmlSerializationContext const& context,
                                BxXmlLib5Data::CElementInfo** elements, CXmlWriter* writer) const;
    void ProcessElementAllToXml(CXmlSerializationContext const& context,
                                BxXmlLib5Data::CElementInfo** elements, CXmlWriter* writer) const;
    void ProcessElementChoiceToXml(CXmlSerializationContext const& context,
                                   BxXmlLib5Data::CElementInfo** elements, CXmlWriter* writer,
                                   bool allowEmptyChoice) const;

    void TestRoot(CXmlElement const& root, CXmlSerializationContext const& context) const;
    CXmlElement* ReadFrom(CXmlElement* element, CXmlElement* firstChild,
                          CXmlSerializationContext const& context, bool allowEmptyChoice);
    CXmlElement* ProcessElementSeqFromXml(CXmlSerializationContext const& context, CXmlElement* element,
                                          CXmlElement* child, BxXmlLib5Data::XmlElementType elementType);
    CXmlElement* ProcessElementAllFromXml(CXmlSerializationContext const& context, CXmlElement* element,
                                          CXmlElement* child, BxXmlLib5Data::XmlElementType elementType);
    CXmlElement* ProcessElementChoiceFromXml(CXmlSerializationContext const& context, CXmlElement* element,
                                             CXmlElement* child, BxXmlLib5Data::XmlElementType elementType,
                                             bool allowEmptyChoice);
};

}  // namespace BxXmlLib5
