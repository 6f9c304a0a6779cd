// The examples of docs/users-guide.md, in its order and in its words.

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "../support/GuideText.h"
#include "BxXmlLib5/BxXmlLib5.h"

using namespace BxXmlLib5;

TEST(GuideText, LeadsToUtf8AndBack) {
    wstring const greeting = FromUtf8("Grüße");
    std::string const octets = ToUtf8(greeting);
    EXPECT_EQ(octets, "Grüße");
}

namespace {

class Order : public CXmlObjectBase {
public:
    Order() : m_items(new CElementCol(u"", u"##any", u"", 0, -1)) { SetElementName(u"order"); }

    wstring m_number;
    CSmartPtr<CElementCol> m_items;

    CXmlObjectBase* GetBase() override { return this; }
    wstring GetNamespace() const override { return u"urn:orders"; }

protected:
    wstring GetTargetNamespace() const override { return u"urn:orders"; }

    void ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool) const override {
        writer->WriteStartElement(GetElementName(), namespaceUri);
        writer->WriteAttribute(u"number", u"", m_number);
        CXmlObjectBase::ToXml_Int(m_items, writer, false, namespaceUri, context, false);
        writer->WriteEndElement();
    }

    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool) override {
        m_number = element->GetAttribute(u"number", u"");
        m_items->Clear();
        return CXmlObjectBase::FromXml_Int(m_items, element, firstChild, context);
    }
};

/// Runs a test in a folder of its own.
class Guide : public testing::Test {
protected:
    Guide() {
        std::filesystem::create_directory(m_folder);
        std::filesystem::current_path(m_folder);
        order.m_number = u"17";
        for (int i = 0; i < 20; ++i) order.m_items->Add(u"item", u"")->SetText(u"bolts");
    }
    ~Guide() override {
        std::filesystem::current_path(m_before);
        std::filesystem::remove_all(m_folder);
    }

    void ExpectRead(int items) {
        EXPECT_EQ(order.m_number, u"17");
        EXPECT_EQ(order.m_items->GetCount(), items);
        order = Order();
    }

    std::filesystem::path const m_before = std::filesystem::current_path();
    std::filesystem::path const m_folder = testing::TempDir() + "guide" +
                                           testing::UnitTest::GetInstance()->current_test_info()->name() +
                                           std::to_string(getpid());
    Order order;
    CXmlSerializationContext const context;
};

}  // namespace

TEST_F(Guide, WritingAndReading) {
    // Writing
    wstring const text = order.ToXml(true, true, eol_LF, context);
    EXPECT_TRUE(text.starts_with(
        u"<?xml version=\"1.0\"?>\n<AA:order xmlns:AA=\"urn:orders\" number=\"17\">\n\t<item>"));
    CBinaryData const data = order.ToXmlStream(true, false, enc_UTF8, eol_LF, context, cmp_GZip);
    order.ToXmlFile(u"order.xml", true, true, enc_UTF16, eol_CRLF, context, cmp_None);
    CBinaryData const binary = order.ToFastInfosetStream(fi_None, context, cmp_ZLib);
    order.ToFastInfosetFile(u"order.finf", fi_Version10, context, cmp_GZip);

    // Reading
    order.FromXml("<order number='17'/>", context);
    ExpectRead(0);
    order.FromXml(text.c_str(), context);
    ExpectRead(20);
    order.FromXmlStream(data, context);
    ExpectRead(20);
    order.FromXmlStream(binary.GetData(), binary.GetLength(), context);
    ExpectRead(20);
    order.FromXmlFile(u"order.finf", context);
    ExpectRead(20);
    order.FromXmlFile(u"order.xml", context);
    EXPECT_EQ(order.m_items->GetCount(), 20);
}

TEST_F(Guide, DocumentsWithoutAClass) {
    order.ToFastInfosetFile(u"order.finf", fi_None, context, cmp_None);
    CElement note(u"");
    note.FromXml(u"<note xmlns='urn:notes'>by <b>noon</b></note>");
    note.GetAttributes()->Add(u"urgent", u"yes", u"");
    EXPECT_EQ(note.ToXml(false, false, eol_LF, context),
              u"<AA:note xmlns:AA=\"urn:notes\" urgent=\"yes\"><AA:b>noon</AA:b>by </AA:note>");

    CElement const tree(&order);
    CXmlSerializationContext settings;
    order.FromXmlElement(&tree, settings);
    ExpectRead(20);

    wstring all;
    CXmlDocument document;
    document.Load(u"order.finf");
    CXmlElement const* item = document.GetDocumentElement()->GetFirstElement();
    for (; item != nullptr; item = item->GetNextSiblingElement()) all += item->GetText();
    EXPECT_EQ(all.size(), 100U);
}

namespace {

CBinaryData Compressed(CXmlObjectBase const& object, CXmlSerializationContext const& context) {
    CBinaryData data = object.ToXmlStream(true, false, enc_UTF8, eol_LF, context, cmp_None);
    try {
        data.CompressData(cmp_GZip);
    } catch (CBxException const&) {
        // Too small to shrink: it goes as it is, and reads back all the same.
    }
    return data;
}

}  // namespace

TEST_F(Guide, SmallDocuments) {
    EXPECT_EQ(Compressed(order, context)[0], 0x1F);
    CBinaryData const data = Compressed(CElement(u"a"), context);
    EXPECT_EQ(data[0], '<');
    order.FromXmlStream(data, context);
}

TEST_F(Guide, Settings) {
    order.ToXmlFile(u"order.xml", true, true, enc_UTF8, eol_LF, context, cmp_None);
    CXmlSerializationContext tolerant;
    tolerant.SetIgnoreUnknownElements(true);
    tolerant.SetIgnoreUnknownAttributes(true);
    order.FromXmlFile(u"order.xml", tolerant);
    EXPECT_THROW(tolerant.SetIgnoreMissingMandatoryElements(true), CBxInvalidStateException);

    CXmlSerializationContext decorated;
    decorated.SetDefaultNamespaceURI(u"urn:orders");
    decorated.GetNamespaceAliases().Add(u"xsi", u"http://www.w3.org/2001/XMLSchema-instance");
    decorated.GetProcessingInstructions().push_back(u"<?xml-stylesheet href='order.css'?>");
    decorated.GetAdditionalRootAttributes()->Add(u"lang", u"en", u"http://www.w3.org/XML/1998/namespace");
    EXPECT_EQ(decorated.GetNamespaceAliases().GetNamespaceCount(), 1);
}

TEST_F(Guide, Errors) {
    std::ostringstream cerr;  // in the place of std::cerr
    try {
        order.FromXmlFile(u"missing.xml", context);
    } catch (CBxValidationException const& failure) {
        cerr << "no order: " << ToUtf8(failure.GetFullMessage()) << '\n';
    } catch (CBxException const& failure) {
        cerr << "not readable: " << ToUtf8(failure.GetFullMessage()) << '\n';
    }
    EXPECT_EQ(cerr.str(), "not readable: Failed to open the file [missing.xml] Error [0x00000002]\n");
}

TEST_F(Guide, Threads) {
    std::thread other([this] { Order().ToXml(false, false, eol_LF, context); });
    order.ToXml(false, false, eol_LF, context);
    other.join();
}

TEST(GuideText, HasTheExamplesOfThisSource) {
    BxTest::ExpectExamplesOf(BX_GUIDE, BX_GUIDE_SOURCE, 14);
}
