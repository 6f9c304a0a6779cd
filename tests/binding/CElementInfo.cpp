#include "BxXmlLib5/binding/CElementInfo.h"

#include <array>

#include "BxXmlLib5/values/CBinaryData.h"
#include "binding/TestBinding.h"
#include "writers/CXmlTextWriter.h"

using namespace BxTest;

namespace {

static_assert(std::is_abstract_v<CElementInfoSeqNonCol> && std::is_abstract_v<CElementInfoAllNonCol>);

struct Entry : CElementInfo {
    static bool IsContent(CElementInfo const& entry, TestObject const& owner) {
        return (entry.*&Entry::Validate)(Settings(), &owner, true, true);
    }
    using CElementInfo::GetAnyDefaultNamespace;
};

TEST(ElementInfo, IsValidatedInAnAllGroupOnly) {
    for (std::string const kind : {"text?", "text*", "enum?", "{}?", "{}*", "abstract?", "any?", "any*"}) {
        for (std::string const group : {"| ", ", "}) {
            TestObject const owner(Class(group + "e:" + kind));
            EXPECT_EQ(Thrown([&] { Entry::IsContent(*owner.m_class.m_elements[0], owner); }),
                      Failure("!never"))
                << group << kind;
        }
    }
}

TEST(ElementInfo, ReadsByFactoriesNamespacesAndCounts) {
    ExpectRows({
        {"_:any[##local;]", "", "<b xmlns='u'/>", "!not-from "},
        {"p:(_:any)?, x:text?", "", "<b/>"},
        {"_:any?[##other;t]", "", "<b xmlns='t'/>", "!left-over r b"},
        {"e:any?[##other;]", "", "<b/>", "!namespace  ##other "},
        {"| e:any?[##other;]", "", "<b/>", "!namespace  ##other "},
    });
}

/// The attributes of the classes that may be pseudo elements, in the tag of their owner.
TEST(ElementInfo, WritesTheAttributesOfPseudoElements) {
    for (std::string const kind : {"{@k:text?}", "(@k:text?)", "abstract", "(abstract)", "items"}) {
        for (std::string const field :
             {", p:X", ", p:X~", ", p:X?", ", p:X*", "& p:X", "& p:X?", "& p:X*", "| p:X?", "| p:X*"}) {
            bool const isCollection = field.back() == '*', isGroup = kind[0] == '(';
            if (kind == "items" && !isCollection) continue;
            std::string description = field;
            TestObject owner(Class(description.replace(4, 1, kind)));
            SCOPED_TRACE(description);
            CSmartPtr<TestObject> const child =
                new TestObject(Class(isGroup ? "(@k:text?)" : "@k:text?"), u"p");
            (*child)[u"k"].SetString(u"1");
            if (isCollection)
                dynamic_cast<TestCol&>(*owner[u"p"].GetXmlCollection()).AppendItem(child);
            else
                owner[u"p"].SetXmlObject(child);
            EXPECT_EQ(Written(owner), isGroup ? "<r k=\"1\"/>" : "<r><p k=\"1\"/></r>");
            if (isCollection) continue;
            owner[u"p"].SetXmlObject(nullptr);
            EXPECT_EQ(Written(owner, "C"), "<r/>");
        }
    }
}

TEST(ElementInfo, HandsOnHowToWrite) {
    TestObject object(Class("A:{}, B:text*, C:{}?"));
    object[u"C"].SetXmlObject(new TestObject(Class(""), u"other"));
    dynamic_cast<TestCol&>(*object[u"B"].GetXmlCollection()).AppendItem(new TestObject(Class(""), u"b"));
    t_log.clear();
    std::string const ns = " xmlns:AA=\"n\"/>";
    EXPECT_EQ(Written(object), "<r><AA:A" + ns + "<AA:b" + ns + "<AA:other" + ns + "</r>");
    EXPECT_EQ(t_log, "[n]#");
}

/// Stands for another collection, and adds an attribute to the tag of its owner.
struct Stand : TestCol {
    Stand(Field const& field, TestCol* other) : TestCol(field), m_other(other) {}
    using TestCol::GetBase;
    CXmlObjectBase* GetBase() override { return m_other; }
    void AttributesToXml_Int(CXmlWriter* writer, CXmlSerializationContext const&) const override {
        writer->WriteAttribute(u"own", u"", u"1");
    }
    CSmartPtr<TestCol> m_other;
};

TEST(ElementInfo, AsksTheObjectsThemselves) {
    TestClass const& type = Class("a:(b:text)*");
    TestObject object(type);
    CSmartPtr<TestCol> const other = new TestCol(type.m_fields[0]);
    other->AppendItem(new TestObject(Class("@k:number?"), u"b"));
    CSmartPtr<Stand> const stand = new Stand(type.m_fields[0], other);
    stand->AppendItem(new TestObject(Class(""), u"c"));
    object[u"a"].SetXmlCollection(stand);
    EXPECT_EQ(Written(object), "<r own=\"1\"><b/></r>");
    struct Adorned : TestObject {
        using TestObject::TestObject;
        void AttributesToXml_Int(CXmlWriter* writer, CXmlSerializationContext const&) const override {
            writer->WriteAttribute(u"own", u"", u"2");
        }
    };
    EXPECT_EQ(Written(Adorned(Class("@k:text?"))), "<r own=\"2\"/>");
}

TEST(ElementInfo, TestsAValueBeforeItBeginsTheElement) {
    TestObject object(Class("a:text, b:short"));
    object[u"a"].SetString(u"1");
    object[u"b"].SetString(u"abc");
    CXmlTextWriter writer;
    writer.SetFormatting(false);
    EXPECT_BX_THROW((object.ToXml_Int(&writer, false, u"", Settings(), false), 0), CBxException,
                    "Invalid Value for b [abc]");
    EXPECT_EQ(ToUtf8(writer.GetString()), "<r><a>1</a>");
}

TEST(ElementInfo, CutsNoValueAtAUnitOfZero) {
    TestObject source(Class("@k:text?")), wildcard(Class("@_:any")), enumeration(Class("@k:enum"));
    wstring const text(u"one\0x", 5);
    source[u"k"].SetString(text);
    CBinaryData const document = source.ToFastInfosetStream(fi_None, Settings(), cmp_None);
    wildcard.FromXmlStream(document, Settings());
    auto const attributes = wildcard[u"_"].GetXmlCollection();
    EXPECT_EQ(dynamic_cast<CAttributeCol&>(*attributes).Item(0)->GetValue(), text);
    EXPECT_BX_THROW((enumeration.FromXmlStream(document, Settings()), 0), CBxInvalidValueException,
                    "Invalid Value for k, it has a unit of value 0");
}

/// A choice entry as generated code derives it from one of the library's.
struct OwnCol : CElementInfoChoicePrimCol {
    using CElementInfoChoicePrimCol::CElementInfoChoicePrimCol;
};

TEST(ElementInfo, CountsACollectionThatIsDerivedFromOneOfAChoice) {
    TestClass& type = Class("| a:text*");
    delete std::exchange(type.m_elements[0], new OwnCol(u"a", u"", 0));
    TestObject object(type);
    Read(object, "");
    EXPECT_EQ(Written(object), "<r/>");
}

TEST(ElementInfo, RefusesBadValues) {
    ExpectRows({{"a:text", "", "<a> x  y </a>", "<a>x y</a>"}, {"a:enum", "", "<a> one</a>", "!no-enum a"}});
    for (std::string const type : {"a:short", "| a:short?", "& a:short?", "@a:short?=x", "@a:short"}) {
        TestObject object(Class(type));
        object[u"a"].SetString(u"abc");
        EXPECT_TRUE(Thrown([&] { Written(object); }).starts_with("CBxException: ")) << type;
    }
    BxVariant value;
    value.SetString(u"abc");
    EXPECT_BX_THROW((Class("a:enum").m_elements[0]->CheckRestriction(value), 0), CBxException,
                    "Cannot CheckRestriction for type: string");
}

/// Properties that hold nothing, another kind, or something else at each call.
TEST(ElementInfo, MeetsOwnersThatBreakTheContract) {
    Class("=e x:number?");
    for (char const* const type :
         {"a:{}<nothing>", "a:()~<nothing>", "_:any<nothing>", "a:any*<nothing>", "& a:{}<nothing>",
          "& _:any<nothing>", "& a:text*<nothing>", "| a:text*<nothing>", "| a:any*<nothing>"}) {
        ExpectRows({{type, "", "<a/>", "!nothing-there"}});
    }
    ExpectRows({
        {"a:text*<nothing>", "", "-", "!nothing-there"},
        {"#<nothing>", "", "-", ""},
        {"a:{}<other>", "", "<a/>", "!other-kind 27 5"},
        {"a:text*<other>", "", "-", "!other-kind 28 5"},
        {"a:enum<other>", "", "-", "!other-kind 5 23"},
        {"a:any*<list>", "", "<a/>", "!other-collection CElementCol"},
        {"a:{x:number}<forgets>", "", "<a><x>1</x></a>", "<a/>"},
        {"a:(x:number)<forgets>", "", "<x>1</x>", ""},
        {"a:{x:number}?<forgets>, e:abstract?<forgets>, _:any?<forgets>", "", "<a><x>1</x></a><e/><b/>", ""},
        {"a:{x:number}?<forgets> | b:text?", "C", "<a><x>1</x></a>", ""},
        {"e:abstract?<forgets> | b:text?", "C", "<e><x>1</x></e>", ""},
    });
}

TEST(ElementInfo, PicksTheNamespaceOfUntypedContent) {
    // What is allowed, the namespace of the owner, the target, what is picked.
    std::array<char16_t const*, 4> const rows[] = {{u"##any", u"n", u"t", u"n"},
                                                   {u"##other", u"n", u"t", u""},
                                                   {u"##other", nullptr, u"t", u"DefaultNamespace"},
                                                   {u"##targetNamespace", u"n", nullptr, u""},
                                                   {u"##targetNamespace u", u"n", u"t", u"t"},
                                                   {u"##local ##any", u"n", u"t", u""},
                                                   {u" ##any", u"n", u"t", u""},
                                                   {nullptr, u"n", u"t", u""}};
    for (auto const& [allowed, ns, target, expected] : rows) {
        EXPECT_EQ(Entry::GetAnyDefaultNamespace(allowed, ns, target), expected)
            << ToUtf8(allowed == nullptr ? u"null" : allowed);
    }
}

}  // namespace
