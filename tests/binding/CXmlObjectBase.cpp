#include "BxXmlLib5/binding/CXmlObjectBase.h"

#include <functional>

#include "BxXmlLib5/binding/CSmartPtr.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

/// Writes what it is told, notes the calls that it gets, and lets the protected helpers be called.
class Object : public CXmlObjectBase {
public:
    explicit Object(char16_t const* name = u"", int* deleted = nullptr) : m_deleted(deleted) {
        SetElementName(name);
    }
    Object(Object const&) = default;
    Object& operator=(Object const&) = default;
    ~Object() override { m_deleted != nullptr ? ++*m_deleted : 0; }

    CXmlObjectBase* GetBase() override { return m_base; }
    wstring GetTargetNamespace() const override { return u"target"; }
    wstring GetNamespace() const override { return u"own"; }
    void AttributesToXml_Int(CXmlWriter*, CXmlSerializationContext const&) const override {
        m_calls += "attributes;";
    }
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* ns,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override {
        m_context = &context;
        m_calls += ToUtf8(ns) + (isRoot ? " root" : "") + (allowEmptyChoice ? " empty;" : ";");
        if (m_write) m_write(*writer);
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, CXmlSerializationContext const&,
                             bool empty) override {
        m_calls += empty ? "read empty;" : "read;";
        return child;
    }
    using Base = CXmlObjectBase;
    using Base::AttributesToXml_Int, Base::ToXml_Int, Base::FromXml_Int, Base::SetElementName,
        Base::GetElementName, Base::Choice_SetElementValid, Base::Choice_SelectElement,
        Base::Choice_CollectionChanged, Base::TestNamespace, Base::IsNamespaceValid,
        Base::DoesElementNameMatch, Base::Throw_IfElementNameDiffers, Base::Throw_IfPropertyIsNull;

    CXmlObjectBase* m_base = this;
    std::function<void(CXmlWriter&)> m_write;
    mutable std::string m_calls;
    mutable CXmlSerializationContext const* m_context = nullptr;
    int* m_deleted;
};

CXmlSerializationContext const kContext;

TEST(CXmlObjectBase, CountsItsReferencesWhichNoCopyTakesAlong) {
    int deleted = 0;
    auto* const object = new Object(u"name", &deleted);
    EXPECT_EQ(object->AddRef(), 1);
    CSmartPtr<CXmlObjectBase> pointer = object;
    Object copy(*object);
    Object assigned(u"old");
    assigned.AddRef();
    assigned = *object;
    EXPECT_EQ(copy.AddRef(), 1);
    EXPECT_EQ(assigned.AddRef(), 2);
    EXPECT_EQ(object->AddRef(), 3);
    Object::SetElementName(object, u"b");
    EXPECT_EQ(object->GetElementName() + copy.GetElementName() + assigned.GetElementName(), u"bnamename");
    assigned.m_deleted = copy.m_deleted = nullptr;
    EXPECT_EQ(object->Release(), 2);
    pointer = nullptr;
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(object->Release(), 0);
    EXPECT_EQ(deleted, 1);
}

TEST(CXmlObjectBase, WritesItselfAsARoot) {
    Object object;
    auto const toXml = [&object](bool declaration, bool formatted, int eol) {
        return ToUtf8(object.ToXml(declaration, formatted, static_cast<EOLType>(eol), kContext));
    };
    EXPECT_BX_THROW(toXml(true, true, 2), CBxException, "Invalid EOL type.");
    EXPECT_EQ(object.m_calls, "");
    object.m_write = [](CXmlWriter& writer) {
        writer.WriteStartElement(u"a", u"");
        writer.WriteEndElement();
    };
    EXPECT_EQ(toXml(false, false, eol_LF) + toXml(false, true, eol_CRLF), "<a/><a/>\r\n");
    EXPECT_EQ(object.m_calls, "target root;target root;");
    EXPECT_EQ(object.m_context, &kContext);
    EXPECT_EQ(toXml(true, false, eol_CRLF), "<?xml version=\"1.0\"?>\r\n<a/>");
    EXPECT_EQ(toXml(true, true, eol_LF), "<?xml version=\"1.0\"?>\n<a/>\n");
    object.m_write = [](CXmlWriter& writer) { writer.WriteStartElement(u"a", u""); };
    EXPECT_BX_THROW(toXml(true, false, eol_LF), CBxException, "An Element has not been closed.");
    EXPECT_EQ(toXml(false, false, eol_LF), "<a");
    object.m_write = [](CXmlWriter&) { throw CBxValidationException(u"from the object"); };
    EXPECT_BX_THROW(toXml(true, false, eol_LF), CBxValidationException, "from the object");
}

TEST(CXmlObjectBase, ForwardsToOtherObjects) {
    Object object;
    Object::AttributesToXml_Int(&object, nullptr, kContext);
    Object::ToXml_Int(&object, nullptr, false, u"n", kContext, true);
    auto* const child = reinterpret_cast<CXmlElement*>(&object);  // passed on, never looked at
    EXPECT_EQ(Object::FromXml_Int(&object, nullptr, child, kContext), child);
    EXPECT_EQ(object.m_calls, "attributes;n empty;read;");
}

TEST(CXmlObjectBase, ChecksAPropertyBeforeItIsSet) {
    Object object;
    Object value(u"value");
    Object base(u"base");
    object.Throw_IfPropertyIsNull(&value, u"p");
    EXPECT_BX_THROW((object.Throw_IfPropertyIsNull(nullptr, u"p"), 0), CBxInvalidParamException,
                    "The Property [p] is mandatory, it may node be NULL");
    object.Throw_IfElementNameDiffers(nullptr, u"p");
    object.Throw_IfElementNameDiffers(&value, u"value");
    std::string const text = "This property requrires an element with the name ";
    EXPECT_BX_THROW((object.Throw_IfElementNameDiffers(&value, u"Value"), 0), CBxInvalidParamException,
                    text + "Value the element being set has the element name value");
    value.m_base = &base;
    object.Throw_IfElementNameDiffers(&value, u"base");
    EXPECT_BX_THROW((object.Throw_IfElementNameDiffers(&value, u"value"), 0), CBxInvalidParamException,
                    text + "value the element being set has the element name base");
}

TEST(CXmlObjectBase, KeepsTheStateOfAChoice) {
    Object object;
    // What is selected after a call, where m, nothing and M was before; ! where the call is refused.
    auto const after = [](std::string const& quotedOther, auto call) {
        std::string states;
        for (wstring const before : {u"m", u"", u"M"}) {
            wstring selected = before;
            std::string const thrown = BxTest::Thrown([&] { call(selected); });
            states += (thrown == "nothing" ? ToUtf8(selected) : "!") + ";";
            if (thrown == "nothing") continue;
            EXPECT_EQ(selected, before);
            EXPECT_EQ(thrown, "CBxInvalidStateException: The Property " + quotedOther +
                                  " is already set. Only one element within this class bay be set at a time");
        }
        return states;
    };
    for (auto const& [valid, expected] : {std::pair(false, ";;;"), {true, "m;m;!;"}}) {
        EXPECT_EQ(after("M", [&, set = valid](wstring& s) { object.Choice_SetElementValid(set, u"m", s); }),
                  expected);
    }
    for (auto const& [value, expected] :
         {std::pair<Object*, char const*>(nullptr, ";m;M;"), {&object, "m;m;!;"}}) {
        EXPECT_EQ(after("[M]", [&, v = value](wstring& s) { object.Choice_SelectElement(u"m", v, s); }),
                  expected);
    }
    for (auto const& [count, expected] :
         {std::pair(0, ";;M;"), {1, "m;m;!;"}, {2, "m;m;!;"}, {-1, "m;;!;"}}) {
        EXPECT_EQ(after("[M]", [&, n = count](wstring& s) { object.Choice_CollectionChanged(u"m", n, s); }),
                  expected);
    }
}

TEST(CXmlObjectBase, TestsANamespaceAgainstAWildcard) {
    // Lists by which of these namespaces they accept: none (-), t, which is the target, u and v.
    std::pair<char const*, std::vector<char16_t const*>> const rows[] = {
        {"-tuv", {u"##any", u"u ##any", u"##targetNamespace ##other"}},
        {"-uv", {u"##other", u"u v"}},
        {"t", {u"##targetNamespace", u"##targetNamespace ##targetNamespace"}},
        {"-tu", {u"##targetNamespace u"}},
        {"-u", {u"u", u"  u", u"u ##local"}},
        {"-t",
         {u"##local ##targetNamespace", u"##targetNamespace ##local", u"##targetNamespace ",
          u" ##targetNamespace", u"##targetNamespace  ##targetNamespace"}},
        {"-",
         {u"##local", u"", nullptr, u" ", u"uv", u"u\tv", u"u\nv", u"##Any", u"##any##other",
          u"##targetNamespace\t"}}};
    Object const object;
    for (auto const& [expected, lists] : rows) {
        for (char16_t const* const list : lists) {
            std::string accepted;
            for (wstring const ns : {u"", u"t", u"u", u"v"}) {
                if (object.IsNamespaceValid(ns.c_str(), list, u"t"))
                    accepted += ns.empty() ? "-" : ToUtf8(ns);
            }
            EXPECT_EQ(accepted, expected) << (list == nullptr ? "null" : ToUtf8(list));
        }
    }
    EXPECT_TRUE(object.IsNamespaceValid(u"u", u"##other", u""));
    EXPECT_TRUE(object.IsNamespaceValid(nullptr, u"##targetNamespace", nullptr));
    object.TestNamespace(u"u", u"##local u", u"t");
    EXPECT_BX_THROW(
        (object.TestNamespace(u"u", u"##local ##targetNamespace", u"t"), 0), CBxInvalidNamespaceException,
        "Invalid namespace [u]. The namespace must be one of [##local ##targetNamespace] where the target "
        "namespace is [t]");
}

TEST(CXmlObjectBase, MatchesElementsByNameAndNamespace) {
    CXmlDocument document(st_Default);
    document.LoadXml("<a xmlns='n'/>");
    CXmlSerializationContext ignoring, without;
    ignoring.SetIgnoreNamespaces(true);
    without.SetSchemaType(st_NoNamespaces);
    // Under the default, with namespaces ignored, and without namespaces.
    auto const matches = [&](char16_t const* name, char16_t const* ns) {
        std::string result;
        for (auto const* context : {&kContext, &std::as_const(ignoring), &std::as_const(without)}) {
            result +=
                Object().DoesElementNameMatch(*context, document.GetDocumentElement(), name, ns) ? '1' : '0';
        }
        return result;
    };
    EXPECT_EQ(matches(u"a", u"n"), "111");
    EXPECT_EQ(matches(u"a", u"N") + matches(u"a", u"") + matches(u"a", nullptr), "011011011");
    EXPECT_EQ(matches(u"A", u"n") + matches(u"", u"n") + matches(nullptr, u"n"), "000000000");
}

}  // namespace
