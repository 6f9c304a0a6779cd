#include "BxXmlLib5/binding/CXmlObjectBase.h"

#include <functional>
#include <thread>

#include "BxXmlLib5/binding/CSmartPtr.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

/// An object that writes what it is told, notes the calls that it gets, and lets the protected helpers be
/// called.
class Object : public CXmlObjectBase {
public:
    explicit Object(char16_t const* name = u"", int* deleted = nullptr) : m_deleted(deleted) {
        SetElementName(name);
    }
    Object(Object const&) = default;
    Object& operator=(Object const&) = default;
    ~Object() override {
        if (m_deleted != nullptr) ++*m_deleted;
    }

    CXmlObjectBase* GetBase() override { return m_base; }
    wstring GetTargetNamespace() const override { return u"target"; }
    wstring GetNamespace() const override { return u"own"; }
    void AttributesToXml_Int(CXmlWriter* writer, CXmlSerializationContext const&) const override {
        m_calls += writer == nullptr ? "attributes;" : "";
    }
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override {
        m_context = &context;
        m_calls +=
            "write " + ToUtf8(namespaceUri) + (isRoot ? " root" : "") + (allowEmptyChoice ? " empty;" : ";");
        if (m_write) m_write(*writer);
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, CXmlSerializationContext const& context,
                             bool allowEmptyChoice) override {
        m_context = &context;
        m_calls += allowEmptyChoice ? "read empty;" : "read;";
        return firstChild;
    }

    using CXmlObjectBase::AttributesToXml_Int;
    using CXmlObjectBase::Choice_CollectionChanged;
    using CXmlObjectBase::Choice_SelectElement;
    using CXmlObjectBase::Choice_SetElementValid;
    using CXmlObjectBase::DoesElementNameMatch;
    using CXmlObjectBase::FromXml_Int;
    using CXmlObjectBase::GetElementName;
    using CXmlObjectBase::IsNamespaceValid;
    using CXmlObjectBase::SetElementName;
    using CXmlObjectBase::TestNamespace;
    using CXmlObjectBase::Throw_IfElementNameDiffers;
    using CXmlObjectBase::Throw_IfPropertyIsNull;
    using CXmlObjectBase::ToXml_Int;

    CXmlObjectBase* m_base = this;
    std::function<void(CXmlWriter&)> m_write;
    mutable std::string m_calls;
    mutable CXmlSerializationContext const* m_context = nullptr;

private:
    int* m_deleted;
};

CXmlSerializationContext const kContext;

std::string ToXml(Object const& object, bool declaration, bool formatted, EOLType eol) {
    return ToUtf8(object.ToXml(declaration, formatted, eol, kContext));
}

TEST(CXmlObjectBase, IsDeletedWithItsLastReference) {
    int deleted = 0;
    auto* const object = new Object(u"", &deleted);
    EXPECT_EQ(object->AddRef(), 1);
    EXPECT_EQ(object->AddRef(), 2);
    EXPECT_EQ(object->Release(), 1);
    CSmartPtr<CXmlObjectBase> pointer = object;
    EXPECT_EQ(object->Release(), 1);
    EXPECT_EQ(deleted, 0);
    pointer = nullptr;
    EXPECT_EQ(deleted, 1);
    auto* const other = new Object(u"", &deleted);
    other->AddRef();
    EXPECT_EQ(other->Release(), 0);
    EXPECT_EQ(deleted, 2);
}

TEST(CXmlObjectBase, CountsReferencesOfSeveralThreads) {
    Object object;
    object.AddRef();
    auto const countUp = [&object] {
        for (int i = 0; i < 20'000; ++i) object.AddRef();
    };
    std::thread one(countUp);
    std::thread two(countUp);
    one.join();
    two.join();
    EXPECT_EQ(object.AddRef(), 40'002);
}

TEST(CXmlObjectBase, CopiesTheNameAndNoReferences) {
    Object source(u"name");
    source.AddRef();
    source.AddRef();
    Object copy = source;
    EXPECT_EQ(copy.GetElementName(), u"name");
    EXPECT_EQ(copy.AddRef(), 1);
    Object assigned(u"old");
    assigned.AddRef();
    assigned = source;
    EXPECT_EQ(assigned.GetElementName(), u"name");
    EXPECT_EQ(assigned.AddRef(), 2);
    EXPECT_EQ(source.AddRef(), 3);
}

TEST(CXmlObjectBase, HoldsAnElementName) {
    Object object(u"a");
    CXmlObjectBase const& constant = object;
    EXPECT_EQ(constant.GetBase(), &object);
    Object::SetElementName(&object, u"b");
    EXPECT_EQ(object.GetElementName(), u"b");
    object.SetElementName(nullptr);
    EXPECT_EQ(object.GetElementName(), u"");
}

TEST(CXmlObjectBase, WritesItselfAsARoot) {
    Object object;
    object.m_write = [](CXmlWriter& writer) {
        writer.WriteStartElement(u"a", u"");
        writer.WriteStartElement(u"b", u"");
        writer.WriteEndElement();
        writer.WriteEndElement();
    };
    EXPECT_EQ(ToXml(object, false, false, eol_LF), "<a><b/></a>");
    EXPECT_EQ(object.m_calls, "write target root;");
    EXPECT_EQ(object.m_context, &kContext);
    EXPECT_EQ(ToXml(object, false, true, eol_CRLF), "<a>\r\n\t<b/>\r\n</a>\r\n");
    EXPECT_EQ(ToXml(object, true, false, eol_CRLF), "<?xml version=\"1.0\"?>\r\n<a><b/></a>");
    EXPECT_EQ(ToXml(object, true, true, eol_LF), "<?xml version=\"1.0\"?>\n<a>\n\t<b/>\n</a>\n");
}

TEST(CXmlObjectBase, PassesOnFailuresOfWriting) {
    Object object;
    for (int eol : {-1, 2}) {
        EXPECT_BX_THROW(ToXml(object, true, true, static_cast<EOLType>(eol)), CBxException,
                        "Invalid EOL type.");
    }
    EXPECT_EQ(object.m_calls, "");
    object.m_write = [](CXmlWriter& writer) { writer.WriteStartElement(u"a", u""); };
    EXPECT_BX_THROW(ToXml(object, true, false, eol_LF), CBxException, "An Element has not been closed.");
    EXPECT_EQ(ToXml(object, false, false, eol_LF), "<a");
    object.m_write = [](CXmlWriter&) { throw CBxValidationException(u"from the object"); };
    EXPECT_BX_THROW(ToXml(object, true, false, eol_LF), CBxValidationException, "from the object");
}

TEST(CXmlObjectBase, ForwardsToOtherObjects) {
    Object const constant;
    Object::AttributesToXml_Int(&constant, nullptr, kContext);
    Object::ToXml_Int(&constant, nullptr, false, u"n", kContext, true);
    Object::ToXml_Int(&constant, nullptr, true, u"m", kContext, false);
    EXPECT_EQ(constant.m_calls, "attributes;write n empty;write m root;");
    Object object;
    CXmlDocument document(st_Default);
    document.LoadXml("<a/>");
    CXmlElement* const element = document.GetDocumentElement();
    EXPECT_EQ(Object::FromXml_Int(&object, nullptr, element, kContext), element);
    EXPECT_EQ(object.m_calls, "read;");
    EXPECT_EQ(object.m_context, &kContext);
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
    auto const message = [](std::string const& name, std::string const& actual) {
        return "This property requrires an element with the name " + name +
               " the element being set has the element name " + actual;
    };
    EXPECT_BX_THROW((object.Throw_IfElementNameDiffers(&value, u"Value"), 0), CBxInvalidParamException,
                    message("Value", "value"));
    value.m_base = &base;
    object.Throw_IfElementNameDiffers(&value, u"base");
    EXPECT_BX_THROW((object.Throw_IfElementNameDiffers(&value, u"value"), 0), CBxInvalidParamException,
                    message("value", "base"));
}

TEST(CXmlObjectBase, KeepsTheStateOfAChoice) {
    struct Row {
        char16_t const* m_selected;
        int m_argument;
        char const* m_expected;  // null if it throws
    };
    Object object;
    std::string const text = " is already set. Only one element within this class bay be set at a time";
    auto const check = [&](char const* helper, std::vector<Row> const& rows, std::string const& property,
                           auto call) {
        for (Row const& row : rows) {
            SCOPED_TRACE(std::string(helper) + " " + ToUtf8(row.m_selected) + " " +
                         std::to_string(row.m_argument));
            wstring selected = row.m_selected;
            std::string const thrown = BxTest::Thrown([&] { call(row.m_argument, selected); });
            EXPECT_EQ(thrown, row.m_expected != nullptr
                                  ? "nothing"
                                  : "CBxInvalidStateException: The Property " + property + text);
            EXPECT_EQ(ToUtf8(selected), row.m_expected != nullptr ? row.m_expected : ToUtf8(row.m_selected));
        }
    };
    check("SetElementValid",
          {{u"m", 0, ""},
           {u"", 0, ""},
           {u"other", 0, ""},
           {u"m", 1, "m"},
           {u"", 1, "m"},
           {u"other", 1, nullptr}},
          "other",
          [&](int valid, wstring& selected) { object.Choice_SetElementValid(valid != 0, u"m", selected); });
    check("SelectElement",
          {{u"m", 0, ""},
           {u"m", 1, "m"},
           {u"", 0, "m"},
           {u"", 1, "m"},
           {u"other", 0, "other"},
           {u"other", 1, nullptr}},
          "[other]", [&](int value, wstring& selected) {
              object.Choice_SelectElement(u"m", value != 0 ? &object : nullptr, selected);
          });
    check("CollectionChanged",
          {{u"m", 0, ""},
           {u"m", 1, "m"},
           {u"m", 2, "m"},
           {u"m", -1, "m"},
           {u"", 0, ""},
           {u"", 1, "m"},
           {u"", 2, "m"},
           {u"", -1, ""},
           {u"other", 0, "other"},
           {u"other", 1, nullptr},
           {u"other", 2, nullptr},
           {u"other", -1, nullptr}},
          "[other]",
          [&](int count, wstring& selected) { object.Choice_CollectionChanged(u"m", count, selected); });
    wstring prefix = u"m";
    EXPECT_BX_THROW((object.Choice_SelectElement(u"M", &object, prefix), 0), CBxInvalidStateException,
                    "The Property [m]" + text);
}

TEST(CXmlObjectBase, TestsANamespaceAgainstAWildcard) {
    // Which of these namespaces each list accepts: none, t (the target), u and v.
    struct Row {
        char16_t const* m_allowed;
        char16_t const* m_target;
        char const* m_accepted;
    };
    Row const rows[] = {
        {u"##any", u"t", "-tuv"},
        {u"##other", u"t", "-uv"},
        {u"##other", u"", "tuv"},
        {u"##local", u"t", "-"},
        {u"##targetNamespace", u"t", "t"},
        {u"##targetNamespace", u"", "-"},
        {u"##local ##targetNamespace", u"t", "-t"},
        {u"##targetNamespace ##local", u"t", "-t"},
        {u"##targetNamespace u", u"t", "-tu"},
        {u"u", u"t", "-u"},
        {u"u v", u"t", "-uv"},
        {u"u ##any", u"t", "-tuv"},
        {u"x ##other", u"u", "-tv"},
        {u"", u"t", "-"},  // one empty token
        {u" ", u"t", "-"},
        {nullptr, u"t", "-"},
        {u"##targetNamespace ", u"t",
         "-t"},  // an empty token admits no namespace, and the others decide the rest
        {u" ##targetNamespace", u"t", "-t"},
        {u"##targetNamespace  ##targetNamespace", u"t", "-t"},
        {u"##targetNamespace ##targetNamespace", u"t", "t"},
        {u"  u", u"t", "-u"},
        {u"u\tv", u"t", "-"},  // only blanks separate
        {u"u\nv", u"t", "-"},
        {u"##Any", u"t", "-"},
        {u"##anything", u"t", "-"},
        {u"##any##other", u"t", "-"},
        {u"##targetNamespace\t", u"t", "-"},
        {u"uv", u"t", "-"},
    };
    Object const object;
    for (Row const& row : rows) {
        std::string accepted;
        for (char16_t const* ns : {u"", u"t", u"u", u"v"}) {
            if (object.IsNamespaceValid(ns, row.m_allowed, row.m_target))
                accepted += *ns == 0 ? "-" : ToUtf8(ns);
        }
        EXPECT_EQ(accepted, row.m_accepted) << (row.m_allowed == nullptr ? "null" : ToUtf8(row.m_allowed));
    }
    EXPECT_TRUE(object.IsNamespaceValid(nullptr, u"##targetNamespace", nullptr));
}

TEST(CXmlObjectBase, RefusesANamespaceThatAWildcardDoesNotAllow) {
    Object const object;
    object.TestNamespace(u"u", u"##local u", u"t");
    EXPECT_BX_THROW(
        (object.TestNamespace(u"u", u"##local ##targetNamespace", u"t"), 0), CBxInvalidNamespaceException,
        "Invalid namespace [u]. The namespace must be one of [##local ##targetNamespace] where the target "
        "namespace is [t]");
    EXPECT_BX_THROW(
        (object.TestNamespace(nullptr, u"##other", nullptr), 0), CBxInvalidNamespaceException,
        "Invalid namespace []. The namespace must be one of [##other] where the target namespace is []");
}

TEST(CXmlObjectBase, MatchesElementsByNameAndNamespace) {
    struct Row {
        char16_t const* m_name;
        char16_t const* m_namespace;
        bool m_byName;
        bool m_byBoth;
    };
    Row const rows[] = {{u"a", u"n", true, true},      {u"a", u"m", true, false},   {u"a", u"", true, false},
                        {u"A", u"n", false, false},    {u"", u"n", false, false},   {u"a", u"N", true, false},
                        {nullptr, u"n", false, false}, {u"a", nullptr, true, false}};
    CXmlDocument document(st_Default);
    document.LoadXml("<a xmlns='n'/>");
    Object const object;
    CXmlSerializationContext ignoring;
    ignoring.SetIgnoreNamespaces(true);
    CXmlSerializationContext without;
    without.SetSchemaType(st_NoNamespaces);
    for (Row const& row : rows) {
        auto const matches = [&](CXmlSerializationContext const& context) {
            return object.DoesElementNameMatch(context, document.GetDocumentElement(), row.m_name,
                                               row.m_namespace);
        };
        EXPECT_EQ(matches(kContext), row.m_byBoth);
        EXPECT_EQ(matches(ignoring), row.m_byName);
        EXPECT_EQ(matches(without), row.m_byName);
    }
}

}  // namespace
