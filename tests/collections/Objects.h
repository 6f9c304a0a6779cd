// Objects that the tests of collections put together.
#pragma once

#include <functional>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "support/Expect.h"
#include "support/Inert.h"

namespace BxTest {

using namespace BxXmlLib5;

inline CXmlSerializationContext const& Defaults() {
    return CXmlSerializationContext::GetDefaultContext();
}

inline std::string Compact(CXmlObjectBase const& object) {
    return ToUtf8(object.ToXml(false, false, eol_LF, Defaults()));
}

/// An object named by a letter; it counts how many of its kind there are.
struct Object : Inert {
    explicit Object(char letter = 'o') : m_letter(letter) { ++s_alive; }
    ~Object() override {
        --s_alive;
        if (m_onEnd) m_onEnd();
    }
    CXmlObjectBase* GetBase() override { return m_base; }
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
    using CXmlObjectBase::Choice_Read_Collection;

    static inline int s_alive = 0;
    char const m_letter;
    CXmlObjectBase* m_base = this;
    std::function<void()> m_onEnd;
    std::function<void(CXmlObjectBase*)> m_onEvent;
};

/// A collection of objects, told as a text of their letters, '-' for null.
struct Collection : Mute<CXmlCollection> {
    explicit Collection(std::string_view letters = {}, int minOccurs = 0, int maxOccurs = -1)
        : Mute(u"one-item", u"urn:items", minOccurs, maxOccurs) {
        for (char const letter : letters)
            AppendItem(letter == '-' ? nullptr : Find(letter) != nullptr ? Find(letter) : new Object(letter));
    }
    static char LetterOf(CNode const* node) {
        return node->m_item ? static_cast<Object const&>(*node->m_item).m_letter : '-';
    }
    /// The first object of that letter, null if there is none.
    Object* Find(char letter) const {
        CNode* node = FirstNode();
        while (node != nullptr && LetterOf(node) != letter) node = node->m_next;
        return node == nullptr ? nullptr : static_cast<Object*>(static_cast<CXmlObjectBase*>(node->m_item));
    }
    /// Walks the chain both ways, and finds its end by the place of a new item.
    std::string Letters() {
        std::string letters;
        AppendItem(nullptr);
        CNode* last = nullptr;
        for (CNode* node = FirstNode(); node != nullptr; last = node, node = node->m_next) {
            EXPECT_EQ(node->m_prev, last);
            letters += LetterOf(node);
        }
        EXPECT_EQ(GetNodeAtIndex(GetCount() - 1), last);
        EXPECT_EQ(GetCount(), std::ssize(letters));
        RemoveNode(last);
        letters.pop_back();
        return letters;
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, CXmlSerializationContext const&,
                             bool) override {
        for (int i = 0; i < m_consumes; ++i) child = child->GetNextSiblingElement();
        for (int i = 0; i < m_consumes; ++i) AppendItem(nullptr);
        return child;
    }
    using CXmlCollection::AddAfterItem, CXmlCollection::AddBeforeItem, CXmlCollection::AddItemAt;
    using CXmlCollection::AppendItem, CXmlCollection::AttributesToXml_Int, CXmlCollection::FirstNode,
        CXmlCollection::ItemsToXml, CXmlCollection::PrependItem, CXmlCollection::RemoveNode,
        CXmlCollection::GetElementName, CXmlCollection::GetNodeAtIndex, CXmlCollection::GetNodeForItem,
        CXmlCollection::m_namespace;

    int m_consumes = 0;  // elements, each time that it reads
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
