// What the classes of the binding have in common.
#pragma once

#include <iterator>
#include <utility>

#include "BxXmlLib5/BxXmlLib5.h"
#include "MetaData.h"
#include "Properties.h"

namespace Gpx {

/// The base of the classes: everything of the contract with the library that does not depend on the schema.
/// A derived class is named in its own base, and has a static Describe() that makes its metadata.
///
/// Objects are not copied. On the heap they are held by CSmartPtr; those on the stack never are.
template <class Class>
class CGpxClass : public CXmlGeneratedClass {
public:
    CGpxClass(CGpxClass const&) = delete;
    CGpxClass& operator=(CGpxClass const&) = delete;

    CXmlObjectBase* GetBase() override { return this; }
    using CXmlObjectBase::GetBase;
    wstring GetNamespace() const override { return {kNamespace, std::size(kNamespace) - 1}; }

protected:
    explicit CGpxClass(char16_t const* elementName) { SetElementName(elementName); }

    wstring GetTargetNamespace() const override { return kNamespace; }
    CParentElementInfo* GetClassInfo() const override { return Tables().m_class; }
    CElementInfo** GetClassElementInfo() const override { return Tables().m_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables().m_attributes; }

    /// As AccessProperty(), for a property with facets.
    template <class Member>
    void ExchangeChecked(int property, bool read, BxVariant& value, Member& member) {
        if (!read) CheckRestriction(property, value);
        Exchange(read, value, member);
    }

    /// As AccessProperty(), for an object that may be missing.
    template <class T>
    void ExchangeObject(bool read, BxVariant& value, CSmartPtr<T>& member) {
        if (read) {
            value.SetXmlObject(member);
        } else {
            member = dynamic_cast<T*>(static_cast<CXmlObjectBase*>(value.GetXmlObject()));
        }
    }

    /// For the setter of a property with facets: the library's way in tests the value.
    template <class T>
    void Store(int property, T const& member) {
        BxVariant value;
        Put(value, member);
        this->AccessProperty(property, false, value);
    }

    /// For the setter of an object that may be missing.
    /// @throws CBxInvalidParamException if its element has another name; the object stays the caller's
    template <class T>
    void StoreObject(CSmartPtr<T>& member, T* object, char16_t const* name) {
        Throw_IfElementNameDiffers(object, name);
        member = object;
    }

private:
    /// The metadata, made at the first use by whichever thread comes first, and given back at exit.
    static MetaData const& Tables() {
        struct Holder : MetaData {
            Holder() : MetaData(Class::Describe()) {}
            ~Holder() { CleanMetaData(m_class, m_elements, m_attributes); }
        };
        static Holder s_holder;
        return s_holder;
    }

    /// Properties are numbered by the rows of the tables, elements first.
    static void CheckRestriction(int property, BxVariant const& value) {
        MetaData const& tables = Tables();
        int const row = property - tables.m_elementCount;
        if (row < 0) return tables.m_elements[property]->CheckRestriction(value);
        static_cast<CAttributeInfoPrimitive*>(tables.m_attributes[row])->CheckRestriction(value);
    }
};

}  // namespace Gpx
