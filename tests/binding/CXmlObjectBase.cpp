#include "BxXmlLib5/binding/CXmlObjectBase.h"

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "support/Expect.h"
#include "support/Inert.h"

using namespace BxXmlLib5;

namespace {

/// Counts its ends, and lets the protected helpers be called.
struct Object : BxTest::Inert {
    explicit Object(char16_t const* name = u"", int* deleted = nullptr) : m_deleted(deleted) {
        SetElementName(name);
    }
    Object(Object const&) = default;
    Object& operator=(Object const&) = default;
    ~Object() override { m_deleted != nullptr ? ++*m_deleted : 0; }

    CXmlObjectBase* GetBase() override { return m_base; }
    using Base = CXmlObjectBase;
    using Base::SetElementName, Base::GetElementName, Base::Choice_SetElementValid,
        Base::Choice_SelectElement, Base::Choice_CollectionChanged, Base::TestNamespace,
        Base::IsNamespaceValid, Base::DoesElementNameMatch, Base::Throw_IfElementNameDiffers,
        Base::Throw_IfPropertyIsNull;

    CXmlObjectBase* m_base = this;
    int* m_deleted;
};

CXmlSerializationContext const kContext;

TEST(CXmlObjectBase, CountsItsReferencesWhichNoCopyTakesAlong) {
    int deleted = 0;
    auto* const object = new Object(u"name", &deleted);
    EXPECT_EQ(object->AddRef(), 1);
    {
        Object copy(*object), assigned(u"old");
        assigned.AddRef();
        assigned = *object;
        EXPECT_EQ(copy.AddRef(), 1);
        EXPECT_EQ(assigned.AddRef(), 2);
        EXPECT_EQ(copy.GetElementName() + assigned.GetElementName(), u"namename");
    }
    EXPECT_EQ(std::exchange(deleted, 0), 2);
    EXPECT_EQ(object->AddRef(), 2);
    EXPECT_EQ(object->Release(), 1);
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(object->Release(), 0);
    EXPECT_EQ(deleted, 1);
}

TEST(CXmlObjectBase, ChecksAPropertyBeforeItIsSet) {
    Object object;
    Object value(u"value");
    Object base(u"base");
    object.Throw_IfPropertyIsNull(&value, u"p");
    EXPECT_BX_THROW((object.Throw_IfPropertyIsNull(nullptr, u"p"), 0), CBxInvalidParamException,
                    "The Property [p] is mandatory, it may node be NULL");
    object.Throw_IfElementNameDiffers(nullptr, u"p");
    value.m_base = &base;
    object.Throw_IfElementNameDiffers(&value, u"base");
    EXPECT_BX_THROW(
        (object.Throw_IfElementNameDiffers(&value, u"value"), 0), CBxInvalidParamException,
        "This property requrires an element with the name value the element being set has the element name base");
}

TEST(CXmlObjectBase, KeepsTheStateOfAChoice) {
    Object object;
    // What a call leaves selected where m, nothing and M was before; ! where it is refused.
    auto const after = [](auto call) {
        std::string states;
        for (wstring selected : {u"m", u"", u"M"}) {
            std::string const thrown = BxTest::Thrown([&] { call(selected); });
            EXPECT_TRUE(thrown == "nothing" || selected == u"M");
            states += (thrown == "nothing" ? ToUtf8(selected) : "!") + ";";
        }
        return states;
    };
    auto const setsValid = [&](bool valid) {
        return after([&](wstring& selected) { object.Choice_SetElementValid(valid, u"m", selected); });
    };
    EXPECT_EQ(setsValid(false) + " " + setsValid(true), ";;; m;m;!;");
    auto const selects = [&](Object* value) {
        return after([&](wstring& selected) { object.Choice_SelectElement(u"m", value, selected); });
    };
    EXPECT_EQ(selects(nullptr) + " " + selects(&object), ";m;M; m;m;!;");
    auto const counts = [&](int count) {
        return after([&](wstring& selected) { object.Choice_CollectionChanged(u"m", count, selected); });
    };
    EXPECT_EQ(counts(0) + " " + counts(1) + " " + counts(-1), ";;M; m;m;!; m;;!;");
    wstring other = u"M";
    std::string const end = " is already set. Only one element within this class bay be set at a time";
    EXPECT_BX_THROW((object.Choice_SetElementValid(true, u"m", other), 0), CBxInvalidStateException,
                    "The Property M" + end);
    EXPECT_BX_THROW((object.Choice_SelectElement(u"m", &object, other), 0), CBxInvalidStateException,
                    "The Property [M]" + end);
}

TEST(CXmlObjectBase, TestsANamespaceAgainstAWildcard) {
    // Lists by which of these namespaces they accept: none (-), t, which is the target, u and v.
    std::pair<char const*, std::vector<char16_t const*>> const rows[] = {
        {"-tuv", {u"u ##any", u"##targetNamespace ##other"}},
        {"-uv", {u"##other", u"u v"}},
        {"t", {u"##targetNamespace"}},
        {"-u", {u"u", u"  u"}},
        {"-t", {u"##local ##targetNamespace", u"##targetNamespace "}},
        {"-", {u"##local", nullptr, u"uv", u"u\tv", u"##Any"}}};
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
    EXPECT_TRUE(object.IsNamespaceValid(nullptr, u"##targetNamespace", nullptr));
    EXPECT_BX_THROW(
        (object.TestNamespace(u"u", u"##local ##targetNamespace", u"t"), 0), CBxInvalidNamespaceException,
        "Invalid namespace [u]. The namespace must be one of [##local ##targetNamespace] where the target "
        "namespace is [t]");
}

TEST(CXmlObjectBase, MatchesElementsByNameAndNamespace) {
    CXmlDocument document(st_Default);
    document.LoadXml("<a xmlns='n'/>");
    CXmlSerializationContext ignoring;
    ignoring.SetIgnoreNamespaces(true);
    // Under the default, and with namespaces ignored.
    auto const matches = [&](char16_t const* name, char16_t const* ns) {
        CXmlElement* const element = document.GetDocumentElement();
        bool const matchesByDefault = Object().DoesElementNameMatch(kContext, element, name, ns);
        return std::pair(matchesByDefault, Object().DoesElementNameMatch(ignoring, element, name, ns));
    };
    EXPECT_EQ(matches(u"a", u"n"), std::pair(true, true));
    EXPECT_EQ(matches(u"a", nullptr), std::pair(false, true));
    EXPECT_EQ(matches(u"A", u"n"), std::pair(false, false));
}

}  // namespace
