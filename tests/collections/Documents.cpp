#include "collections/Objects.h"
#include "support/Stacks.h"
#include "support/TemporaryFolder.h"

using namespace BxTest;

namespace {

/// Whitespace between elements is indentation here.
void DropIndentation(CElement& element) {
    if (element.GetChildElements()->GetCount() > 0 &&
        element.GetText().find_first_not_of(u" \t\n") == wstring::npos)
        element.SetText(u"");
    for (CElement* child : *element.GetChildElements()) DropIndentation(*child);
}

/// Elements inside each other, built from the innermost.
CSmartPtr<CElement> Nest(int levels) {
    CSmartPtr<CElement> top = new CElement(u"e");
    for (int i = 1; i < levels; ++i) {
        CSmartPtr<CElement> const parent = new CElement(u"e");
        parent->GetChildElements()->Add(top);
        top = parent;
    }
    return top;
}

}  // namespace

TEST(Documents, RoundTrip) {
    for (std::string const name : {"feed", "drawing", "envelope"}) {
        std::string const golden = BX_TEST_DATA "/" + name + ".written.xml";
        for (std::string const& path : {BX_TEST_DATA "/" + name + ".xml", golden}) {
            CXmlDocument document;
            document.Load(FromUtf8(path).c_str());
            Element element(u"none"), compact(u"none");
            CXmlElement* const root = document.GetDocumentElement();
            EXPECT_EQ(element.FromXml_Int(root, root, Defaults(), false), nullptr);
            DropIndentation(element);
            EXPECT_EQ(ToUtf8(element.ToXml(true, true, eol_LF, Defaults())), Content(golden)) << path;
            Read(compact, Compact(element));
            EXPECT_EQ(ToUtf8(compact.ToXml(true, true, eol_LF, Defaults())), Content(golden)) << path;
        }
    }
}

TEST(Documents, NestedTooDeeply) {
    for (int const levels : {1024, 1025, 300000}) {
        std::string const outcome =
            levels == 1024
                ? "nothing"
                : "CBxException: Elements are nested more than 1024 levels deep, which is the limit";
        CSmartPtr<CElement> const tree = Nest(levels);
        CElement reader(u"none");
        CXmlSerializationContext context;
        EXPECT_EQ(Thrown([&] { Compact(*tree); }), outcome);
        EXPECT_EQ(Thrown([&] { tree->SetNamespaceRestrictions(u"##any", u""); }), outcome);
        EXPECT_EQ(Thrown([&] { reader.FromXmlElement(tree, context); }), outcome);
    }
    CElement onTheStack(u"e");
    for (int i = 0; i < 2; ++i) onTheStack.GetChildElements()->Add(Nest(300000));
    onTheStack.GetChildElements()->Remove(0);
}

TEST(Documents, WhatWasReadOutlivesTheRest) {
    CSmartPtr<CElement> kept;
    CSmartPtr<CAttribute> attribute;
    CSmartPtr<CElementCol> children;
    {
        CElement whole(u"none");
        Read(whole, "<a><b k='1'><c/>a longer text</b><d><e/></d></a>");
        kept = whole.GetChildElements()->Item(0);
        attribute = kept->GetAttributes()->Item(0);
        children = whole.GetChildElements()->Item(1)->GetChildElements();
        whole.GetChildElements()->Remove(0);
    }
    // It moves from one collection to others, and stands in several at once.
    CElementCol first(u"", u"##any", u"", 0, -1), second(u"", u"##any", u"", 0, -1);
    for (int i = 0; i < 2; ++i) {
        for (CElementCol* each : {&first, &second, &*children}) each->Add(kept);
        first.Clear();
    }
    kept->GetAttributes()->Clear();
    kept->GetAttributes()->Add(attribute);
    kept->GetChildElements()->Add(children->Item(0));
    EXPECT_EQ(Compact(*kept), "<b k=\"1\"><c/><e/>a longer text</b>");
    EXPECT_EQ(first.GetCount() * 100 + second.GetCount() * 10 + children->GetCount(), 23);
}

TEST(Documents, SmallStacks) {
    OnSmallStacks([] {
        for (int const levels : {4, 1000, 100'000}) {
            auto const expect = [levels](Work const& work) {
                std::string const outcome = Thrown(work);
                bool const passed = outcome == "nothing";
                EXPECT_TRUE(levels == 1000 || passed == (levels == 4)) << outcome;
            };
            CSmartPtr<CElement> const tree = Nest(levels);
            CElement reader(u"none");
            Element copy(u"none");
            expect([&] { Compact(*tree); });
            expect([&] { tree->SetNamespaceRestrictions(u"##any", u""); });
            if (levels > 1024) continue;
            std::string text = "<e/>";
            for (int i = 1; i < levels; ++i) text = "<e>" + text + "</e>";
            expect([&] { Read(reader, text); });
            CXmlDocument document;
            document.LoadXml(text.c_str());
            expect([&] { copy.CopyXmlElement(document.GetDocumentElement()); });
        }
    });
}
