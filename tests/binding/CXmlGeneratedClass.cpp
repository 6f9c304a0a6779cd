#include "BxXmlLib5/binding/CXmlGeneratedClass.h"

#include "binding/TestBinding.h"
#include "support/StrictFastInfoset.h"
#include "writers/CXmlTextWriter.h"

using namespace BxTest;

namespace {

TEST(GeneratedClass, ReadsAttributes) {
    std::string const xsi = "xmlns:i='http://www.w3.org/2001/XMLSchema-instance' ";
    std::string const all =
        "<r " + xsi + "i:type='t' i:schemaLocation='s' i:noNamespaceSchemaLocation='s' i:xmlns='x'/>";
    std::string const nil = "<r " + xsi + "i:nil='true'/>";
    ExpectRows({
        {"@k:text", "AEC#N", "<r/>", "!no-attribute k"},
        {"@k:text?, @k:text", "", "<r k='1'/>", "!no-attribute k"},
        {"strict @_:any?", "", all, ""},
        {"strict", "", nil, "!unexpected nil"},
        {"strict @_:any?", "", nil,
         "<r xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:nil=\"true\"/>"},
        {"strict", "2", "<r xmlns='n'/>", "!unexpected xmlns"},
    });
}

TEST(GeneratedClass, HasAsManyEntriesAsItNeeds) {
    std::string attributes = "strict ", tag = "<r";
    for (int i = 0; i < 200; ++i) {
        std::string const number = std::to_string(i);
        attributes += "@k" + number + ":text ";
        tag += " k" + number + "=\"" + number + "\"";
    }
    ExpectRows({{attributes, "", tag + "/>"}});
    for (std::string const number : {"0", "63", "64", "199"}) {
        std::string text = tag + "/>";
        text.erase(text.find(" k" + number + "=\""), 2 * number.size() + 5);
        ExpectRows({{attributes, "", text, "!no-attribute k" + number}});
    }
}

TEST(GeneratedClass, WritesARootInThisOrder) {
    TestObject root(Class("=T #, @k:text?, p:(@l:text?, a:text)~, c:{@m:text?}~"), u"c");
    Read(root, "<r k='1' l='2'>text<a/><c m='3'/></r>");
    CXmlSerializationContext context;
    context.GetProcessingInstructions() = {u"<?a?>", u"<?b?>"};
    context.GetNamespaceAliases().Add(u"z", u"u1");
    context.GetNamespaceAliases().Add(u"y", u"u2");
    context.GetNamespaceAliases().GetAliasFromNamespace(u"u0");
    context.SetDefaultNamespaceURI(u"d");
    context.GetAdditionalRootAttributes()->Add(u"add", u"4", u"u2");
    context.SetInLineSchema(u"<schema/>");
    EXPECT_EQ(ToUtf8(root.ToXml(false, false, eol_LF, context)),
              "<?a?>\n\n<?b?>\n\n<r xmlns=\"d\" xmlns:z=\"u1\" xmlns:y=\"u2\" y:add=\"4\" xmlns:AA=\"n\"  "
              "xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=\"AA:T\" k=\"1\" l=\"2\" "
              "\n<schema/>\n><a/><c m=\"3\"/>text</r>");
    // In Fast Infoset too a type behind other attributes has its prefix declared.
    CBinaryData const infoset = root.ToFastInfosetStream(fi_None, context, cmp_None);
    EXPECT_EQ(
        CStrictFastInfoset::Read(infoset.GetOctets(), Undeclared::kTaken),
        "<r {u2}add=4 {http://www.w3.org/2001/XMLSchema-instance}type={n}T k=1 l=2><a></><c m=3></>text</>");
    struct : CXmlTextWriter {
        void AddNamespace(wstring const& alias, wstring const&) override { EXPECT_NE(alias, u""); }
    } writer;
    root.ToXml_Int(&writer, true, u"", context, false);
    // A context that nobody asked for its attributes has none, and gets none.
    CXmlSerializationContext const plain;
    root.ToXml(false, false, eol_LF, plain);
    CXmlSerializationContext(plain).GetAdditionalRootAttributes()->Add(u"add");
    EXPECT_EQ(plain.GetAdditionalRootAttributes()->GetCount(), 0);
    TestObject pseudo(Class("(@k:text?, a:text?, b:text?)"), u"p");
    Read(pseudo, "<r k='1'><a/></r>");
    EXPECT_EQ(ToUtf8(pseudo.ToXml(false, false, eol_LF, context)), "<a/>");
    EXPECT_EQ(pseudo.GetElementName(), u"p");
}

TEST(GeneratedClass, TellsAndReadsTheTypeOfAnElement) {
    Class("=T @k:text?, x:text?");
    Class("=u y:text?");
    std::string const xsi = " xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=";
    std::string const t = "<u xmlns:AA=\"n\" " + xsi + "\"AA:T\" k=\"1\"><x>2</x></u>";
    std::string const v = "<u" + xsi + "\"v\"/>";
    std::string const unprefixed = "<u" + xsi + "\"T\"/>";
    ExpectRows({
        {"u:abstract", "", t},
        {"u:abstract?", "", unprefixed, "<u xmlns:AA=\"n\" " + xsi + "\"AA:T\"/>"},
        {"u:abstract*", "", t + "<u><y>3</y></u>" + t},
        {"& u:abstract*", "", t},
        {"u:abstract?", "", v, "!left-over r u"},
        {"u:abstract? | x:text?", "", v, "!empty-choice r"},
        {"u:abstract?, T:abstract?", "", "<T/>", "!left-over r T"},
    });
    TestObject object(Class("=T u:{=u}"), u"T");
    object.m_target = u"n";
    EXPECT_EQ(Written(object), "<AA:T xmlns:AA=\"n\"><u/></AA:T>");
}

TEST(GeneratedClass, WritesTheFirstMemberOfAChoice) {
    TestObject object(Class("a:text? | b:text? | c:text? | d:{}?"));
    object[u"c"].SetString(u"3");
    object[u"b"].SetString(u"2");
    EXPECT_EQ(Written(object), "<r><b>2</b></r>");
}

TEST(GeneratedClass, RefusesAnUnknownGroup) {
    TestObject object(Class("unknown"));
    EXPECT_BX_THROW(Written(object), CBxException, "Unknown XML Group Type");
    EXPECT_BX_THROW((Read(object, ""), 0), CBxException, "Unknow Group Type");
}

TEST(GeneratedClass, FindsElementsOfItsTable) {
    TestObject const object(Class("a:text?, B:text*, @c:text?"));
    auto const isThere = [&](char const* document, char const* settings = "") {
        CXmlDocument tree;
        tree.LoadXml(document);
        return object.IsElementInList(Settings(settings), tree.GetDocumentElement());
    };
    EXPECT_TRUE(isThere("<a/>") && isThere("<B xmlns='n'/>") && isThere("<B/>", "N"));
    EXPECT_FALSE(isThere("<B/>") || isThere("<c/>") || isThere("<x/>", "N"));
}

TEST(GeneratedClass, NestsAsDeepAsADocument) {
    for (char const* const type : {"a:self?", "| a:self?", "& a:self?", "a:self*", "_:any?"}) {
        std::string text = "<a/>";
        for (int i = 2; i < 1024; ++i) text = "<a>" + text + "</a>";
        ExpectRows({{type, "C", text}, {type, "C", "<a>" + text + "</a>", "!too-deep"}});
    }
}

TEST(GeneratedClass, LimitsPseudoElementsInsideEachOther) {
    ExpectRows({{"p:(q:self?)?", "", "<a/>", "!objects-too-deep"},
                {"p:(q:self?)?", "", ""},
                {"| p:(q:self? | a:text?)?", "", "<a/>", "!objects-too-deep"}});
}

/// In time that grows with their number alone, not with its square.
TEST(GeneratedClass, SkipsAnyNumberOfUnknownElements) {
    std::string unknown;
    for (int i = 0; i < 50'000; ++i) unknown += "<u/>";
    std::string const document = unknown + "<a/>" + unknown + "<b/>";
    ExpectRows({{"p:(a:text)~, b:text?", "E", document, "<a/>"},
                {"p:(a:enum)? | b:text?", "E", unknown + "<b/>", "<b/>"},
                {"e:{p:(q:(a:text, c:text))~, b:text?}", "E", "<e>" + document + "</e>", "<e/>"},
                // A search that meets an earlier one ends at the same child, which q then keeps.
                {"p:(g:(x:text, c:text)?, q:(a:text, b:text)~, c:text)~", "E", "<x/><c/><u/><a>1</a><u/>",
                 "<a>1</a><c/>"}});
}

/// What a search has passed over is not known of another element's children, nor under other settings.
TEST(GeneratedClass, RemembersSearchesWhereTheyHold) {
    struct Unwrapping : TestObject {
        using TestObject::TestObject;
        CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                                 CXmlSerializationContext const& context, bool) override {
            TestObject::FromXml_Int(element, child->GetFirstElement(), context, false);
            return nullptr;
        }
    } unwrapping(Class("p:(a:text, q:self?)?"));
    Read(unwrapping, "<w><u/><a>1</a><u/><a>2</a></w>", "E");
    EXPECT_EQ(Written(unwrapping), "<r><a>1</a><a>2</a></r>");
    struct Retrying : TestObject {
        using TestObject::TestObject;
        CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                                 CXmlSerializationContext const& context, bool) override {
            EXPECT_EQ(TestObject::FromXml_Int(element, child, context, false), child);
            EXPECT_EQ(TestObject::FromXml_Int(element, child->GetFirstElement(), context, false), nullptr);
            return TestObject::FromXml_Int(element, child, Settings("EN"), false);
        }
    };
    struct Outer : TestObject {
        using TestObject::TestObject;
        void ResetContent() override {
            TestObject::ResetContent();
            (*this)[u"p"].SetXmlObject(new Retrying(*m_class.m_fields[0].m_class));
        }
    } outer(Class("p:(A:text)"));
    Read(outer, "<w><u/><A xmlns='n'>0</A></w><A>1</A><u/>", "E");
    EXPECT_EQ(Written(outer), "<r><AA:A xmlns:AA=\"n\">1</AA:A></r>");
}

TEST(GeneratedClass, LooksAtTheAttributesOfATagOnlyIfItHasSome) {
    std::string attributes, children;
    for (int i = 0; i < 40'000; ++i) {
        attributes += " a" + std::to_string(i) + "=''";
        children += "<x/>";
    }
    ExpectRows({{"p:(x:text)*", "", "<r" + attributes + ">" + children + "</r>", children}});
}

}  // namespace
