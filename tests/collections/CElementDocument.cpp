#include <fstream>
#include <iterator>

#include "BxXmlLib5/values/CBinaryData.h"
#include "collections/Objects.h"
#include "support/Octets.h"
#include "support/TemporaryFolder.h"

// There in a process with a sanitizer that looks for leaks.
extern "C" int __lsan_do_recoverable_leak_check() __attribute__((weak));

using namespace BxTest;

namespace {

std::string Text(CElement const& element) {
    return ToUtf8(element.ToXml(false, false, eol_LF, Defaults()));
}

std::string const kDocument =
    "<a xmlns='N' k='v' m:k='w' xmlns:m='M'><b>1</b><m:b>2</m:b><c/><b>3</b>text</a>";

TEST(CElementDocument, LoadsTheRoot) {
    TemporaryFolder const folder;
    std::string const path = folder.Write("in.xml", kDocument);
    std::string const noUtf8 = folder.Write("\xE9.xml", kDocument);
    wstring const units = FromUtf8(kDocument);
    CSmartPtr<CElement> const root = CElement::Load(path);
    EXPECT_EQ(ToUtf8(root->GetName()), "a");
    CBinaryData const finf = root->ToFastInfosetStream(fi_None, Defaults(), cmp_None);
    for (CSmartPtr<CElement> const& same :
         {CElement::Load(FromUtf8(path).c_str()), CElement::Load(noUtf8), CElement::LoadXml(kDocument),
          CElement::LoadXml(units.c_str()),
          CElement::LoadXmlStream(AsOctets(kDocument).data(), kDocument.size()),
          CElement::LoadXmlStream(finf)})
        EXPECT_EQ(Text(*same), Text(*root));
    CXmlSerializationContext context;
    context.SetSchemaType(st_NoNamespaces);
    EXPECT_EQ(ToUtf8(CElement::LoadXml(kDocument, context)->GetAttribute(u"xmlns")), "N");
    // What is added without a namespace is in that of the element.
    EXPECT_EQ(ToUtf8(root->Find(u"b")->GetChildElements()->Add(u"d")->GetNamespace()), "N");
}

TEST(CElementDocument, RefusesWhatIsNotWhole) {
    EXPECT_BX_THROW(CElement::LoadXml("<a><b/>"), CBxException,
                    "The document ends inside the element [/a], which begins on line 1");
    EXPECT_BX_THROW(CElement::LoadXml(u"<a>"), CBxException,
                    "The document ends inside the element [/a], which begins on line 1");
    EXPECT_BX_THROW(CElement::LoadXml("<a></b>"), CBxException, "mismatched tag at line 1");
    EXPECT_BX_THROW(CElement::LoadXml(""), CBxException, "XML Stream is empty!");
    EXPECT_BX_THROW(CElement::Load("/nowhere/none.xml"), CBxException,
                    "Failed to open the file [/nowhere/none.xml] Error [0x00000002]");
    TemporaryFolder const folder;
    EXPECT_THROW(CElement::Load(folder.Write("in.xml", kDocument) + '\0' + ".txt"), CBxException);
}

TEST(CElementDocument, ReadsAsTheDefaultContextAsks) {
    CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext();
    CXmlSerializationContext const former = context;
    CElement element(u"old");
    context.SetDocumentLimits({.m_elements = 1});
    EXPECT_BX_THROW((element.FromXml(u"<a><b/></a>"), 0), CBxException,
                    "The document has more than 1 elements, which is the limit");
    EXPECT_BX_THROW(CElement::LoadXml("<a><b/></a>"), CBxException,
                    "The document has more than 1 elements, which is the limit");
    context = former;
    context.SetRequireWholeDocument(true);
    EXPECT_BX_THROW((element.FromXml(u"<a>"), 0), CBxException,
                    "The document ends inside the element [/a], which begins on line 1");
    context = former;
    context.SetSchemaType(st_NoNamespaces);  // plays no part
    element.FromXml(u"<p:a xmlns:p='u'>");
    context = former;
    EXPECT_EQ(Text(element), "<AA:a xmlns:AA=\"u\"/>");
}

TEST(CElementDocument, SavesWhatItLoads) {
    TemporaryFolder const folder;
    std::string const path = folder.Path("out.xml"),
                      declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    CElement element(u"a");
    element.GetChildElements()->Add(u"b", u"")->SetText(u"\u00E9\r");
    element.Save(path);
    EXPECT_EQ(Content(path), declaration + "<a><b>\u00E9&#13;</b></a>");
    element.Save(FromUtf8(path).c_str(), Layout::Indented);
    EXPECT_EQ(Content(path), declaration + "<a>\n\t<b>\u00E9&#13;</b>\n</a>\n");
    element.SetText(u"\x01");
    EXPECT_BX_THROW((element.Save(path), 0), CBxInvalidValueException,
                    "The text of the element [a] has the character U+0001, which cannot stand there");
    EXPECT_EQ(Content(path), declaration + "<a>\n\t<b>\u00E9&#13;</b>\n</a>\n");
    element.Save(path, Layout::Compact, Defaults());
    EXPECT_EQ(Content(path), declaration + "<a><b>\u00E9</b>\x01</a>");
    EXPECT_BX_THROW((element.Save("/nowhere/out.xml", Layout::Compact, Defaults()), 0), CBxException,
                    "Failed to write data to the file [/nowhere/out.xml] error [0x00000002]");
}

TEST(CElementDocument, FindsByName) {
    CSmartPtr<CElement> root = CElement::LoadXml(kDocument);
    CElement const& fixed = *root;
    auto const textOf = [](CElement const* element) { return element ? ToUtf8(element->GetText()) : "none"; };
    EXPECT_EQ(textOf(root->Find(u"b")), "1");
    EXPECT_EQ(textOf(fixed.Find(u"b")), "1");
    EXPECT_EQ(textOf(root->Find(u"b", u"M")), "2");
    EXPECT_EQ(textOf(fixed.Find(u"b", u"M")), "2");
    EXPECT_EQ(textOf(root->Find(u"b", u"")), "none");
    EXPECT_EQ(textOf(root->Find(u"c")->Find(u"b")), "none");
    EXPECT_EQ(ToUtf8(fixed.GetAttribute(u"k")), "v");
    EXPECT_EQ(ToUtf8(fixed.GetAttribute(u"k", u"", u"M")), "w");
    EXPECT_EQ(ToUtf8(fixed.GetAttribute(u"l", u"missing")), "missing");
    root->FindAttribute(u"k")->SetValue(u"x");
    EXPECT_EQ(ToUtf8(fixed.FindAttribute(u"k")->GetValue()), "x");
    EXPECT_EQ(fixed.FindAttribute(u"k", u"N"), nullptr);

    std::string found;
    for (CElement* const child : root->Children(u"b")) child->SetText((child->GetText() + u"!").c_str());
    for (CElement const* const child : fixed.Children(FromUtf8("b").c_str())) found += textOf(child);
    for (CElement const* const child : fixed.Children(u"b", u"M")) found += textOf(child);
    for (CElement const* const child : root->Children(u"d")) found += textOf(child);
    for (CElement const* const child : root->Find(u"c")->Children(u"b")) found += textOf(child);
    EXPECT_EQ(found, "1!3!2");
    root->GetChildElements()->Add(static_cast<CElement*>(nullptr));
    auto const children = fixed.Children(u"b");
    EXPECT_EQ(std::distance(children.begin(), children.end()), 2);
    EXPECT_TRUE(fixed.Children(u"d").empty());
    root = nullptr;  // the range holds what it walks
    EXPECT_EQ(textOf(*++children.begin()), "3!");
}

}  // namespace

TEST(CElementDocument, WhatALargeOneHoldsIsNoLeak) {
    if (__lsan_do_recoverable_leak_check == nullptr) GTEST_SKIP() << "nothing looks for leaks";
    std::string text = "<a>";
    for (int i = 0; i < 10'000; ++i) text += "<b k='with memory of its own'>with memory of its own</b>";
    CSmartPtr<CElement> const root = CElement::LoadXml(text + "</a>");
    EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0);
}
