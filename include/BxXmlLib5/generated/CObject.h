// The base of all generated classes.
#pragma once

#include <memory>
#include <vector>

#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/generated/Class.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5::Generated {

class KeptTypes;

/// A class that a schema describes. It has a property for each element and attribute, and a constant that
/// says what they are in a document:
///
///     class CEmail : public Bx::CObject {
///     public:
///         Bx::Required<Xs::string> Id;
///         Bx::Required<Xs::string> Domain;
///
///         static Bx::Class const kClass;
///
///     protected:
///         Bx::Class const& Describe() const override;
///     };
///
///     constexpr Bx::Row kEmailRows[] = {
///         Bx::Attribute<&CEmail::Id>(u"id"),
///         Bx::Attribute<&CEmail::Domain>(u"domain"),
///     };
///     constinit Bx::Class const CEmail::kClass = Bx::Describe<CEmail>(kSet, u"emailType", kNamespace, kEmailRows);
///     Bx::Class const& CEmail::Describe() const { return kClass; }
///
/// Writing refuses what reading refuses: mandatory values, objects and attributes that are not set, counts out
/// of bounds, and what fits no member of a choice. Copies are deep.
///
/// A document may name a derived type by xsi:type. An object of a class is of the class of that type then. A
/// value is tested against it, and the type is kept and written again as long as the value stays as it was
/// read; so are the attributes of a complex type.
///
/// An object belongs to one thread at a time.
class BXXMLLIB5_API CObject : public CXmlGeneratedClass {
public:
    /// A deep copy, of the same class.
    CSmartPtr<CObject> Clone() const;

    /// Whether the other object is of the same class and all that is set in both is equal.
    bool Equals(CObject const& other) const;

    /// What writing would refuse, a message with the place of each in front. Empty if all is well.
    std::vector<wstring> Validate() const;

    /// The name of the element that the object is written as. It is needed only where several members of a
    /// substitution group have one class: the first of them is taken otherwise.
    using CXmlGeneratedClass::GetElementName;
    using CXmlGeneratedClass::SetElementName;

    CXmlObjectBase* GetBase() override;
    using CXmlObjectBase::GetBase;
    wstring GetNamespace() const override;

protected:
    /// An object without properties; for derived classes, as all that follows.
    CObject();
    /// Copies what its document named by xsi:type for values in it; derived classes copy their properties.
    CObject(CObject const& other);
    /// As the copy does.
    CObject& operator=(CObject const& other);
    ~CObject() override;

    /// The description of the object's own class, which outlives all objects.
    virtual Class const& Describe() const = 0;

    wstring GetTargetNamespace() const override;
    BxXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    BxXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    BxXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    void ResetContent() override;

    /// @throws CBxValidationException if the class is a root and the element another one
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;
    using CXmlGeneratedClass::FromXml_Int;

    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override;
    using CXmlGeneratedClass::ToXml_Int;
    void AttributesToXml_Int(CXmlWriter* writer, CXmlSerializationContext const& context) const override;

private:
    friend struct ObjectAccess;

    /// What its document named by xsi:type for values in it; null for nothing.
    std::unique_ptr<KeptTypes> m_kept;
};

/// A model group that may occur more often than once: an object without an element of its own.
class BXXMLLIB5_API CGroup : public CObject {
protected:
    /// @{
    /// As those of CObject.
    CGroup();
    CGroup(CGroup const& other);
    CGroup& operator=(CGroup const& other);
    /// @}
    ~CGroup() override;
};

}  // namespace BxXmlLib5::Generated
