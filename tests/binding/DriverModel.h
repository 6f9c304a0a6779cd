// What the driver and the entries do, told plainly: a model to compare them with.
#pragma once

#include <algorithm>
#include <set>

#include "binding/TestBinding.h"

namespace BxTest {

using Node = CXmlElement*;

/// In one line, without prefixes: {namespace}name[attributes](children)text, where an attribute is a blank,
/// namespace and name, =value.
inline std::string Line(CXmlAttribute const* attribute) {
    std::string value = ToUtf8(attribute->GetValue());
    if (attribute->GetLocalName() == u"type") value.erase(0, value.find(':') + 1);
    return " " + ToUtf8(attribute->GetNamespaceURI() + attribute->GetLocalName()) + "=" + value;
}
inline std::string Line(CXmlElement const* node) {
    std::string attributes, children;
    for (CXmlAttribute const* const attribute : node->GetAttributes()) attributes += Line(attribute);
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
        Store(object, field, field.m_kind == Kind::Number ? Number(text) : text);
    }

    static std::string Number(std::string const& text) {
        static std::map<std::string, std::string> const s_numbers = {
            {"", "0.00"}, {"1", "1.00"}, {"2.5", "2.50"}};
        if (!s_numbers.contains(text)) Fail("no-double " + text);
        return s_numbers.at(text);
    }

    // Reading.

    void ReadAttributes(ModelObject& object, Node element) {
        std::set<int> found;
        for (CXmlAttribute const* const attribute : element->GetAttributes()) {
            if (attribute->IsNamespaceAttribute()) continue;
            auto const takes = [&](Field const& field) {
                bool const ignoresNamespace = field.m_kind == Kind::Enum && Has('N');
                return field.m_isAttribute &&
                       (field.m_kind == Kind::Any ||
                        (attribute->GetLocalName() == field.m_name &&
                         (ignoresNamespace || attribute->GetNamespaceURI() == NamespaceOf(field.m_name))));
            };
            auto const field = std::ranges::find_if(object.m_class->m_fields, takes);
            if (field == object.m_class->m_fields.end()) {
                if (object.m_class->m_info->GetFromXmlFailIfAttributeUnknown() && !Has('A'))
                    Fail("unexpected " + ToUtf8(attribute->GetLocalName()));
                continue;
            }
            found.insert(field->m_index);
            if (field->m_kind == Kind::Any)
                Of(object, *field).m_text += BxTest::Line(attribute);
            else
                StoreText(object, *field, ToUtf8(attribute->GetValue()));
        }
        for (Field const& field : object.m_class->m_fields) {
            bool const isRequired =
                field.m_isAttribute && field.m_occurrence != '?' && field.m_kind != Kind::Any;
            if (isRequired && !found.contains(field.m_index)) Fail("no-attribute " + Name(field));
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

    /// Reads one occurrence of what is no collection. It is stored when it has been read or, in a choice, before.
    /// @return whether a child was consumed
    bool TryOne(ModelObject& object, Field const& field, Node element, Node& child) {
        bool const isChoice = object.m_class->m_info->GetElementGroupType() == egt_Choice;
        Node const first = child;
        if (!field.HoldsObject()) {
            if (!Is(field, first)) return false;
            StoreText(object, field, ToUtf8(first->GetText()));
            child = first->GetNextSiblingElement();
            return true;
        }
        bool const isInPlace = field.m_occurrence != '?' && field.m_kind != Kind::Abstract;
        bool const isHere = field.m_kind == Kind::Any ? first != nullptr
                            : IsGroup(field)          ? isInPlace || first != nullptr
                                                      : Is(field, first);
        if (!isHere) return false;
        Object const item = isInPlace ? Of(object, field).m_items.at(0) : Create(field, first);
        if (!item && field.m_kind == Kind::Class) return false;
        if (!isInPlace && isChoice && field.m_kind != Kind::Any) Store(object, field, item);
        if (!item) return false;
        if (field.m_kind != Kind::Any) {
            child = ReadItem(field, *item, element, first, isChoice && field.m_kind == Kind::Class);
        } else if (IsAnyName(field) || first->GetLocalName() == field.m_name) {
            item->m_line = BxTest::Line(first);
            child = first->GetNextSiblingElement();
        }
        bool const isRead = child != first, isStored = isChoice && field.m_kind != Kind::Any;
        if (!isInPlace && (isRead ? !isStored : isChoice)) Store(object, field, isRead ? item : nullptr);
        return isRead;
    }

    /// @return the first child that was not consumed
    Node ReadItem(Field const& field, ModelObject& item, Node element, Node child, bool allowEmptyChoice) {
        if (IsGroup(field)) return Read(item, element, child);
        Read(item, child, child->GetFirstElement(), allowEmptyChoice);
        return child->GetNextSiblingElement();
    }

    /// What a factory makes of a child, null for nothing.
    Object Create(Field const& field, Node child) {
        if (field.m_kind == Kind::Any) return std::make_shared<ModelObject>();
        if (field.m_kind == Kind::Class) {
            m_log += "new " + Name(field) + "()";
            return field.m_class == nullptr ? nullptr : New(*field.m_class, ToUtf8(field.m_name));
        }
        wstring const name = child->GetLocalName();
        m_log += "new (" + ToUtf8(name) + ")";
        auto const found = g_classesByName.find(name);
        if (found == g_classesByName.end()) return nullptr;
        return New(*g_classes[static_cast<std::size_t>(found->second)], ToUtf8(name));
    }

    /// The run of a collection. An all group does not look at the name of untyped content.
    void TakeRun(ModelObject& object, Field const& field, Node element, Node& child, bool isAll) {
        std::vector<Object>& items = Of(object, field).m_items;
        if (field.m_kind == Kind::Any) {
            bool const isAny = isAll || IsAnyName(field);
            wstring const ns = child == nullptr ? u"" : child->GetNamespaceURI();
            while (child != nullptr &&
                   (isAny || (child->GetLocalName() == field.m_name && child->GetNamespaceURI() == ns))) {
                items.push_back(
                    std::make_shared<ModelObject>(ModelObject{nullptr, "", BxTest::Line(child), {}}));
                child = child->GetNextSiblingElement();
            }
            return;
        }
        while (child != nullptr && (IsGroup(field) || Is(field, child))) {
            if (field.m_kind == Kind::Number) {
                items.push_back(std::make_shared<ModelObject>());
                items.back()->m_line = Line(field, Number(ToUtf8(child->GetText())));
                child = child->GetNextSiblingElement();
                continue;
            }
            Object const item =
                field.m_kind == Kind::Abstract ? Create(field, child) : New(*field.m_class, "r");
            if (!item) return;
            Node const next = ReadItem(field, *item, element, child, false);
            if (next == child) return;
            child = next;
            items.push_back(item);
        }
    }

    void TestCount(ModelObject const& object, Field const& field, bool isReading) {
        if (Has('#')) return;
        bool const isAny = field.m_kind == Kind::Any;
        if (isReading && !isAny && field.m_kind != Kind::Number) m_log += "#";
        int const count = static_cast<int>(Of(object, field).m_items.size());
        std::string const name = isAny ? "" : ToUtf8(field.m_name);
        if (field.m_maxOccurs >= 0 && count > field.m_maxOccurs)
            Fail("too-many " + name + " " + std::to_string(field.m_maxOccurs));
        if (count < field.m_minOccurs) Fail("too-few " + name + " " + std::to_string(field.m_minOccurs));
    }

    bool TakeInSequence(ModelObject& object, Field const& field, Node element, Node& child, bool hasTag) {
        if (field.IsCollection()) {
            TakeRun(object, field, element, child, false);
            TestCount(object, field, true);
            return true;
        }
        if (field.m_occurrence == '?') return TryOne(object, field, element, child), true;
        bool const isText = !field.HoldsObject(), isAny = field.m_kind == Kind::Any;
        bool const mustConsume = isAny || (IsGroup(field) && field.m_occurrence == '!');
        bool const looksFurther = isText || (field.m_kind == Kind::Class && !IsGroup(field));
        for (;; child = child->GetNextSiblingElement()) {
            bool const isOver = mustConsume && child == nullptr;
            if (!isOver && TryOne(object, field, element, child)) return true;
            if (IsGroup(field) && !mustConsume && field.m_kind == Kind::Class)
                return !(child != nullptr && Has('E') && hasTag);
            if (looksFurther && hasTag && Has('M')) return true;
            bool const skips = looksFurther && (hasTag || (isText && field.m_kind != Kind::Enum));
            if (skips && Has('E') && child != nullptr) continue;
            if (!hasTag && !(isAny && isOver)) return false;
            Fail(field.m_kind == Kind::Abstract ? "no-substitute " + Name(field)
                 : isAny && !isOver             ? "not-from " + Namespace(field)
                                                : "missing " + Name(field));
        }
    }

    bool TakeInAll(ModelObject& object, Field const& field, Node element, Node& child) {
        if (field.m_kind == Kind::Abstract && !field.IsCollection() && child != nullptr) Fail("unreadable");
        if (!field.IsCollection()) return TryOne(object, field, element, child);
        TakeRun(object, field, element, child, true);
        return false;
    }

    bool TakeInChoice(ModelObject& object, Field const& field, Node element, Node& child) {
        if (!field.IsCollection()) return TryOne(object, field, element, child);
        Node const first = child;
        TakeRun(object, field, element, child, false);
        if (child != first) TestCount(object, field, true);
        return child != first;
    }

    // Writing.

    static std::string Line(Field const& field, std::string const& text) {
        return "{" + Namespace(field) + "}" + Name(field) + "[]()" + text;
    }

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
            if (value.m_isSet) children += Line(field, Text(field, value));
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
