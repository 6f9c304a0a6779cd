// Objects that do nothing, for tests that override what they need.
#pragma once

#include "BxXmlLib5/binding/CXmlObjectBase.h"

namespace BxTest {

using namespace BxXmlLib5;

/// An object or a collection that writes nothing and takes no child.
template <class Base>
struct Mute : Base {
    using Base::Base;
    void ToXml_Int(CXmlWriter*, bool, char16_t const*, CXmlSerializationContext const&, bool) const override {
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, CXmlSerializationContext const&,
                             bool) override {
        return child;
    }
};

struct Inert : Mute<CXmlObjectBase> {
    CXmlObjectBase* GetBase() override { return this; }
    wstring GetNamespace() const override { return u"own"; }
    wstring GetTargetNamespace() const override { return u"target"; }
};

}  // namespace BxTest
