// What the driver and the entries do, told plainly: a model to compare them with.
#pragma once

#include "binding/TestBinding.h"

namespace BxTest {

using Node = CXmlElement*;

/// An element in one line, which has no prefixes: {namespace}name[attributes](children)text.
inline std::string Line(CXmlElement const* node) {
    std::string attributes, children;
    for (CXmlAttribute const* const attribute : node->GetAttributes()) {
        if (attribute->GetNamespaceURI() == u"http://www.w3.org/2000/xmlns/") continue;
        std::string value = ToUtf8(attribute->GetValue());
        if (attribute->GetLocalName() == u"type") value.erase(0, value.find(':') + 1);
        attributes += " " + ToUtf8(attribute->GetNamespaceURI() + attribute->GetLocalName()) + "=" + value;
    }
    for (Node child = node->GetFirstElement(); child != nullptr; child = child->GetNextSiblingElement())
        children += Line(child);
    return "{" + ToUtf8(node->GetNamespaceURI()) + "}" + ToUtf8(node->GetLocalName()) + "[" + attributes +
           "](" + children + ")" + ToUtf8(node->GetText());
}

/// An object of a TestClass, or untyped content, which is a line.
struct ModelObject {
    TestClass const* m_class = nullptr;
    std::string m_name;
    std::string m_line;
    struct Value {
        bool m_isSet = false;
        std::string m_text;
        std::vector<std::shared_ptr<ModelObject>> m_items;  ///< One, or those of a collection.
    };
    std::vector<Value> m_values;
};

/// Reads and writes objects. Failures are thrown as Failure() tells them.
class Model {
public:
    using Object = std::shared_ptr<ModelObject>;
    using Value = ModelObject::Value;

    explicit Model(std::string settings) : m_settings(std::move(settings)) {}

    Object New(TestClass const& type, std::string const& name) {
        auto const object = std::make_shared<ModelObject>(ModelObject{&type, name, "", {}});
        Reset(*object);
        return object;
    }

    Node Read(ModelObject& object, Node element, Node child, bool allowEmptyChoice = false) {
        Reset(object);
        bool const hasTag = object.m_class->m_info->GetElementType() == et_Element;
        if (hasTag) object.m_name = ToUtf8(element->GetLocalName());
        ReadAttributes(object, element);
        Node next = nullptr;
        switch (object.m_class->m_info->GetElementGroupType()) {
            case egt_Sequence:
                next = ReadSequence(object, element, child, hasTag);
                break;
            case egt_Choice:
                next = ReadChoice(object, element, child, hasTag, allowEmptyChoice);
                break;
            default:
                next = ReadAll(object, element, child, hasTag);
        }
        for (Field const& field : object.m_class->m_fields) {
            if (field.m_kind == Kind::Own) Store(object, field, ToUtf8(element->GetText()));
        }
        return next;
    }

    std::string Write(ModelObject const& object, std::string const& ns, bool allowEmptyChoice = false) {
        if (object.m_class == nullptr) return object.m_line;
        std::string attributes, children, text;
        WriteAttributes(object, attributes);
        WriteContent(object, children, text, allowEmptyChoice);
        return "{" + ns + "}" + object.m_name + "[" + attributes + "](" + children + ")" + text;
    }

    std::string m_log;

private:
    struct Failed {};
    bool Has(char letter) const { return m_settings.find(letter) != std::string::npos; }
    [[noreturn]] static void Fail(std::string const& failure) { throw Failure("!" + failure); }

    static bool IsGroup(Field const& field) { return field.m_elementType == et_PseudoElement; }
    static bool IsAnyName(Field const& field) { return field.m_name == u"_"; }
    static std::string Name(Field const& field) {
        return IsAnyName(field) ? "AnyElement" : ToUtf8(field.m_name);
    }
    static std::string Namespace(Field const& field) { return ToUtf8(NamespaceOf(field.m_name)); }
    static Value& Of(ModelObject& object, Field const& field) {
        return object.m_values[static_cast<std::size_t>(field.m_index)];
    }
    static Value const& Of(ModelObject const& object, Field const& field) {
        return object.m_values[static_cast<std::size_t>(field.m_index)];
    }
    static bool IsElement(Field const& field) { return !field.m_isAttribute && field.m_kind != Kind::Own; }

    bool Is(Field const& field, Node child) const {
        return child != nullptr && child->GetLocalName() == field.m_name &&
               (Has('N') || child->GetNamespaceURI() == NamespaceOf(field.m_name));
    }

    void Reset(ModelObject& object) {
        m_log += "(" + object.m_name + ")";
        object.m_values.clear();
        for (Field const& field : object.m_class->m_fields) {
            Value value;
            bool const isInPlace = field.HoldsObject() && field.m_occurrence != '?';
            if (isInPlace && field.m_kind == Kind::Class)
                value.m_items = {New(*field.m_class, ToUtf8(field.m_name))};
            if (isInPlace && field.m_kind == Kind::Any)
                value.m_items = {std::make_shared<ModelObject>(ModelObject{nullptr, "", "{}new[]()", {}})};
            object.m_values.push_back(value);
        }
    }

    void Store(ModelObject& object, Field const& field, std::string const& text) {
        m_log += ToUtf8(field.m_name) + "=";
        Of(object, field) = {true, text, {}};
    }
    void Store(ModelObject& object, Field const& field, Object const& item) {
        m_log += ToUtf8(field.m_name) + (item ? "=" : "=0");
        Of(object, field).m_items.clear();
        if (item) Of(object, field).m_items = {item};
    }

    void StoreText(ModelObject& object, Field const& field, std::string const& text) {
        static std::map<std::string, std::string> const s_numbers = {
            {"", "0.00"}, {"1", "1.00"}, {"2.5", "2.50"}};
        if (field.m_kind != Kind::Number) return Store(object, field, text);
        if (!s_numbers.contains(text)) Fail("no-double " + text);
        Store(object, field, s_numbers.at(text));
    }

    // Reading.

    void ReadAttributes(ModelObject& object, Node element) {
        std::vector<bool> found(object.m_values.size());
        for (CXmlAttribute const* const attribute : element->GetAttributes()) {
            if (attribute->IsNamespaceAttribute()) continue;
            bool isTaken = false;
            for (Field const& field : object.m_class->m_fields) {
                bool const isSameName = attribute->GetLocalName() == field.m_name;
                bool const isSameNamespace = attribute->GetNamespaceURI() == NamespaceOf(field.m_name);
                bool const ignores = field.m_kind == Kind::Enum && Has('N');
                if (isTaken || !field.m_isAttribute) continue;
                if (field.m_kind == Kind::Any) {
                    Of(object, field).m_text += " " + ToUtf8(attribute->GetNamespaceURI()) +
                                                ToUtf8(attribute->GetLocalName()) + "=" +
                                                ToUtf8(attribute->GetValue());
                } else if (isSameName && (isSameNamespace || ignores)) {
                    StoreText(object, field, ToUtf8(attribute->GetValue()));
                } else {
                    continue;
                }
                isTaken = found[static_cast<std::size_t>(field.m_index)] = true;
            }
            if (!isTaken && object.m_class->m_info->GetFromXmlFailIfAttributeUnknown() && !Has('A'))
                Fail("unexpected " + ToUtf8(attribute->GetLocalName()));
        }
        for (Field const& field : object.m_class->m_fields) {
            bool const isRequired =
                field.m_isAttribute && field.m_occurrence != '?' && field.m_kind != Kind::Any;
            if (isRequired && !found[static_cast<std::size_t>(field.m_index)])
                Fail("no-attribute " + Name(field));
        }
    }

    Node End(Node element, Node child, bool hasTag) {
        if (hasTag && child != nullptr && !Has('E'))
            Fail("left-over " + ToUtf8(element->GetLocalName()) + " " + ToUtf8(child->GetLocalName()));
        return child;
    }

    Node ReadSequence(ModelObject& object, Node element, Node child, bool hasTag) {
        Node const start = child;
        for (Field const& field : object.m_class->m_fields) {
            if (!IsElement(field)) continue;
            while (!TakeInSequence(object, field, element, child, hasTag)) {
                if (!Has('E') || child == nullptr) return start;
                child = child->GetNextSiblingElement();
            }
        }
        return End(element, child, hasTag);
    }

    Node ReadChoice(ModelObject& object, Node element, Node child, bool hasTag, bool allowEmptyChoice) {
        Node const start = child;
        bool found = false;
        for (;;) {
            for (Field const& field : object.m_class->m_fields)
                found = found || (IsElement(field) && TakeInChoice(object, field, element, child));
            if (found || !hasTag || !Has('E') || child == nullptr) break;
            child = child->GetNextSiblingElement();
            if (child == nullptr) break;
        }
        if (!hasTag) return found || allowEmptyChoice ? child : start;
        if (!found && !allowEmptyChoice && !Has('C') && !MayBeEmpty(object))
            Fail("empty-choice " + ToUtf8(element->GetLocalName()));
        return End(element, child, hasTag);
    }

    static bool MayBeEmpty(ModelObject const& object) {
        for (Field const& field : object.m_class->m_fields) {
            if (IsElement(field) && field.IsCollection() && field.m_minOccurs == 0) return true;
        }
        return false;
    }

    Node ReadAll(ModelObject& object, Node element, Node child, bool hasTag) {
        Node const start = child;
        std::vector<bool> found(object.m_values.size());
        for (Node before = nullptr; child != nullptr && child != before;) {
            before = child;
            for (Field const& field : object.m_class->m_fields) {
                auto const index = static_cast<std::size_t>(field.m_index);
                if (IsElement(field) && !found[index])
                    found[index] = TakeInAll(object, field, element, child);
            }
        }
        for (Field const& field : object.m_class->m_fields) {
            if (!IsElement(field)) continue;
            if (field.IsCollection()) {
                TestCount(object, field, true);
                continue;
            }
            bool const mayMiss =
                field.m_occurrence == '?' ||
                (field.m_occurrence == '~' && field.m_kind == Kind::Class && hasTag && !IsGroup(field));
            if (found[static_cast<std::size_t>(field.m_index)] || mayMiss) continue;
            if (hasTag) Fail("missing-in-all " + Name(field));
            return start;
        }
        return End(element, child, hasTag);
    }

    /// The simple part that all families share: a child that is the entry's own.
    bool TakeText(ModelObject& object, Field const& field, Node& child) {
        if (!Is(field, child)) return false;
        StoreText(object, field, ToUtf8(child->GetText()));
        child = child->GetNextSiblingElement();
        return true;
    }

    /// The object in place, in its tag or as a group.
    bool TakeInPlace(ModelObject& object, Field const& field, Node element, Node& child) {
        ModelObject& inner = *Of(object, field).m_items.at(0);
        Node const first = child;
        if (IsGroup(field)) {
            child = Read(inner, element, first);
        } else if (Is(field, first)) {
            Read(inner, first, first->GetFirstElement());
            child = first->GetNextSiblingElement();
        }
        return child != first;
    }

    /// A new object of a class: stored when it has been read or, in a choice, before.
    bool TakeNew(ModelObject& object, Field const& field, Node element, Node& child, bool isChoice) {
        if (IsGroup(field) ? child == nullptr : !Is(field, child)) return false;
        m_log += "new " + Name(field) + "()";
        if (field.m_class == nullptr) return false;
        Object const item = New(*field.m_class, ToUtf8(field.m_name));
        if (isChoice) Store(object, field, item);
        Node const first = child;
        if (IsGroup(field)) {
            child = Read(*item, element, first);
        } else {
            Read(*item, first, first->GetFirstElement(), isChoice);
            child = first->GetNextSiblingElement();
        }
        if (child != first && !isChoice) Store(object, field, item);
        if (child == first && isChoice) Store(object, field, Object());
        return child != first;
    }

    Object Substitute(Node child) {
        wstring const name = child->GetLocalName();
        m_log += "new (" + ToUtf8(name) + ")";
        auto const found = g_classesByName.find(name);
        if (found == g_classesByName.end()) return nullptr;
        return New(*g_classes[static_cast<std::size_t>(found->second)], ToUtf8(name));
    }

    bool TakeAbstract(ModelObject& object, Field const& field, Node& child, bool isChoice) {
        if (!Is(field, child)) return false;
        Object const item = Substitute(child);
        if (isChoice) Store(object, field, item);
        if (!item) return false;
        Read(*item, child, child->GetFirstElement());
        child = child->GetNextSiblingElement();
        if (!isChoice) Store(object, field, item);
        return true;
    }

    /// @return the untyped content, null if the entry does not admit the child
    static Object Untyped(Field const& field, Node& child) {
        if (child == nullptr || !(IsAnyName(field) || child->GetLocalName() == field.m_name)) return nullptr;
        auto const content = std::make_shared<ModelObject>(ModelObject{nullptr, "", Line(child), {}});
        child = child->GetNextSiblingElement();
        return content;
    }

    bool TakeUntypedInPlace(ModelObject& object, Field const& field, Node& child) {
        Object const content = Untyped(field, child);
        if (content) Of(object, field).m_items = {content};
        return content != nullptr;
    }

    bool TakeUntyped(ModelObject& object, Field const& field, Node& child, bool isChoice) {
        if (child == nullptr) return false;
        Object const content = Untyped(field, child);
        if (content || isChoice) Store(object, field, content);
        return content != nullptr;
    }

    /// The run of a collection. An all group does not look at the name of untyped content.
    void TakeRun(ModelObject& object, Field const& field, Node element, Node& child, bool isAll) {
        std::vector<Object>& items = Of(object, field).m_items;
        if (field.m_kind == Kind::Any) {
            bool const isAny = isAll || IsAnyName(field);
            wstring const ns = child == nullptr ? u"" : child->GetNamespaceURI();
            while (child != nullptr &&
                   (isAny || (child->GetLocalName() == field.m_name && child->GetNamespaceURI() == ns))) {
                items.push_back(std::make_shared<ModelObject>(ModelObject{nullptr, "", Line(child), {}}));
                child = child->GetNextSiblingElement();
            }
            return;
        }
        while (child != nullptr && (IsGroup(field) || Is(field, child))) {
            Object const item = field.m_kind == Kind::Abstract ? Substitute(child) : New(*field.m_class, "r");
            if (!item) return;
            Node next = child->GetNextSiblingElement();
            if (IsGroup(field))
                next = Read(*item, element, child);
            else
                Read(*item, child, child->GetFirstElement());
            if (next == child) return;
            child = next;
            items.push_back(item);
        }
    }

    void TestCount(ModelObject const& object, Field const& field, bool isReading) {
        if (Has('#')) return;
        bool const isAny = field.m_kind == Kind::Any;
        if (isReading && !isAny) m_log += "#";
        int const count = static_cast<int>(Of(object, field).m_items.size());
        std::string const name = isAny ? "" : ToUtf8(field.m_name);
        if (field.m_maxOccurs >= 0 && count > field.m_maxOccurs)
            Fail("too-many " + name + " " + std::to_string(field.m_maxOccurs));
        if (count < field.m_minOccurs) Fail("too-few " + name + " " + std::to_string(field.m_minOccurs));
    }

    bool TakeInSequence(ModelObject& object, Field const& field, Node element, Node& child, bool hasTag) {
        bool const isText = !field.HoldsObject();
        if (field.IsCollection()) {
            TakeRun(object, field, element, child, false);
            TestCount(object, field, true);
            return true;
        }
        if (field.m_occurrence == '?') {
            if (isText) TakeText(object, field, child);
            if (field.m_kind == Kind::Class) TakeNew(object, field, element, child, false);
            if (field.m_kind == Kind::Abstract) TakeAbstract(object, field, child, false);
            if (field.m_kind == Kind::Any) TakeUntyped(object, field, child, false);
            return true;
        }
        if (field.m_kind == Kind::Abstract) {
            if (TakeAbstract(object, field, child, false)) return true;
            if (hasTag) Fail("no-substitute " + Name(field));
            return false;
        }
        if (field.m_kind == Kind::Any) {
            if (child == nullptr) Fail("missing " + Name(field));
            if (TakeUntypedInPlace(object, field, child)) return true;
            if (hasTag) Fail("not-from " + Namespace(field));
            return false;
        }
        if (IsGroup(field)) {
            bool const mustConsume = field.m_occurrence == '!';
            bool const isRead =
                !(mustConsume && child == nullptr) && TakeInPlace(object, field, element, child);
            if (!isRead && mustConsume && hasTag) Fail("missing " + Name(field));
            return isRead || !(mustConsume || (child != nullptr && Has('E') && hasTag));
        }
        for (;; child = child->GetNextSiblingElement()) {
            if (isText ? TakeText(object, field, child) : TakeInPlace(object, field, element, child))
                return true;
            if (hasTag && Has('M')) return true;
            bool const skips = Has('E') && (hasTag || (isText && field.m_kind != Kind::Enum));
            if (skips && child != nullptr) continue;
            if (hasTag) Fail("missing " + Name(field));
            return false;
        }
    }

    bool TakeInAll(ModelObject& object, Field const& field, Node element, Node& child) {
        bool const isOpt = field.m_occurrence == '?';
        if (field.IsCollection()) {
            TakeRun(object, field, element, child, true);
            return false;
        }
        if (!field.HoldsObject()) return TakeText(object, field, child);
        if (field.m_kind == Kind::Abstract && child != nullptr) Fail("unreadable");
        if (field.m_kind == Kind::Class && isOpt) return TakeNew(object, field, element, child, false);
        if (field.m_kind == Kind::Class) return TakeInPlace(object, field, element, child);
        if (field.m_kind == Kind::Any && isOpt) return TakeUntyped(object, field, child, false);
        return field.m_kind == Kind::Any && TakeUntypedInPlace(object, field, child);
    }

    bool TakeInChoice(ModelObject& object, Field const& field, Node element, Node& child) {
        if (field.IsCollection()) {
            Node const first = child;
            TakeRun(object, field, element, child, false);
            if (child != first) TestCount(object, field, true);
            return child != first;
        }
        if (!field.HoldsObject()) return TakeText(object, field, child);
        if (field.m_kind == Kind::Class) return TakeNew(object, field, element, child, true);
        if (field.m_kind == Kind::Abstract) return TakeAbstract(object, field, child, true);
        return TakeUntyped(object, field, child, true);
    }

    // Writing.

    static std::string Text(Field const& field, Value const& value) {
        bool const isEnumerator = value.m_text == "zero" || value.m_text == "one" || value.m_text == "two";
        if (field.m_kind == Kind::Enum && !isEnumerator) Fail("no-enum " + Name(field));
        return value.m_text;
    }

    void WriteAttributes(ModelObject const& object, std::string& attributes) {
        CParentElementInfo const& info = *object.m_class->m_info;
        if (info.GetHasBaseClasses() && object.m_name != ToUtf8(info.GetElementName()))
            attributes += " http://www.w3.org/2001/XMLSchema-instancetype=" + ToUtf8(info.GetElementName());
        for (Field const& field : object.m_class->m_fields) {
            Value const& value = Of(object, field);
            if (!field.m_isAttribute) continue;
            if (field.m_kind == Kind::Any) attributes += value.m_text;
            if (field.m_kind == Kind::Any || (field.m_occurrence == '?' && !value.m_isSet)) continue;
            if (!value.m_isSet) Fail("not-set");
            std::string const text = Text(field, value);
            if (field.m_occurrence == '?' && Has('D') && !text.empty() && text == ToUtf8(field.m_default))
                continue;
            attributes += " " + Namespace(field) + Name(field) + "=" + text;
        }
        for (Field const& field : object.m_class->m_fields) {
            if (!IsGroup(field)) continue;
            for (Object const& item : Of(object, field).m_items) WriteAttributes(*item, attributes);
        }
    }

    void WriteContent(ModelObject const& object, std::string& children, std::string& text,
                      bool allowEmptyChoice) {
        bool const isChoice = object.m_class->m_info->GetElementGroupType() == egt_Choice;
        bool isWritten = false;
        for (Field const& field : object.m_class->m_fields) {
            if (IsElement(field) && !(isChoice && isWritten))
                isWritten = WriteField(object, field, children, text) || isWritten;
        }
        if (isChoice && !isWritten && !allowEmptyChoice && !Has('C') && !MayBeEmpty(object))
            Fail("nothing-set");
        for (Field const& field : object.m_class->m_fields) {
            if (field.m_kind == Kind::Own) text += Of(object, field).m_text;
        }
    }

    bool WriteField(ModelObject const& object, Field const& field, std::string& children, std::string& text) {
        Value const& value = Of(object, field);
        if (!field.IsCollection() && !field.HoldsObject()) {
            if (value.m_isSet)
                children += "{" + Namespace(field) + "}" + Name(field) + "[]()" + Text(field, value);
            return value.m_isSet;
        }
        if (field.IsCollection() && !value.m_items.empty()) TestCount(object, field, false);
        bool const isChoice = object.m_class->m_info->GetElementGroupType() == egt_Choice;
        bool const allowsEmpty = isChoice && field.m_kind == Kind::Class && !field.IsCollection();
        for (Object const& item : value.m_items) {
            if (IsGroup(field))
                WriteContent(*item, children, text, allowsEmpty);
            else
                children += Write(*item, Namespace(field), allowsEmpty);
        }
        return !value.m_items.empty();
    }

    std::string m_settings;
};

}  // namespace BxTest
