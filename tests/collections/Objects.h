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

/// An object named by a letter. It counts how many of its kind there are.
class Object : public CXmlObjectBase {
public:
    explicit Object(char letter) : m_letter(letter) { ++s_alive; }
    ~Object() override {
        --s_alive;
        if (m_onEnd) m_onEnd();
    }

    CXmlObjectBase* GetBase() override { return m_base; }
    wstring GetNamespace() const override { return u""; }

    static inline int s_alive = 0;
    char const m_letter;
    CXmlObjectBase* m_base = this;
    std::function<void()> m_onEnd;
    std::function<void(CXmlObjectBase*)> m_onEvent;

    using CXmlObjectBase::Choice_Read_Collection;

protected:
    wstring GetTargetNamespace() const override { return u""; }
    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override {
        EXPECT_EQ(type, 0);
        EXPECT_EQ(data, nullptr);
        if (m_onEvent) m_onEvent(source);
    }
    void AttributesToXml_Int(CXmlWriter* writer, CXmlSerializationContext const&) const override {
        writer->WriteAttribute(wstring(1, static_cast<char16_t>(m_letter)), u"", u"1");
    }
    void ToXml_Int(CXmlWriter*, bool, char16_t const*, CXmlSerializationContext const&, bool) const override {
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, CXmlSerializationContext const&,
                             bool) override {
        return firstChild;
    }
};

/// Its objects as a text of letters, '-' for null.
class Collection : public CXmlCollection {
public:
    explicit Collection(std::string_view letters = {}, int minOccurs = 0, int maxOccurs = -1)
        : CXmlCollection(u"item", u"urn:items", minOccurs, maxOccurs) {
        for (char const letter : letters) {
            CXmlObjectBase* const known = letter == '-' ? nullptr : Find(letter);
            AppendItem(letter == '-' || known != nullptr ? known : new Object(letter));
        }
    }

    /// The first object of that letter, null if there is none.
    Object* Find(char letter) const {
        for (CNode* node = FirstNode(); node != nullptr; node = node->m_next) {
            if (LetterOf(node) == letter)
                return static_cast<Object*>(static_cast<CXmlObjectBase*>(node->m_item));
        }
        return nullptr;
    }

    /// Walks the chain both ways, and finds its end by the place of a new item.
    std::string Letters() {
        std::string letters;
        AppendItem(nullptr);
        CNode* last = nullptr;
        for (CNode* node = FirstNode(); node != nullptr; node = node->m_next) {
            EXPECT_EQ(node->m_prev, last);
            letters += LetterOf(node);
            last = node;
        }
        EXPECT_EQ(GetNodeAtIndex(GetCount() - 1), last);
        EXPECT_EQ(GetCount(), std::ssize(letters));
        RemoveNode(last);
        letters.pop_back();
        return letters;
    }

    int GetCount() const override { return m_claimedCount < 0 ? CXmlCollection::GetCount() : m_claimedCount; }

    int m_claimedCount = -1;
    int m_consumes = 0;  // elements on reading
    int m_reads = 0;

    using CXmlCollection::AddAfterItem;
    using CXmlCollection::AddBeforeItem;
    using CXmlCollection::AddItemAt;
    using CXmlCollection::AppendItem;
    using CXmlCollection::AttributesToXml_Int;
    using CXmlCollection::FirstNode;
    using CXmlCollection::GetElementName;
    using CXmlCollection::GetNodeAtIndex;
    using CXmlCollection::GetNodeForItem;
    using CXmlCollection::PrependItem;
    using CXmlCollection::RemoveNode;

protected:
    void ToXml_Int(CXmlWriter* writer, bool, char16_t const*, CXmlSerializationContext const& context,
                   bool) const override {
        writer->WriteStartElement(u"items", u"");
        AttributesToXml_Int(writer, context);
        writer->WriteEndElement();
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, CXmlSerializationContext const&,
                             bool allowEmptyChoice) override {
        EXPECT_FALSE(allowEmptyChoice);
        ++m_reads;
        for (int i = 0; i < m_consumes; ++i) {
            AppendItem(new Object('r'));
            child = child->GetNextSiblingElement();
        }
        return child;
    }

private:
    static char LetterOf(CNode const* node) {
        return node->m_item ? static_cast<Object const&>(*node->m_item).m_letter : '-';
    }
};

}  // namespace BxTest
