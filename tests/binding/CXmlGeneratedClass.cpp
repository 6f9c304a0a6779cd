#include "BxXmlLib5/binding/CXmlGeneratedClass.h"

#include "binding/TestBinding.h"
#include "writers/CXmlTextWriter.h"

using namespace BxTest;

namespace {

TEST(GeneratedClass, ReadsASequence) {
    ExpectRows({
        {"s()", "", "<x/>", "!left-over r x"},
        {"s()", "E", "<x/>", ""},
        {"s(Sa! Sb!)", "", "<a>1</a><b>2</b>"},
        {"s(Sa! Sb!)", "", "<b/><a/>", "!missing a"},
        {"s(Sa! Sb!)", "M", "<b/><a/>", "!left-over r a"},
        {"s(Sa! Sb!)", "E", "<x/><a/><x/><y/><b/><x/>", "<a/><b/>"},
        {"s(Sa! Sa?)", "", "<a>1</a><a>2</a><a>3</a>", "!left-over r a"},
        // An unknown child ahead of what need not be there loses it.
        {"s(Sa? Sb*)", "E", "<x/><a/><b/>", ""},
        {"s(Sb!)", "N", "<b xmlns='u'/>", "<b/>"},
        {"s(# Sa? Cb?s(#))", "", "<r>x<a/>y<b>z</b>w</r>", "<r><a/><b>z</b>xyw</r>"},
    });
}

TEST(GeneratedClass, ReadsAChoice) {
    for (char const* const type : {"c(Sb? Sa*)", "c(Ca*s())", "c(Aa*)", "c(Ea*)", "c(U_*)"})
        ExpectRows({{type, "", ""}});
    ExpectRows({
        {"c(Sa? Sb?)", "", "<b/>"},
        {"c(Sa? Sb?)", "", "", "!empty-choice r"},
        {"c(Sa? Sb?)", "C", ""},
        {"c(Sa? Sb?)", "E", "<x/>", "!empty-choice r"},
        {"c(Sa? Sb?)", "E", "<x/><y/><b/><a/>", "<b/>"},
        {"c(Sa? Sb?)", "", "<a/><b/>", "!left-over r b"},
        {"c(Sa*1-2)", "", "", "!empty-choice r"},
        {"c(Ba*)", "", "", "!empty-choice r"},
        {"c(Sa*%)", "", "", "!nothing-there"},
        {"c(Sa?)", "C/", "", "!nothing-set"},
        // Inside an optional member of a choice a choice may be empty.
        {"c(Ca?c(Sx?))", "", "<a/>"},
        {"c(Ca?c(Sx?))", "", "<a><y/></a>", "!left-over a y"},
        {"s(Ca?c(Sx?))", "", "<a/>", "!empty-choice a"},
    });
}

TEST(GeneratedClass, ReadsAnAllGroup) {
    ExpectRows({
        {"a(Sa! Sb!)", "", "<b>2</b><a>1</a>", "<a>1</a><b>2</b>"},
        {"a(Sa! Sb!)", "M", "<b/>", "!missing-in-all a"},
        {"a(Sa! Sb!)", "", "<a>1</a><b/><a>2</a>", "!left-over r a"},
        {"a(Sa! Sb!)", "E", "<a>1</a><b/><a>2</a>", "<a>1</a><b/>"},
        {"a(Sa? Sb?)", "E", "<a/><x/><b/>", "<a/>"},
        {"a(Sa* Sb?)", "", "<a>1</a><b/><a>2</a><a>3</a>", "<a>1</a><a>2</a><a>3</a><b/>"},
    });
}

/// Pseudo elements inside each other, in the tag of r.
TEST(GeneratedClass, ReadsPseudoElements) {
    ExpectRows({
        // A group that does not match gives back what it has read.
        {"s(Cp?~s(Sa! Sb!) Pa?)", "", "<a>1</a>", "<a>1.00</a>"},
        {"s(Cp?~a(Sa! Sb!) Pa?)", "", "<a>1</a>", "<a>1.00</a>"},
        {"s(Cp?~s(Ca!s() Cb!s()) Sc?)", "E", "<x/><a/><y/><b/><c/>", "<a/><b/><c/>"},
        {"s(Cp.~s(Sa!) Sb?)", "E", "<x/><a/><b/>", "<a/><b/>"},
        {"s(Cp?~c(Sa? Sb?) Sc?)", "E", "<x/><b/>", ""},
        {"s(Cp*~c(Sa? Sb?) Sc?)", "", "<b/><a/><b/><c/>"},
        {"a(Cp?~c(Sa? Sb?) Cq*~c(Sc? Sd?))", "", "<c/><b/><d/>", "<b/><c/><d/>"},
        {"s(Cp!~s(Cq?~c(Cu?~a(Sa! Sb!) Sc?) Sd?) Se!)", "", "<b/><a/><d/><e/>", "<a/><b/><d/><e/>"},
        {"s(Cp!~s(Cq?~c(Cu?~a(Sa! Sb!) Sc?) Sd?) Se!)", "", "<e/>", "!missing p"},
        // Text and attributes are those of the tag.
        {"s(@Sk? Cp?~s(@Sl? Cq.~s(@Sm?) Sa!) Cu*~s(@So? Sb!))", "",
         "<r o=\"1\" m=\"2\" l=\"3\" k=\"4\"><a/><b/></r>",
         "<r k=\"4\" l=\"3\" m=\"2\" o=\"1\"><a/><b/></r>"},
        {"s(Cp.~s-(@Sk?))", "", "<r l='1'/>", "!unexpected l"},
        // A group that is only there through its attributes is kept where it is in place.
        {"s(Cp?~s(@Sk? Sa?) Sb!)", "", "<r k='1'><b/></r>", "<b/>"},
        {"s(Cp.~s(@Sk? Sa?) Sb!)", "", "<r k=\"1\"><b/></r>"},
    });
}

TEST(GeneratedClass, ReadsAttributes) {
    std::string const xsi = "xmlns:i='http://www.w3.org/2001/XMLSchema-instance' ";
    std::string const all =
        "<r " + xsi + "i:type='t' i:schemaLocation='s' i:noNamespaceSchemaLocation='s' i:xmlns='x'/>";
    std::string const nil = "<r " + xsi + "i:nil='true'/>";
    ExpectRows({
        {"s-(@Sk?)", "", "<r x='1'/>", "!unexpected x"},
        {"s-(@Sk?)", "A", "<r x='1' k='2'/>", "<r k=\"2\"/>"},
        {"s(@Sk!)", "AEC#N", "<r/>", "!no-attribute k"},
        {"s(@Sk? @Sk!)", "", "<r k='1'/>", "!no-attribute k"},
        {"s-(@U_?)", "", all, ""},
        {"s-()", "", nil, "!unexpected nil"},
        {"s-(@U_?)", "", nil, "<r xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:nil=\"true\"/>"},
        {"s-()", "2", "<r xmlns='n'/>", "!unexpected xmlns"},
    });
}

TEST(GeneratedClass, HasAsManyEntriesAsItNeeds) {
    std::string attributes = "s-(", tag = "<r";
    for (int i = 0; i < 200; ++i) {
        std::string const number = std::to_string(i);
        attributes += "@Sk" + number + "! ";
        tag += " k" + number + "=\"" + number + "\"";
    }
    attributes.back() = ')';
    ExpectRows({{attributes, "", tag + "/>"}});
    for (std::string const number : {"0", "63", "64", "199"}) {
        std::string text = tag + "/>";
        text.erase(text.find(" k" + number + "=\""), 2 * number.size() + 5);
        ExpectRows({{attributes, "", text, "!no-attribute k" + number}});
    }
}

TEST(GeneratedClass, WritesARootInThisOrder) {
    TestObject root(Class("s=T(# @Sk? Cp.~s(@Sl? Sa!) Cc.s(@Sm?))"), u"c");
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
    struct : CXmlTextWriter {
        void AddNamespace(wstring const& alias, wstring const&) override { EXPECT_NE(alias, u""); }
    } writer;
    root.ToXml_Int(&writer, true, u"", context, false);
    TestObject pseudo(Class("~s(@Sk? Sa? Sb?)"), u"p");
    Read(pseudo, "<r k='1'><a/></r>");
    EXPECT_EQ(ToUtf8(pseudo.ToXml(false, false, eol_LF, context)), "<a/>");
    EXPECT_EQ(pseudo.GetElementName(), u"p");
}

TEST(GeneratedClass, TellsAndReadsTheTypeOfAnElement) {
    Class("s=T(@Sk? Sx?)");
    Class("s=u(Sy?)");
    std::string const xsi = " xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=";
    std::string const t = "<u xmlns:AA=\"n\" " + xsi + "\"AA:T\" k=\"1\"><x>2</x></u>";
    std::string const v = "<u" + xsi + "\"v\"/>";
    std::string const unprefixed = "<u" + xsi + "\"T\"/>";
    ExpectRows({
        {"s(Au!)", "", t},
        {"s(Au?)", "", unprefixed, "<u xmlns:AA=\"n\" " + xsi + "\"AA:T\"/>"},
        {"s(Au*)", "", t + "<u><y>3</y></u>" + t},
        {"a(Au*)", "", t},
        {"s(Au?)", "", v, "!left-over r u"},
        {"c(Au? Sx?)", "", v, "!empty-choice r"},
        {"s(Au? AT?)", "", "<T/>", "!left-over r T"},
    });
    TestObject object(Class("s=T(Cu!s=u())"), u"T");
    object.m_target = u"n";
    EXPECT_EQ(Written(object), "<AA:T xmlns:AA=\"n\"><u/></AA:T>");
}

TEST(GeneratedClass, WritesTheFirstMemberOfAChoice) {
    TestObject object(Class("c(Sa? Sb? Sc? Cd?s())"));
    object[u"c"].SetString(u"3");
    object[u"b"].SetString(u"2");
    EXPECT_EQ(Written(object), "<r><b>2</b></r>");
}

TEST(GeneratedClass, RefusesAnUnknownGroup) {
    TestObject object(Class("x()"));
    EXPECT_BX_THROW(Written(object), CBxException, "Unknown XML Group Type");
    EXPECT_BX_THROW((Read(object, ""), 0), CBxException, "Unknow Group Type");
}

TEST(GeneratedClass, FindsElementsOfItsTable) {
    TestObject const object(Class("s(Sa? SB* @Sc?)"));
    auto const isThere = [&](char const* document, char const* settings = "") {
        CXmlDocument tree;
        tree.LoadXml(document);
        return object.IsElementInList(Settings(settings), tree.GetDocumentElement());
    };
    EXPECT_TRUE(isThere("<a/>") && isThere("<B xmlns='n'/>") && isThere("<B/>", "N"));
    EXPECT_FALSE(isThere("<B/>") || isThere("<c/>") || isThere("<x/>", "N"));
}

TEST(GeneratedClass, CanBeReadAgain) {
    Class("s=d(Sx!)");
    TestObject object(
        Class("s(@Sk! @El? @U_? Sa! Eb? Cc?s(@Sk?) Ad? U_? Cp.~c(Se? Sf*) Cq?~a(Cg!s(Sa! #) Sh*1-1) #)"));
    std::string const good =
        "<r k=\"1\" l=\"two\" u=\"3\"><a>4</a><b>one</b><c k=\"5\"/><d><x>6</x></d><v w=\"7\"><y/></v>"
        "<f>8</f><f>9</f><g><a/>t</g><h/>text</r>";
    std::pair<std::string, char const*> const faults[] = {
        {" k=\"1\"", ""},     {"<a>4</a>", ""},     {"one", "none"},     {"<x>6</x>", ""},
        {"</v>", "</v><e/>"}, {"<h/>", "<h/><h/>"}, {"<h/>", "<h/><z/>"}};
    for (auto const& [from, to] : faults) {
        std::string text = good;
        text.replace(text.find(from), from.size(), to);
        EXPECT_NE(Thrown([&] { Read(object, text), Written(object); }), "nothing") << text;
        for (std::string const next : {good.c_str(), "<r2 k=\"1\"><a/><f/></r2>"}) {
            Read(object, next);
            EXPECT_EQ(Written(object), next) << text;
        }
    }
}

TEST(GeneratedClass, NestsAsDeepAsADocument) {
    for (char const* const type : {"s(Ca?^)", "c(Ca?^)", "a(Ca?^)", "s(Ca*^)", "s(U_?)"}) {
        std::string text = "<a/>";
        for (int i = 2; i < 1024; ++i) text = "<a>" + text + "</a>";
        ExpectRows({{type, "C", text}, {type, "C", "<a>" + text + "</a>", "!too-deep"}});
    }
}

TEST(GeneratedClass, LimitsPseudoElementsInsideEachOther) {
    ExpectRows({{"s(Cp?~s(Cq?~^))", "", "<a/>", "!objects-too-deep"},
                {"s(Cp?~s(Cq?~^))", "", ""},
                {"c(Cp?~c(Cq?~^ Sa?))", "", "<a/>", "!objects-too-deep"}});
}

/// In time that grows with their number alone, not with its square.
TEST(GeneratedClass, SkipsAnyNumberOfUnknownElements) {
    std::string unknown;
    for (int i = 0; i < 50'000; ++i) unknown += "<u/>";
    std::string const document = unknown + "<a/>" + unknown + "<b/>";
    ExpectRows({{"s(Cp.~s(Sa!) Sb?)", "E", document, "<a/>"},
                {"c(Cp?~s(Ea!) Sb?)", "E", unknown + "<b/>", "<b/>"},
                {"s(Cp.~s(Cq!~s(Sa! Sc!)) Sb?)", "E", document, ""}});
}

TEST(GeneratedClass, LooksAtTheAttributesOfATagOnlyIfItHasSome) {
    std::string attributes, children;
    for (int i = 0; i < 40'000; ++i) {
        attributes += " a" + std::to_string(i) + "=''";
        children += "<x/>";
    }
    ExpectRows({{"s(Cp*~s(Sx!))", "", "<r" + attributes + ">" + children + "</r>", children}});
}

}  // namespace
