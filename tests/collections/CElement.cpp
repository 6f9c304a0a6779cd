#include "BxXmlLib5/collections/CElement.h"

#include <algorithm>

#include "collections/Objects.h"

using namespace BxTest;

TEST(CElement, ConstructorsRefuseInOrder) {
    std::string const noName = "Element Name must have a value",
                      noList = "Namespace Restriction must have a value";
    std::pair<std::function<void()>, std::string> const rows[] = {
        {[] { CElement(static_cast<char16_t const*>(nullptr)); }, noName},
        {[] { CElement(nullptr, u"##any"); }, "Invalid Namespace [##any]"},
        {[] { CElement(u"a", u"##other"); }, "Invalid Namespace [##other]"},
        {[] { CElement(u"a", u"##local"); }, "Invalid Namespace [##local]"},
        {[] { CElement(u"a", u"##targetNamespace"); }, "Invalid Namespace [##targetNamespace]"},
        {[] { CElement(u"a", u"u v"); },
         "Invalid namespace [u v]. The namespace must be one of [u v] where the target namespace is []"},
        {[] { CElement(u"a", u"u", nullptr, nullptr); }, noList},
        {[] { CElement(u"a", u"u", u"v", nullptr); }, "Target Namespace must have a value"},
        {[] { CElement(u"a", u"u", u"##local ##targetNamespace", u"t"); },
         "Invalid namespace [u]. The namespace must be one of [##local ##targetNamespace] where the target "
         "namespace is [t]"},
    };
    for (auto const& [make, message] : rows)
        EXPECT_EQ(Thrown(make), "CBxInvalidNamespaceException: " + message);
}

TEST(CElement, NewOnes) {
    struct {
        Element m_element;
        char16_t const* m_namespace;
        char16_t const* m_target = u"";
    } rows[] = {
        {Element(u"a"), u""},
        {Element(u"a", u"u"), u"u"},
        {Element(u"a", u"t", u"##local ##targetNamespace", u"t"), u"t", u"t"},
    };
    for (auto& row : rows) {
        EXPECT_EQ(row.m_element.GetName() + row.m_element.GetText(), u"a");
        EXPECT_EQ(row.m_element.GetNamespace(), row.m_namespace);
        EXPECT_EQ(row.m_element.GetTargetNamespace(), row.m_namespace);
        EXPECT_EQ(row.m_element.GetAttributes()->GetNamespace(), row.m_namespace);
        EXPECT_EQ(row.m_element.GetChildElements()->GetNamespace(), row.m_target);
        EXPECT_EQ(row.m_element.GetChildElements()->GetMaxOccurs(), -1);
        // Below it every namespace is allowed.
        row.m_element.GetAttributes()->Add(u"k", u"v", u"elsewhere");
        row.m_element.GetChildElements()->Add(u"b", u"elsewhere");
        row.m_element.SetNamespace(nullptr);
        EXPECT_EQ(Compact(row.m_element), "<a xmlns:AA=\"elsewhere\" AA:k=\"v\"><AA:b/></a>");
    }
}

TEST(CElement, TheDefaultNamespacesOfItsCollectionsStay) {
    auto const defaults = [](CElement& element) {
        std::string text = ToUtf8(element.GetAttributes()->Add(u"k")->GetNamespace()) + " ";
        std::string const thrown =
            Thrown([&] { text += ToUtf8(element.GetChildElements()->Add(u"b")->GetNamespace()); });
        return thrown == "nothing" ? text : text + thrown;
    };
    std::string const notSet = " CBxInvalidStateException: A Namespace has not been set for this Collection";
    CXmlDocument document;
    document.LoadXml("<r xmlns='u'><c/></r>");
    Element set(u"a", u"u"), read(u"a"), copied(u"a");
    set.SetNamespace(u"v");
    EXPECT_EQ(defaults(set), "u u");
    Read(read, "<r xmlns='u'><c/></r>");
    EXPECT_EQ(defaults(read), notSet);
    EXPECT_EQ(defaults(*read.GetChildElements()->Item(0)), "u u");
    copied.CopyXmlElement(document.GetDocumentElement());
    EXPECT_EQ(defaults(copied), notSet);
    EXPECT_EQ(defaults(*copied.GetChildElements()->Item(0)), notSet);
}

TEST(CElement, ACopySharesTheCollections) {
    // Also when the copy is taken before anybody asked for them.
    CElement source(u"a");
    source.SetText(u"text");
    CElement copy(source), assigned(u"other");
    assigned.GetChildElements()->Add(u"c", u"");
    assigned = source;
    assigned = *&assigned;
    source.GetAttributes()->Add(u"k", u"1");
    copy.GetChildElements()->Add(u"b", u"");
    assigned.GetChildElements()->Add(u"c", u"");
    for (CElement const* each : {&source, &copy, &assigned})
        EXPECT_EQ(Compact(*each), "<a k=\"1\"><b/><c/>text</a>");
    copy.SetText(u"copy");
    EXPECT_EQ(copy.GetText() + source.GetText(), u"copytext");
    EXPECT_EQ(copy.AddRef() + assigned.AddRef(), 2);

    // Restriction and target namespace go along: what is read next must be in the target namespace.
    Element const restricted(u"a", u"t", u"##targetNamespace", u"t");
    Element copies[] = {restricted, Element(u"b")};
    copies[1] = restricted;
    for (Element& each : copies) {
        Read(each, "<refused xmlns='u'/>");
        EXPECT_EQ(each.GetName() + each.GetNamespace(), u"at");
        Read(each, "<c xmlns='t'/>");
        EXPECT_EQ(each.GetName(), u"c");
        EXPECT_EQ(each.GetChildElements()->GetNamespace(), u"t");
    }

    CElement parent(u"parent");
    parent.GetChildElements()->Add(u"child", u"")->GetChildElements()->Add(u"d", u"");
    CElement const& child = *parent.GetChildElements()->Item(0);
    parent = child;
    EXPECT_EQ(Compact(parent), "<child><d/></child>");
}

TEST(CElement, AConstantOneShowsWhatItHolds) {
    CElement element(u"a");
    CElement const& constant = element;
    EXPECT_EQ(constant.GetAttributes()->GetCount() + constant.GetChildElements()->GetCount(), 0);
    element.GetAttributes()->Add(u"k", u"1");
    for (char16_t const* const name : {u"b", u"c"}) element.GetChildElements()->Add(name, u"");
    wstring names;
    for (CElement const* const child : *constant.GetChildElements()) names += child->GetName();
    for (CAttribute const* const attribute : *constant.GetAttributes()) names += attribute->GetName();
    EXPECT_EQ(names, u"bck");
    CElementCol const& children = *constant.GetChildElements();
    auto const isC = [](CElement const* child) { return child->GetName() == u"c"; };
    EXPECT_EQ(std::find_if(children.begin(), children.end(), isC), std::ranges::find_if(children, isC));
    EXPECT_EQ(std::ranges::count_if(children, isC), 1);
    EXPECT_EQ(&children, element.GetChildElements());
}

TEST(CElement, ReadsTheRootOrItsFirstChild) {
    struct {
        std::function<void(CElement&)> m_read;
        char const* m_result;
        std::string m_thrown = "nothing";
    } const rows[] = {
        {[](auto& e) { e.FromXml(u"<r k='1'>x<c/>y</r>"); }, "<r k=\"1\"><c/>xy</r>"},
        {[](auto& e) { e.FromXml("<r k='1'>x<c l='2'/><d/></r>", Defaults()); }, "<c l=\"2\"/>"},
        {[](auto& e) { e.FromXml(u"<r xmlns='vv' k='1'/>"); }, "<old/>"},
        {[](auto& e) { e.FromXml(u"<r k='1'>\n</s>"); }, "<old/>", "CBxException: mismatched tag at line 2"},
        {[](auto& e) {
             for (int i = 0; i < 2; ++i) e.FromXml(u"<r k='1'>x<c/></r>");
         },
         "<r k=\"1\" k=\"1\"><c/><c/>x</r>"},
    };
    for (auto const& row : rows) {
        CElement element(u"old", u"", u"uu", u"");
        EXPECT_EQ(Thrown([&] { row.m_read(element); }), row.m_thrown);
        EXPECT_EQ(Compact(element), row.m_result);
    }
}

TEST(CElement, ReadsFromATree) {
    CXmlDocument document;
    document.LoadXml("<r k='1' xmlns='uu'>x<c l='2'>y</c><d xmlns=''/></r>");
    CXmlElement* const root = document.GetDocumentElement();
    CXmlElement* const c = root->GetFirstElement();
    CXmlSerializationContext context;
    Element element(u"old"), refusing(u"old", u"vv"), copy(u"old");
    EXPECT_EQ(element.FromXml_Int(root, nullptr, context, false), nullptr);
    EXPECT_EQ(Compact(element), "<old/>");
    EXPECT_EQ(element.FromXml_Int(root, c, context, false), c->GetNextSiblingElement());
    EXPECT_EQ(Compact(element), "<AA:c xmlns:AA=\"uu\" l=\"2\">y</AA:c>");
    EXPECT_EQ(refusing.FromXml_Int(root, c, context, false), c);
    EXPECT_EQ(Compact(refusing), "<AA:old xmlns:AA=\"vv\"/>");
    for (int i = 0; i < 2; ++i) copy.CopyXmlElement(root);
    EXPECT_EQ(Compact(copy), "<AA:r xmlns:AA=\"uu\" k=\"1\"><AA:c l=\"2\">y</AA:c><d/>x</AA:r>");

    CElement written(static_cast<CXmlObjectBase*>(&copy));
    EXPECT_EQ(Compact(written), Compact(copy));
    Read(written, "<anywhere xmlns='at-all'/>");  // nothing is refused
    EXPECT_EQ(written.GetName(), u"anywhere");

    CElement fromTree(u"old"), fromText(u"old");
    fromTree.FromXmlElement(static_cast<CXmlElement const*>(root), context);
    fromText.FromXmlElement(&copy, context);
    EXPECT_EQ(Compact(fromTree) + Compact(fromText), Compact(element) + Compact(element));
    context.SetSchemaType(st_NoNamespaces);
    fromText.FromXmlElement(&copy, context);
    EXPECT_EQ(fromText.GetName(), u"AA:c");
}

TEST(CElement, SetNamespaceRestrictions) {
    auto const notAllowed = [](std::string const& ns, std::string const& restriction) {
        return "Invalid namespace [" + ns + "]. The namespace must be one of [" + restriction +
               "] where the target namespace is [t]";
    };
    auto const ofElement = [](std::string const& ns, std::string const& name,
                              std::string const& restriction) {
        return "The namespace " + ns + " in the class " + name + " is invalid against restriction " +
               restriction;
    };
    struct {
        char const* m_text;
        char16_t const* m_restriction;
        std::string m_message = "";
        std::string m_inner = "";
    } const rows[] = {
        {"<a xmlns='uu' xmlns:v='vv' v:k='1'><b><v:c/></b></a>", u"uu vv"},
        {"<a k='1'><b/></a>", u"uu"},
        {"<a xmlns='uu'><b xmlns='ww'/></a>", u"vv", ofElement("uu", "a", "vv"), notAllowed("uu", "vv")},
        {"<a xmlns:v='vv' k='1' v:k='2'><w:b xmlns:w='ww'/></a>", u"uu", notAllowed("vv", "uu")},
        {"<a><b/><v:b xmlns:v='vv'/></a>", u"uu", ofElement("vv", "b", "uu"), notAllowed("vv", "uu")},
        {"<a><b/><b><c/><c><d k='1' v:l='2' xmlns:v='vv'/></c></b></a>", u"uu", notAllowed("vv", "uu")},
        {"<a xmlns='vv'/>", nullptr, ofElement("vv", "a", ""), notAllowed("vv", "")},
    };
    for (auto const& row : rows) {
        CElement element(u"a");
        Read(element, row.m_text);
        std::string message, inner;
        try {
            element.SetNamespaceRestrictions(row.m_restriction, u"t");
        } catch (CBxInvalidNamespaceException const& failure) {
            message = ToUtf8(failure.GetMessage());
            if (auto* cause = dynamic_cast<CBxInvalidNamespaceException const*>(failure.GetInnerException()))
                inner = ToUtf8(cause->GetMessage());
        }
        EXPECT_EQ(message, row.m_message);
        EXPECT_EQ(inner, row.m_inner);
    }
    CElement element(u"a", u"uu", u"##any", u"");
    element.SetNamespaceRestrictions(u"uu", u"");
    Read(element, "<b xmlns='vv'/>");
    EXPECT_EQ(element.GetName(), u"b");
}
