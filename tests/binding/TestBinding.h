// A binding for tests: generated classes that are described by short texts.
#pragma once

#include <cstring>
#include <map>
#include <memory>
#include <regex>
#include <vector>

#include "BxXmlLib5/binding/CAttributeInfo.h"
#include "BxXmlLib5/binding/CClassfactoryBase.h"
#include "BxXmlLib5/binding/CElementInfoAll.h"
#include "BxXmlLib5/binding/CElementInfoChoice.h"
#include "BxXmlLib5/binding/CElementInfoSeq.h"
#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/collections/TypedCollections.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/values/BxVariant.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "support/Expect.h"

namespace BxTest {

using namespace BxXmlLib5;
using namespace BxXmlLib5Data;

struct TestClass;

/// What the objects note on this thread: (x) for the reset of an object with the name x, x= for a value stored
/// in x, x=0 for a null, new T(x) for the call of a factory, [n] for the write of a collection in a namespace, #
/// for the test of its count.
inline thread_local std::string t_log;

/// What a property is.
enum class Kind {
    Number,    ///< it_r8 with two places; a collection of them is one of the library's
    Text,      ///< it_string, whitespace collapsed
    Short,     ///< the same of at most two characters
    Enum,      ///< zero, one or two
    Class,     ///< a class of its own
    Abstract,  ///< an object whose class the document picks
    Any,       ///< untyped content, a wildcard
    Items,     ///< a collection behind the base of the entries of collections
    Own,       ///< the text of the element itself
};

/// A property: an element, an attribute or the text.
struct Field {
    int m_index = 0;
    bool m_isAttribute = false;
    Kind m_kind = Kind::Own;
    wstring m_name = u"";
    char m_occurrence = '!';  ///< ! one, ~ one that need not be there, ? at most one, * a collection
    int m_minOccurs = 0;
    int m_maxOccurs = -1;
    std::string m_defect = "";
    wstring m_allowed = u"##any";
    wstring m_target = u"";
    wstring m_default = u"";
    TestClass const* m_class = nullptr;
    int m_classId = -1;
    XmlElementType m_elementType = et_Element;

    bool IsCollection() const { return m_occurrence == '*' || (m_isAttribute && m_kind == Kind::Any); }
    bool HoldsObject() const {
        return !IsCollection() && (m_kind == Kind::Class || m_kind == Kind::Abstract || m_kind == Kind::Any);
    }
};

inline wstring NamespaceOf(wstring const& name) {
    return !name.empty() && name[0] >= u'A' && name[0] <= u'Z' ? u"n" : u"";
}

/// The metadata of a class, described much as a schema's content model is:
///
///     a:text, b:number?, c:{x:enum}*     a sequence
///     a:text | p:(b:text, c:text)?       a choice of a and a group, a class without a tag
///     & a:text                           an all group, as a sign ahead of the first field says too
///
/// | of a field | |
/// |---|---|
/// | name | a capital is in the namespace n; _ stands for AnyElement; @ an attribute; # alone the text |
/// | kind | as in Kind; {...} a class, (...) a group; self the class itself, none one that the factory refuses |
/// | occurrence | ~ one that need not be there, ? at most one, * or *1-2 a collection; else exactly one |
/// | [allowed;target] | of any |
/// | =default | of an attribute |
/// | <defect> | <nothing> holds nothing, <other> a value of another kind, <long> a long text, <list> another kind of collection, <forgets> keeps nothing |
///
/// Ahead of the fields: strict for a class that refuses unknown attributes, =Name for one that has base classes
/// and that abstract ones find by its name, unknown for a group of no known type.
/// All entries of the tables are copies, whose originals are gone.
struct TestClass {
    /// @param end what closes the description: } or ) or the end
    TestClass(char const*& at, int id, char end);
    ~TestClass();

    std::vector<Field> m_fields;
    CParentElementInfo* m_info = nullptr;
    CElementInfo** m_elements = nullptr;
    CAttributeInfo** m_attributes = nullptr;

private:
    Field NextField(char const*& at, int id, XmlElementType elementType);
};

/// All classes, which live until the end, and those of a name.
inline std::vector<std::unique_ptr<TestClass>> g_classes;
inline std::map<wstring, int> g_classesByName;

inline TestClass& ParseClass(char const*& at, char end) {
    std::size_t const id = g_classes.size();
    g_classes.emplace_back();
    auto type = std::make_unique<TestClass>(at, static_cast<int>(id), end);
    return *(g_classes[id] = std::move(type));
}

/// @param description as TestClass has it; a group stands in parentheses
inline TestClass& Class(std::string const& description) {
    char const* at = description.c_str();
    return *at == '(' ? ParseClass(++at, ')') : ParseClass(at, '\0');
}

struct Factory : CClassfactoryBase {
    using CClassfactoryBase::GetElementType, CClassfactoryBase::GetElementTypeNamespaceUri;
    static CSmartPtr<CXmlObjectBase> ById(int classId, char16_t const* elementName);
    static CSmartPtr<CXmlObjectBase> FromElement(CXmlElement* element);
};

/// A collection of objects, as generated code defines one for each class.
class TestCol : public CXmlCollection {
public:
    explicit TestCol(Field const& field)
        : CXmlCollection(field.m_name.c_str(), NamespaceOf(field.m_name).c_str(), field.m_minOccurs,
                         field.m_maxOccurs),
          m_field(field) {}
    using CXmlCollection::AppendItem;

    void ValidateCount(CXmlSerializationContext const& context) const override {
        t_log += "#";
        CXmlCollection::ValidateCount(context);
    }

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override {
        t_log += "[" + ToUtf8(namespaceUri) + (isRoot || allowEmptyChoice ? "!]" : "]");
        ValidateCount(context);
        for (CNode const* node = FirstNode(); node != nullptr; node = node->m_next) {
            CXmlObjectBase::ToXml_Int(node->m_item, writer, false, namespaceUri, context, false);
        }
    }
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;

private:
    Field const& m_field;
};

/// An object of a class. It keeps the state of a choice as generated code does.
class TestObject : public CXmlGeneratedClass {
public:
    explicit TestObject(TestClass const& type, char16_t const* name = u"r") : m_class(type) {
        SetElementName(name);
        TestObject::ResetContent();
    }

    CXmlObjectBase* GetBase() override { return this; }
    wstring GetTargetNamespace() const override { return m_target; }
    wstring GetNamespace() const override { return u"own"; }
    CParentElementInfo* GetClassInfo() const override { return m_class.m_info; }
    CElementInfo** GetClassElementInfo() const override { return m_class.m_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return m_class.m_attributes; }
    using CXmlGeneratedClass::CleanMetaData, CXmlGeneratedClass::GetElementName,
        CXmlGeneratedClass::IsElementInList, CXmlGeneratedClass::ToXml_Int;

    void ResetContent() override {
        t_log += "(" + ToUtf8(m_elementName) + ")";
        m_selected.clear();
        m_values.clear();
        for (Field const& field : m_class.m_fields) m_values.push_back(Initial(field));
    }

    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override {
        auto const index = static_cast<std::size_t>(propertyIndex);
        Field const& field = m_class.m_fields.at(index);
        if (read) {
            value = field.m_defect == "forgets" ? Initial(field) : m_values[index];
            return;
        }
        bool const isNull = value.m_type == it_xmlObject && value.GetXmlObject() == nullptr;
        t_log += ToUtf8(field.m_name) + (isNull ? "=0" : "=");
        bool const isMember = !field.m_isAttribute && field.m_kind != Kind::Own;
        if (isMember && m_class.m_info->GetElementGroupType() == egt_Choice) Select(field, value);
        if (field.m_defect != "forgets") m_values[index] = std::move(value);
        value.Clear();
    }

    /// What a property holds, past the setter.
    BxVariant& operator[](char16_t const* name) {
        for (Field const& field : m_class.m_fields) {
            if (field.m_name == name) return m_values[static_cast<std::size_t>(field.m_index)];
        }
        throw std::logic_error(ToUtf8(name));
    }

    TestClass const& m_class;
    wstring m_target;

private:
    static BxVariant Initial(Field const& field);

    void Select(Field const& field, BxVariant const& value) {
        char16_t const* const name = field.m_name.c_str();
        if (!field.HoldsObject()) return Choice_SetElementValid(value.IsValid(), name, m_selected);
        auto const object = value.GetXmlObject();
        if (object || m_selected == name) Choice_SelectElement(name, object, m_selected);
    }

    std::vector<BxVariant> m_values;
    wstring m_selected;
};

inline BxVariant TestObject::Initial(Field const& field) {
    BxVariant value;
    bool const isAny = field.m_kind == Kind::Any;
    if (field.m_defect == "nothing") return value;
    if (field.m_defect == "long") return value.SetString(u"long"), value;
    if (field.m_kind == Kind::Number && field.IsCollection()) {
        value.SetXmlCollection(new Cr8Col(field.m_name.c_str(), NamespaceOf(field.m_name).c_str(),
                                          field.m_minOccurs, field.m_maxOccurs, u"", -1, -1, u"", u"", u"",
                                          u"", -1, CWhitespaceUtils::ws_Collapse, u"%.2f"));
    } else if (field.m_defect == "other") {
        field.m_kind == Kind::Enum ? value.SetString(u"x") : value.SetI4(7);
    } else if (field.IsCollection() && (!isAny || field.m_defect == "list")) {
        value.SetXmlCollection(new TestCol(field));
    } else if (isAny && field.m_isAttribute) {
        value.SetXmlCollection(new CAttributeCol(u"", u"##any", u""));
    } else if (isAny && field.m_occurrence == '*') {
        value.SetXmlCollection(new CElementCol(u"", u"##any", u"", field.m_minOccurs, field.m_maxOccurs));
    } else if (field.HoldsObject() && (field.m_occurrence == '?' || field.m_kind == Kind::Abstract)) {
        value.SetXmlObject(nullptr);
    } else if (isAny) {
        value.SetXmlObject(new CElement(u"new", u"", field.m_allowed.c_str(), field.m_target.c_str()));
    } else if (field.HoldsObject()) {
        value.SetXmlObject(new TestObject(*field.m_class, field.m_name.c_str()));
    }
    return value;
}

inline CXmlElement* TestCol::FromXml_Int(CXmlElement* element, CXmlElement* child,
                                         CXmlSerializationContext const& context, bool) {
    bool const hasTag = m_field.m_elementType == et_Element;
    wstring const& name = m_field.m_name;
    while (child != nullptr &&
           (!hasTag || DoesElementNameMatch(context, child, name.c_str(), NamespaceOf(name).c_str()))) {
        auto const item = m_field.m_kind == Kind::Abstract
                              ? Factory::FromElement(child)
                              : CSmartPtr<CXmlObjectBase>(new TestObject(*m_field.m_class));
        if (!item) break;
        CXmlElement* const next =
            hasTag ? (CXmlObjectBase::FromXml_Int(item, child, child->GetFirstElement(), context),
                      child->GetNextSiblingElement())
                   : CXmlObjectBase::FromXml_Int(item, element, child, context);
        if (next == child) break;
        child = next;
        AppendItem(item);
    }
    return child;
}

inline CSmartPtr<CXmlObjectBase> Factory::ById(int classId, char16_t const* elementName) {
    t_log += "new " + ToUtf8(elementName) + "()";
    if (classId < 0) return nullptr;
    return new TestObject(*g_classes[static_cast<std::size_t>(classId)], elementName);
}

inline CSmartPtr<CXmlObjectBase> Factory::FromElement(CXmlElement* element) {
    wstring type = GetElementType(element);
    t_log += "new " + ToUtf8(type) + "(" + ToUtf8(element->GetLocalName()) + ")";
    if (type.empty()) type = element->GetLocalName();
    auto const found = g_classesByName.find(type);
    if (found == g_classesByName.end()) return nullptr;
    return new TestObject(*g_classes[static_cast<std::size_t>(found->second)], type.c_str());
}

inline char16_t const* EnumToText(int value) {
    return value == 0 ? u"zero" : value == 1 ? u"one" : value == 2 ? u"two" : nullptr;
}

inline int TextToEnum(char16_t const* text) {
    int value = 0;
    while (value < 3 && wstring(text) != EnumToText(value)) ++value;
    return value;
}

/// A copy of an entry that is gone.
template <class Entry, class Base = CElementInfo, class... More>
Base* New(Field const& field, More const&... more) {
    wstring const name = field.m_name == u"_" ? u"AnyElement" : field.m_name;
    auto const original =
        std::make_unique<Entry>(name.c_str(), NamespaceOf(field.m_name).c_str(), field.m_index, more...);
    auto copy = std::make_unique<Entry>(*original);
    *copy = *original;
    return copy.release();
}

#define BX_NEW_MANDATORY(Kind, ...) \
    (group == '&' ? New<CElementInfoAll##Kind>(__VA_ARGS__) : New<CElementInfoSeq##Kind>(__VA_ARGS__))
#define BX_NEW(Kind, ...) \
    (group == '|' ? New<CElementInfoChoice##Kind>(__VA_ARGS__) : BX_NEW_MANDATORY(Kind, __VA_ARGS__))

inline ItemType TypeOf(Field const& field) {
    return field.m_kind == Kind::Number ? it_r8 : it_string;
}

inline char16_t const* FormatOf(Field const& field) {
    return field.m_kind == Kind::Number ? u"%.2f" : nullptr;
}

inline CPrimitiveRestrictions FacetsOf(Field const& field) {
    CPrimitiveRestrictions facets;
    if (field.m_kind == Kind::Short) facets.m_maxLength = 2;
    return facets;
}

/// @param group as a content model writes it: , | &
inline CElementInfo* NewElement(char group, Field const& f) {
    auto const rule = CWhitespaceUtils::ws_Collapse;
    wstring const allowed = f.m_allowed, target = f.m_target;
    bool const isCol = f.m_occurrence == '*', isOpt = f.m_occurrence == '?';
    switch (f.m_kind) {
        case Kind::Abstract:
            if (isCol) return BX_NEW(AbsClsCol, f, f.m_elementType);
            if (isOpt) return BX_NEW(AbsClsOpt, f, f.m_elementType, Factory::FromElement);
            if (group == ',') return New<CElementInfoSeqAbsClsMnd>(f, f.m_elementType, Factory::FromElement);
            return New<CElementInfoAllAbsClsMnd>(f, f.m_elementType, Factory::FromElement, f.m_classId);
        case Kind::Class:
            if (isCol) return BX_NEW(ClsCol, f, f.m_elementType);
            if (isOpt) return BX_NEW(ClsOpt, f, f.m_elementType, Factory::ById, f.m_classId);
            return BX_NEW_MANDATORY(ClsMnd, f, f.m_elementType, Factory::ById, f.m_classId,
                                    f.m_occurrence == '!');
        case Kind::Enum:
            if (isCol) return BX_NEW(EnumCol, f);
            if (isOpt) return BX_NEW(EnumOpt, f, EnumToText, TextToEnum);
            return BX_NEW_MANDATORY(EnumMnd, f, EnumToText, TextToEnum);
        case Kind::Any:
            if (isCol) return BX_NEW(UntpdCol, f);
            if (isOpt) return BX_NEW(UntpdOpt, f, allowed.c_str(), target.c_str());
            return BX_NEW_MANDATORY(UntpdMnd, f, allowed.c_str(), target.c_str());
        case Kind::Items:
            return BX_NEW(Col, f);
        default:
            if (isCol) return BX_NEW(PrimCol, f);
            if (isOpt) return BX_NEW(PrimOpt, f, TypeOf(f), FormatOf(f), rule, FacetsOf(f));
            return BX_NEW_MANDATORY(PrimMnd, f, TypeOf(f), FormatOf(f), rule, FacetsOf(f));
    }
}

inline CAttributeInfo* NewAttribute(Field const& f) {
    bool const optional = f.m_occurrence == '?';
    wstring const allowed = f.m_allowed, target = f.m_target, text = f.m_default;
    if (f.m_kind == Kind::Enum) {
        return New<CAttributeInfoEnum, CAttributeInfo>(f, optional, EnumToText, TextToEnum, text.c_str());
    }
    if (f.m_kind == Kind::Any) {
        return New<CAttributeInfoAny, CAttributeInfo>(f, optional, allowed.c_str(), target.c_str(), nullptr);
    }
    return New<CAttributeInfoPrimitive, CAttributeInfo>(
        f, optional, TypeOf(f), FormatOf(f), CWhitespaceUtils::ws_Collapse, FacetsOf(f), text.c_str());
}

inline bool Take(char const*& at, std::string_view expected) {
    if (!std::string_view(at).starts_with(expected)) return false;
    at += expected.size();
    return true;
}

/// The characters ahead of any of these.
inline wstring TakeUntil(char const*& at, char const* ends) {
    std::size_t const length = std::strcspn(at, ends);
    at += length;
    return FromUtf8(std::string_view(at - length, length));
}

inline TestClass::TestClass(char const*& at, int id, char end) {
    auto const elementType = end == ')' ? et_PseudoElement : et_Element;
    bool const failIfAttributeUnknown = Take(at, "strict");
    Take(at, " ");
    bool const hasBaseClasses = Take(at, "=");
    wstring const name = hasBaseClasses ? TakeUntil(at, " )}") : u"";
    if (hasBaseClasses) g_classesByName[name] = id;
    bool const isUnknown = Take(at, "unknown");
    char group = ',';
    while (*at != end) {
        if (std::strchr(",|&", *at) != nullptr)
            group = *at++;
        else if (!Take(at, " "))
            m_fields.push_back(NextField(at, id, elementType));
    }
    if (end != '\0') ++at;

    m_elements = new CElementInfo* [m_fields.size() + 1] {};
    m_attributes = new CAttributeInfo* [m_fields.size() + 1] {};
    CElementInfo** element = m_elements;
    CAttributeInfo** attribute = m_attributes;
    int text = -1;
    for (Field const& field : m_fields) {
        if (field.m_kind == Kind::Own)
            text = field.m_index;
        else if (field.m_isAttribute)
            *attribute++ = NewAttribute(field);
        else
            *element++ = NewElement(group, field);
    }
    auto const groupType = isUnknown ? 3 : group == ',' ? egt_Sequence : group == '|' ? egt_Choice : egt_All;
    CParentElementInfo const info(static_cast<XmlElementGroupType>(groupType), elementType, name.c_str(),
                                  NamespaceOf(name).c_str(), text, failIfAttributeUnknown, hasBaseClasses);
    m_info = new CParentElementInfo(info);
    *m_info = info;
}

inline Field TestClass::NextField(char const*& at, int id, XmlElementType elementType) {
    static std::pair<char const*, Kind> const s_kinds[] = {
        {"number", Kind::Number}, {"text", Kind::Text},         {"short", Kind::Short},
        {"enum", Kind::Enum},     {"any", Kind::Any},           {"items", Kind::Items},
        {"none", Kind::Class},    {"abstract", Kind::Abstract}, {"self", Kind::Class}};
    Field field;
    field.m_index = static_cast<int>(m_fields.size());
    if (!Take(at, "#")) {
        field.m_isAttribute = Take(at, "@");
        field.m_name = TakeUntil(at, ":");
        char const* const start = ++at;
        bool isGroup = Take(at, "(");
        for (auto const& [word, kind] : s_kinds) {
            if (Take(at, word)) field.m_kind = kind;
        }
        bool const isSelf = *start == 's' && field.m_kind == Kind::Class;
        if (field.m_kind == Kind::Own) {
            field.m_kind = Kind::Class;
            field.m_classId = static_cast<int>(g_classes.size());
            field.m_class = &ParseClass(isGroup ? at : ++at, isGroup ? ')' : '}');
        } else if (isSelf) {
            field.m_class = this;
            field.m_classId = id;
            isGroup = elementType != et_Element;
        } else if (isGroup) {
            ++at;
        }
        if (isGroup) field.m_elementType = et_PseudoElement;
    }
    static std::regex const s_rest(
        R"(([~?]|\*(?:(\d)-(\d))?)?(?:=([^ ,<)}]*))?(?:\[([^;]*);([^\]]*)\])?(?:<(\w+)>)?)");
    std::cmatch rest;
    std::regex_search(at, rest, s_rest, std::regex_constants::match_continuous);
    at = rest[0].second;
    if (rest[1].matched) field.m_occurrence = *rest[1].first;
    if (rest[2].matched) field.m_minOccurs = *rest[2].first - '0', field.m_maxOccurs = *rest[3].first - '0';
    field.m_default = FromUtf8(rest[4].str());
    if (rest[5].matched) field.m_allowed = FromUtf8(rest[5].str()), field.m_target = FromUtf8(rest[6].str());
    field.m_defect = rest[7].str();
    if (field.m_occurrence == '*' && field.m_class == nullptr) field.m_class = &Class("#");
    return field;
}

inline TestClass::~TestClass() {
    for (int i = 0; i < 2; ++i) TestObject::CleanMetaData(m_info, m_elements, m_attributes);
    EXPECT_TRUE(m_info == nullptr && m_elements == nullptr && m_attributes == nullptr);
}

/// Letters: E unknown elements, A unknown attributes, M missing mandatory elements, C missing choices, # counts
/// and N namespaces are ignored; F what is ignored otherwise fails; 2 no namespaces; D no
/// defaults are written.
inline CXmlSerializationContext Settings(std::string_view letters = "") {
    auto const has = [&](char letter) { return letters.find(letter) != letters.npos; };
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(has('E'));
    context.SetIgnoreUnknownAttributes(has('A'));
    context.SetIgnoreMissingMandatoryElements(has('M'));
    context.SetIgnoreMissingChoice(has('C'));
    context.SetIgnoreInvalidCollectionCounts(has('#'));
    context.SetIgnoreNamespaces(has('N'));
    context.SetFailOnIgnoredContent(has('F'));
    context.SetNoOptionalAttributeDefaultOutput(has('D'));
    context.SetSchemaType(has('2') ? st_NoNamespaces : st_Default);
    return context;
}

/// The failures that the tables name, by "!name argument argument".
inline std::string Failure(std::string text) {
    static std::map<std::string, std::string> const s_texts = {
        {"missing", "Failed to find a required element [%]"},
        {"missing-in-all", "Failed to find the mandatory element [%]"},
        {"no-substitute", "Failed to find a suitable substitution element for [%]"},
        {"not-from", "Failed to find the required element from namespace [%]"},
        {"left-over",
         "Failed read all the elements held within the element [%]. The unexpected element [%] remains un processed"},
        {"empty-choice",
         "No child elements within the element [%] were populated. The element represents a choice, so one and only one element should be populated. The element contained no sutable child elements"},
        {"nothing-set",
         "This element is a choice, and as such must have at one (and only one) valid item, currently there are none set"},
        {"too-few", "The Minimum number of [%] elements allowed in this collection is %"},
        {"too-many", "The Maximum number of [%] elements allowed in this collection is %"},
        {"unreadable",
         "CBxException: AllAbsClsMndElm.ProcessXml, has not been implemented fully, contact the vendor's support"},
        {"never", "CBxException: Not implemented, should never be called"},
        {"no-attribute", "Failed to find the required Attribute [%]"},
        {"unexpected", "Unexpected Attribute [%] found."},
        {"element", "Unexpected element [%] found in the element [%]"},
        {"stray", "Unexpected text [%] found in the element [%]"},
        {"root", "The root is the element [%] in the namespace [%], it must be [%] in [%]"},
        {"namespace",
         "CBxInvalidNamespaceException: Invalid namespace [%]. The namespace must be one of [%] where the target namespace is [%]"},
        {"no-double", "CBxInvalidValueException: The value [%] can not be converted to a r8"},
        {"no-enum", "CBxInvalidValueException: Invalid Value for % [3]"},
        {"nothing-there",
         "CBxException: Serialization Data Error : The property should hold an object or a collection, it holds none!"},
        {"other-kind",
         "CBxException: Serialization Data Error : The property should hold a value of type %, it holds %!"},
        {"other-collection",
         "CBxException: Serialization Data Error : The collection should be a %, it was not!"},
        {"not-set", "CBxException: Invalid Type 0 to convert to string"},
        {"objects-too-deep",
         "CBxException: Elements or objects are nested too deeply for what is left of the stack"},
        {"too-deep", "CBxException: Elements are nested more than 1024 levels deep, which is the limit"},
    };
    if (!text.starts_with("!")) return text;
    char const* at = text.c_str() + 1;
    std::string result = s_texts.at(ToUtf8(TakeUntil(at, " ")));
    if (!result.starts_with("CBx")) result = "CBxValidationException: " + result;
    for (std::size_t hole = 0; (hole = result.find('%', hole)) != result.npos;) {
        Take(at, " ");
        result.replace(hole, 1, ToUtf8(TakeUntil(at, " ")));
    }
    return result;
}

/// The text, inside an element r unless it has one.
inline std::string InRoot(std::string const& text) {
    if (text.starts_with("<r")) return text;
    return text.empty() ? "<r/>" : "<r>" + text + "</r>";
}

inline void Read(TestObject& object, std::string const& document, std::string_view settings = "") {
    object.FromXml(FromUtf8(InRoot(document)).c_str(), Settings(settings));
}

inline std::string Written(TestObject const& object, std::string_view settings = "") {
    return ToUtf8(object.ToXml(false, false, eol_LF, Settings(settings)));
}

/// An object of a class is read from a document, unless that is "-", and written.
struct Row {
    std::string m_class;
    std::string m_settings;  ///< For both, or those for reading, a slash, those for writing.
    std::string m_document;
    std::string m_outcome = m_document;  ///< What is written, or !, a failure and its arguments.
};

/// Expects the outcome of each row. What fails is told as class, document and outcomes, long ones cut.
inline void ExpectRows(std::initializer_list<Row> rows) {
    auto const cut = [](std::string const& text) {
        return text.size() < 300 ? text : text.substr(0, 200) + " ... " + text.substr(text.size() - 90);
    };
    for (Row const& row : rows) {
        std::size_t const slash = row.m_settings.find('/');
        CSmartPtr<TestObject> const object = new TestObject(Class(row.m_class));
        std::string written;
        std::string const thrown = Thrown([&] {
            if (row.m_document != "-") Read(*object, row.m_document, row.m_settings.substr(0, slash));
            written = Written(*object, row.m_settings.substr(slash + 1));
        });
        std::string const actual = thrown == "nothing" ? written : thrown;
        std::string const expected =
            row.m_outcome.starts_with("!") ? Failure(row.m_outcome) : InRoot(row.m_outcome);
        if (actual == expected) continue;
        ADD_FAILURE() << "class:    " << cut(row.m_class) << "\nsettings: " << row.m_settings
                      << "\ndocument: " << cut(row.m_document) << "\nexpected: " << cut(expected)
                      << "\nactual:   " << cut(actual);
    }
}

}  // namespace BxTest
