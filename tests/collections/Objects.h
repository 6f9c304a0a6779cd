// Objects that the tests of collections put together.
#pragma once

#include <functional>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "support/Expect.h"

namespace BxTest {

using namespace BxXmlLib5;

inline CXmlSerializationContext const& Defaults() {
    return CXmlSerializationContext::GetDefaultContext();
}

inline std::string Compact(CXmlObjectBase const& object) {
    return ToUtf8(object.ToXml(false, false, eol_LF, Defaults()));
}

/// An object named by a letter; it counts how many of its kind there are.
struct Object : CXmlObjectBase {
    explicit Object(char letter = 'o') : m_letter(letter) { ++s_alive; }
    ~Object() override {
        --s_alive;
        if (m_onEnd) m_onEnd();
    }
    CXmlObjectBase* GetBase() override { return m_base; }
    wstring GetNamespace() const override { return u""; }
    wstring GetTargetNamespace() const override { return u""; }
    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override {
        EXPECT_TRUE(type == 0 && data == nullptr);
        if (m_onEvent) m_onEvent(source);
    }
    void AttributesToXml_Int(CXmlWriter* writer, CXmlSerializationContext const&) const override {
        writer->WriteAttribute(wstring(1, static_cast<char16_t>(m_letter)), u"", u"1");
    }
    void ToXml_Int(CXmlWriter* writer, bool, char16_t const*, CXmlSerializationContext const&,
                   bool) const override {
        writer->WriteText(wstring(1, static_cast<char16_t>(m_letter)));
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, CXmlSerializationContext const&,
                             bool) override {
        return child;
    }
    using CXmlObjectBase::Choice_Read_Collection;

    static inline int s_alive = 0;
    char const m_letter;
    CXmlObjectBase* m_base = this;
    std::function<void()> m_onEnd;
    std::function<void(CXmlObjectBase*)> m_onEvent;
};

class Element : public CElement {
public:
    using CElement::CElement;
    using CElement::CopyXmlElement, CElement::FromXml_Int, CElement::GetTargetNamespace;
};

class ElementCol : public CElementCol {
public:
    using CElementCol::CElementCol;
    using CElementCol::FromXml_Int, CElementCol::FromXmlLockElementName_Int, CElementCol::GetTargetNamespace;
};

class AttributeCol : public CAttributeCol {
public:
    using CAttributeCol::CAttributeCol;
    using CAttributeCol::FromXml_Int, CAttributeCol::GetTargetNamespace;
};

inline void Read(CElement& element, std::string_view text) {
    element.FromXml(FromUtf8(text).c_str());
}

}  // namespace BxTest
