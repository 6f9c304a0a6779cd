#include "binding/TestBinding.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <map>

#include "BxXmlLib5/binding/CElementInfoAll.h"
#include "BxXmlLib5/binding/CElementInfoChoice.h"
#include "BxXmlLib5/binding/CElementInfoSeq.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/document/CXmlElement.h"

namespace BxTest {

namespace {

std::vector<std::unique_ptr<TestClass>>& Classes() {
    static std::vector<std::unique_ptr<TestClass>> s_classes;
    return s_classes;
}

/// Those that have base classes.
std::map<wstring, int>& ClassesByName() {
    static std::map<wstring, int> s_classes;
    return s_classes;
}

TestClass const& TextClass() {
    static TestClass const& s_class = Class("s(#)");
    return s_class;
}

constexpr char16_t const* kEnumerators[] = {u"zero", u"one", u"two"};

char16_t const* EnumToText(int value) {
    return value >= 0 && value < 3 ? kEnumerators[value] : nullptr;
}

int TextToEnum(char16_t const* text) {
    int value = 0;
    while (value < 3 && wstring(text) != kEnumerators[value]) ++value;
    return value;
}

#define BX_FAMILY(Group)                              \
    using Col = CElementInfo##Group##Col;             \
    using PrimCol = CElementInfo##Group##PrimCol;     \
    using EnumCol = CElementInfo##Group##EnumCol;     \
    using ClsCol = CElementInfo##Group##ClsCol;       \
    using AbsClsCol = CElementInfo##Group##AbsClsCol; \
    using UntpdCol = CElementInfo##Group##UntpdCol;   \
    using PrimOpt = CElementInfo##Group##PrimOpt;     \
    using EnumOpt = CElementInfo##Group##EnumOpt;     \
    using ClsOpt = CElementInfo##Group##ClsOpt;       \
    using AbsClsOpt = CElementInfo##Group##AbsClsOpt; \
    using UntpdOpt = CElementInfo##Group##UntpdOpt;
#define BX_MANDATORY(Group)                           \
    using PrimMnd = CElementInfo##Group##PrimMnd;     \
    using EnumMnd = CElementInfo##Group##EnumMnd;     \
    using ClsMnd = CElementInfo##Group##ClsMnd;       \
    using AbsClsMnd = CElementInfo##Group##AbsClsMnd; \
    using UntpdMnd = CElementInfo##Group##UntpdMnd;

struct Seq {
    BX_FAMILY(Seq) BX_MANDATORY(Seq)
};
struct All {
    BX_FAMILY(All) BX_MANDATORY(All)
};
struct Choice {
    BX_FAMILY(Choice)
};

template <class Entry, class... More>
Entry* New(Field const& field, More const&... more) {
    wstring const name = field.m_name == u"_" ? u"AnyElement" : field.m_name;
    auto const original =
        std::make_unique<Entry>(name.c_str(), wstring(field.m_namespace).c_str(), field.m_index, more...);
    auto copy = std::make_unique<Entry>(*original);
    *copy = *original;
    return copy.release();
}

template <class Entry>
Entry* NewPrim(Field const& field) {
    ItemType const type = field.m_kind == 'P' ? it_i4 : field.m_kind == 'R' ? it_r8 : it_string;
    CPrimitiveRestrictions facets;
    if (field.m_kind == 'F') facets.m_maxLength = 2;
    char16_t const* const format = field.m_kind == 'R' ? u"%.2f" : nullptr;
    if constexpr (std::is_base_of_v<CAttributeInfo, Entry>) {
        return New<Entry>(field, field.m_occurrence == '?', type, format, CWhitespaceUtils::ws_Collapse,
                          facets, wstring(field.m_default).c_str());
    } else {
        return New<Entry>(field, type, format, CWhitespaceUtils::ws_Collapse, facets);
    }
}

template <class Family>
CElementInfo* NewCollection(Field const& field) {
    auto const type = field.m_isPseudo ? et_PseudoElement : et_Element;
    switch (field.m_kind) {
        case 'A':
            return New<typename Family::AbsClsCol>(field, type);
        case 'B':
            return New<typename Family::Col>(field);
        case 'C':
            return New<typename Family::ClsCol>(field, type);
        case 'E':
            return New<typename Family::EnumCol>(field);
        case 'U':
            return New<typename Family::UntpdCol>(field);
        default:
            return New<typename Family::PrimCol>(field);
    }
}

template <class Family>
CElementInfo* NewOptional(Field const& field) {
    auto const type = field.m_isPseudo ? et_PseudoElement : et_Element;
    wstring const allowed = field.m_allowed, target = field.m_target;
    switch (field.m_kind) {
        case 'A':
            return New<typename Family::AbsClsOpt>(field, type, Factory::FromElement);
        case 'C':
            return New<typename Family::ClsOpt>(field, type, Factory::ById, field.m_classId);
        case 'E':
            return New<typename Family::EnumOpt>(field, EnumToText, TextToEnum);
        case 'U':
            return New<typename Family::UntpdOpt>(field, allowed.c_str(), target.c_str());
        default:
            return NewPrim<typename Family::PrimOpt>(field);
    }
}

template <class Family>
CElementInfo* NewMandatory(Field const& field) {
    auto const type = field.m_isPseudo ? et_PseudoElement : et_Element;
    bool const mustConsume = field.m_occurrence == '!';
    wstring const allowed = field.m_allowed, target = field.m_target;
    switch (field.m_kind) {
        case 'A':
            if constexpr (std::is_same_v<Family, All>) {
                return New<typename Family::AbsClsMnd>(field, type, Factory::FromElement, 1);
            } else {
                return New<typename Family::AbsClsMnd>(field, type, Factory::FromElement);
            }
        case 'C':
            return New<typename Family::ClsMnd>(field, type, Factory::ById, field.m_classId, mustConsume);
        case 'E':
            return New<typename Family::EnumMnd>(field, EnumToText, TextToEnum);
        case 'U':
            return New<typename Family::UntpdMnd>(field, allowed.c_str(), target.c_str());
        default:
            return NewPrim<typename Family::PrimMnd>(field);
    }
}

template <class Family>
CElementInfo* NewElement(Field const& field) {
    if (field.m_occurrence == '*') return NewCollection<Family>(field);
    if (field.m_occurrence == '?') return NewOptional<Family>(field);
    if constexpr (!std::is_same_v<Family, Choice>) return NewMandatory<Family>(field);
    throw std::logic_error("a choice has no mandatory member");
}

CAttributeInfo* NewAttribute(Field const& field) {
    bool const optional = field.m_occurrence == '?';
    wstring const allowed = field.m_allowed, target = field.m_target, defaultText = field.m_default;
    switch (field.m_kind) {
        case 'U':
            return New<CAttributeInfoAny>(field, optional, allowed.c_str(), target.c_str(), nullptr);
        case 'E':
            return New<CAttributeInfoEnum>(field, optional, EnumToText, TextToEnum, defaultText.c_str());
        default:
            return NewPrim<CAttributeInfoPrimitive>(field);
    }
}

bool Take(char const*& at, char expected) {
    if (*at != expected) return false;
    ++at;
    return true;
}

/// The characters ahead of any of these.
wstring TakeUntil(char const*& at, char const* ends) {
    std::size_t const length = std::strcspn(at, ends);
    at += length;
    return FromUtf8(std::string_view(at - length, length));
}

wstring NamespaceOf(wstring const& name) {
    return !name.empty() && name[0] >= u'A' && name[0] <= u'Z' ? u"n" : u"";
}

}  // namespace

bool Field::HoldsObject() const {
    return !m_isAttribute && m_occurrence != '*' && (m_kind == 'A' || m_kind == 'C' || m_kind == 'U');
}

TestClass::TestClass(char const*& at) : m_id(static_cast<int>(Classes().size()) - 1) {
    auto const elementType = Take(at, '~') ? et_PseudoElement : et_Element;
    char const group = *at++;
    auto const groupType = static_cast<XmlElementGroupType>(std::strchr("scax", group) - "scax");
    bool const failIfAttributeUnknown = Take(at, '-');
    bool const hasBaseClasses = Take(at, '=');
    wstring const name = TakeUntil(at, "(");
    if (hasBaseClasses) ClassesByName()[name] = m_id;
    Take(at, '(');
    while (!Take(at, ')')) m_fields.push_back(NextField(at));

    Field const* const text = TextField();
    CParentElementInfo const info(groupType, elementType, name.c_str(), NamespaceOf(name).c_str(),
                                  text == nullptr ? -1 : text->m_index, failIfAttributeUnknown,
                                  hasBaseClasses);
    m_info = new CParentElementInfo(info);
    *m_info = info;
    m_elements = new CElementInfo* [m_fields.size() + 1] {};
    m_attributes = new CAttributeInfo* [m_fields.size() + 1] {};
    CElementInfo** element = m_elements;
    CAttributeInfo** attribute = m_attributes;
    for (Field const& field : m_fields) {
        if (field.m_isAttribute) {
            *attribute++ = NewAttribute(field);
        } else if (field.m_kind != '#') {
            *element++ = group == 'a'   ? NewElement<All>(field)
                         : group == 'c' ? NewElement<Choice>(field)
                                        : NewElement<Seq>(field);
        }
    }
}

Field TestClass::NextField(char const*& at) {
    while (Take(at, ' ')) {
    }
    Field field;
    field.m_index = static_cast<int>(m_fields.size());
    field.m_isAttribute = Take(at, '@');
    field.m_kind = *at++;
    if (field.m_kind != '#') {
        field.m_name = TakeUntil(at, "!.?*");
        field.m_namespace = NamespaceOf(field.m_name);
        field.m_occurrence = *at++;
    }
    if (field.m_occurrence == '*' && std::isdigit(*at) != 0) {
        field.m_minOccurs = *at - '0';
        field.m_maxOccurs = at[2] - '0';
        at += 3;
    }
    if (std::strchr("%$&-", *at) != nullptr) field.m_defect = *at++;
    if (field.m_isAttribute && Take(at, '=')) field.m_default = TakeUntil(at, " )");
    if (Take(at, '[')) {
        field.m_allowed = TakeUntil(at, "|");
        field.m_target = TakeUntil(++at, "]");
        ++at;
    }
    if (field.m_kind == 'A') field.m_isPseudo = Take(at, '~');
    if (field.m_kind == 'C' && Take(at, '^')) {
        field.m_classId = m_id;
        field.m_class = this;
    } else if (field.m_kind == 'C' && (*at == '0' || at[1] == '0')) {
        field.m_isPseudo = Take(at, '~');
        ++at;
    } else if (field.m_kind == 'C') {
        field.m_classId = static_cast<int>(Classes().size());
        Classes().emplace_back();
        auto nested = std::make_unique<TestClass>(at);
        field.m_class = nested.get();
        field.m_isPseudo = nested->m_info->GetElementType() == et_PseudoElement;
        Classes()[static_cast<std::size_t>(field.m_classId)] = std::move(nested);
    }
    return field;
}

TestClass::~TestClass() {
    for (int i = 0; i < 2; ++i) TestObject::CleanMetaData(m_info, m_elements, m_attributes);
    EXPECT_TRUE(m_info == nullptr && m_elements == nullptr && m_attributes == nullptr);
}

Field const* TestClass::TextField() const {
    for (Field const& field : m_fields) {
        if (field.m_kind == '#') return &field;
    }
    return nullptr;
}

TestClass& Class(char const* description) {
    std::size_t const id = Classes().size();
    Classes().emplace_back();
    auto type = std::make_unique<TestClass>(description);
    return *(Classes()[id] = std::move(type));
}

CSmartPtr<CXmlObjectBase> Factory::ById(int classId, char16_t const* elementName) {
    t_log += "new " + ToUtf8(elementName) + "()";
    if (classId < 0) return nullptr;
    return new TestObject(*Classes()[static_cast<std::size_t>(classId)], elementName);
}

CSmartPtr<CXmlObjectBase> Factory::FromElement(CXmlElement* element) {
    wstring type = GetElementType(element);
    t_log += "new " + ToUtf8(type) + "(" + ToUtf8(element->GetLocalName()) + ")";
    if (type.empty()) type = element->GetLocalName();
    auto const found = ClassesByName().find(type);
    if (found == ClassesByName().end()) return nullptr;
    return new TestObject(*Classes()[static_cast<std::size_t>(found->second)], type.c_str());
}

TestObject::TestObject(TestClass const& type, char16_t const* name) : m_class(type) {
    SetElementName(name);
    ResetContent();
}

TestObject::~TestObject() {
    StopListening();
}

void TestObject::StopListening() {
    for (BxVariant const& value : m_values) {
        if (value.m_type != it_xmlCollection) continue;
        if (auto const collection = value.GetXmlCollection()) collection->RemoveEventListener(this);
    }
}

void TestObject::ResetContent() {
    StopListening();
    m_selected.clear();
    m_values.clear();
    for (Field const& field : m_class.m_fields) {
        m_values.push_back(Initial(field));
        if (m_class.m_info->GetElementGroupType() != egt_Choice) continue;
        if (m_values.back().m_type != it_xmlCollection) continue;
        m_values.back().GetXmlCollection()->AddEventListener(this);
    }
}

BxVariant TestObject::Initial(Field const& field) {
    BxVariant value;
    if (field.m_defect == '%') return value;
    bool const isUntyped = field.m_kind == 'U' && field.m_defect != '&';
    if (field.m_defect == '$') {
        field.m_kind == 'P' || field.m_kind == 'E' ? value.SetString(u"x") : value.SetI4(7);
    } else if (field.m_isAttribute && isUntyped) {
        value.SetXmlCollection(new CAttributeCol(u"", u"##any", u""));
    } else if (field.m_occurrence == '*' && isUntyped) {
        value.SetXmlCollection(new CElementCol(u"", u"##any", u"", field.m_minOccurs, field.m_maxOccurs));
    } else if (field.m_occurrence == '*' || field.m_defect == '&') {
        value.SetXmlCollection(new TestCol(field));
    } else if (field.HoldsObject()) {
        bool const isOptional = field.m_occurrence == '?' || field.m_kind == 'A';
        value.SetXmlObject(isOptional  ? nullptr
                           : isUntyped ? static_cast<CXmlObjectBase*>(new CElement(
                                             u"new", u"", field.m_allowed.c_str(), field.m_target.c_str()))
                                       : new TestObject(*field.m_class, field.m_name.c_str()));
    }
    return value;
}

void TestObject::AccessProperty(int propertyIndex, bool read, BxVariant& value) {
    auto const index = static_cast<std::size_t>(propertyIndex);
    Field const& field = m_class.m_fields.at(index);
    if (read) {
        value = field.m_defect == '-' ? Initial(field) : m_values[index];
        return;
    }
    bool const isNull = value.m_type == it_xmlObject && value.GetXmlObject() == nullptr;
    t_log += ToUtf8(field.m_name) + (isNull ? "=0" : "=");
    if (m_class.m_info->GetElementGroupType() == egt_Choice) Select(field, value);
    if (field.m_defect != '-') m_values[index] = std::move(value);
    value.Clear();
}

void TestObject::Select(Field const& field, BxVariant const& value) {
    if (!field.HoldsObject())
        return Choice_SetElementValid(value.IsValid(), field.m_name.c_str(), m_selected);
    auto const object = value.GetXmlObject();
    if (object || m_selected == field.m_name) Choice_SelectElement(field.m_name.c_str(), object, m_selected);
}

void TestObject::OnEvent(CXmlObjectBase* source, MsgType, void*) {
    for (Field const& field : m_class.m_fields) {
        BxVariant const& value = m_values[static_cast<std::size_t>(field.m_index)];
        if (value.m_type != it_xmlCollection || value.GetXmlCollection()->GetBase() != source) continue;
        Choice_CollectionChanged(field.m_name.c_str(), value.GetXmlCollection()->GetCount(), m_selected);
    }
}

CXmlElement* TestObject::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                     CXmlSerializationContext const& context, bool allowEmptyChoice) {
    t_log += "{";
    CXmlElement* const next = CXmlGeneratedClass::FromXml_Int(element, firstChild, context, allowEmptyChoice);
    t_log += "}";
    return next;
}

BxVariant& TestObject::operator[](char const* name) {
    for (Field const& field : m_class.m_fields) {
        if (field.m_name == FromUtf8(name)) return m_values[static_cast<std::size_t>(field.m_index)];
    }
    throw std::logic_error(name);
}

TestObject& TestObject::Child(char const* name) {
    return dynamic_cast<TestObject&>(*(*this)[name].GetXmlObject());
}

std::string TestObject::Text(std::string_view settings) const {
    return ToUtf8(ToXml(false, false, eol_LF, Settings(settings)));
}

TestCol::TestCol(Field const& field)
    : CXmlCollection(field.m_name.c_str(), field.m_namespace.c_str(), field.m_minOccurs, field.m_maxOccurs),
      m_field(field) {}

void TestCol::ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                        CXmlSerializationContext const& context, bool allowEmptyChoice) const {
    t_log += "[" + ToUtf8(namespaceUri) + (isRoot || allowEmptyChoice ? "!]" : "]");
    ValidateCount(context);
    for (CNode const* node = FirstNode(); node != nullptr; node = node->m_next) {
        CXmlObjectBase::ToXml_Int(node->m_item, writer, false, namespaceUri, context, false);
    }
}

CXmlElement* TestCol::FromXml_Int(CXmlElement* element, CXmlElement* child,
                                  CXmlSerializationContext const& context, bool) {
    while (child != nullptr) {
        bool const isPseudo = m_field.m_isPseudo;
        if (!isPseudo &&
            !DoesElementNameMatch(context, child, m_field.m_name.c_str(), m_field.m_namespace.c_str())) {
            break;
        }
        CSmartPtr<CXmlObjectBase> item;
        if (m_field.m_kind == 'A') {
            item = Factory::FromElement(child);
        } else {
            item = new TestObject(m_field.m_class == nullptr ? TextClass() : *m_field.m_class);
        }
        if (!item) break;
        CXmlElement* const next = CXmlObjectBase::FromXml_Int(
            item, isPseudo ? element : child, isPseudo ? child : child->GetFirstElement(), context);
        if (isPseudo && next == child) break;
        child = isPseudo ? next : child->GetNextSiblingElement();
        AppendItem(item);
    }
    return child;
}

CXmlSerializationContext Settings(std::string_view letters) {
    auto const has = [&](char letter) { return letters.find(letter) != letters.npos; };
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(has('E'));
    context.SetIgnoreUnknownAttributes(has('A'));
    context.SetIgnoreMissingMandatoryElements(has('M'));
    context.SetIgnoreMissingChoice(has('C'));
    context.SetIgnoreInvalidCollectionCounts(has('#'));
    context.SetIgnoreNamespaces(has('N'));
    context.SetNoOptionalAttributeDefaultOutput(has('D'));
    if (has('2')) context.SetSchemaType(st_NoNamespaces);
    return context;
}

std::string InRoot(std::string_view text) {
    if (text.starts_with("<r") || text.starts_with("CBx")) return std::string(text);
    return text.empty() ? "<r/>" : "<r>" + std::string(text) + "</r>";
}

void ExpectRows(std::initializer_list<Row> rows) {
    for (Row const& row : rows) {
        std::string_view const settings = row.m_settings;
        std::size_t const slash = settings.find('/');
        CSmartPtr<TestObject> const object = new TestObject(Class(row.m_class));
        std::string actual;
        std::string const thrown = Thrown([&] {
            if (row.m_document != nullptr) Read(*object, row.m_document, settings.substr(0, slash));
            actual = object->Text(slash == settings.npos ? settings : settings.substr(slash + 1));
        });
        EXPECT_EQ(thrown == "nothing" ? actual : thrown, InRoot(row.m_expected))
            << std::string(row.m_class).substr(0, 80) << " " << row.m_settings << " "
            << std::string(row.m_document == nullptr ? "" : row.m_document).substr(0, 200);
    }
}

}  // namespace BxTest
