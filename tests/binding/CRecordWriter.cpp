#include "BxXmlLib5/binding/CRecordWriter.h"

#include <algorithm>

#include "BxXmlLib5/BxXmlLib5.h"
#include "binding/TestBinding.h"
#include "support/Inert.h"
#include "support/TemporaryFolder.h"

using namespace BxTest;
using namespace BxXmlLib5;

namespace {

CSmartPtr<CElement> Record(int number) {
    CSmartPtr<CElement> const record = new CElement(u"r", u"N");
    record->GetAttributes()->Add(u"n", FromUtf8(std::to_string(number)).c_str(), u"");
    record->GetChildElements()->Add(u"c", u"M")->SetText(u"some text \U0001F600");
    return record;
}

/// Writes a document of records, and gives the same one as a tree.
CSmartPtr<CElement> WriteRecords(CRecordWriter& writer, int count) {
    CSmartPtr<CElement> const root = new CElement(u"a", u"N");
    root->GetAttributes()->Add(u"k", u"v", u"M");
    CSmartPtr<CElement> const inner = root->GetChildElements()->Add(u"b", u"N");
    writer.Start(u"a", u"N");
    writer.Attribute(u"k", u"v", u"M");
    writer.Start(u"b");
    for (int i = 0; i < count; ++i) {
        inner->GetChildElements()->Add(Record(i));
        writer.Write(*Record(i));
    }
    writer.End();
    root->GetChildElements()->Add(u"t", u"")->SetText(u"end");
    writer.Start(u"t", u"");
    writer.Text(u"end");
    writer.Finish();
    return root;
}

TEST(CRecordWriter, GivesTheDocumentThatATreeWouldGive) {
    for (int const count : {0, 1, 5'000}) {
        for (int form = 0; form < 9; ++form) {
            RecordSettings settings;
            settings.m_isFastInfoset = form % 3 == 2;
            settings.m_layout = form % 3 == 0 ? Layout::Compact : Layout::Indented;
            settings.m_compression = static_cast<CompressionType>(form / 3);
            CBinaryData written;
            std::size_t largest = 0;
            CRecordWriter writer(
                [&](auto octets) {
                    written.Append(octets);
                    largest = std::max(largest, octets.size());
                },
                settings);
            CSmartPtr<CElement> const root = WriteRecords(writer, count);
            CXmlSerializationContext const context;
            CBinaryData const whole = settings.m_isFastInfoset
                                          ? root->ToFastInfosetStream(fi_None, context, cmp_None)
                                          : root->ToXmlStream(true, settings.m_layout == Layout::Indented,
                                                              enc_UTF8, eol_LF, context, cmp_None);
            if (settings.m_compression == cmp_None && !settings.m_isFastInfoset) {
                EXPECT_EQ(written, whole) << form;
            } else {  // a tree writes an empty text besides, which Fast Infoset pads
                CSmartPtr<CElement> const read = CElement::LoadXmlStream(written);
                EXPECT_EQ(read->ToXml(false, false, eol_LF, context),
                          CElement::LoadXmlStream(whole)->ToXml(false, false, eol_LF, context))
                    << form;
            }
            EXPECT_LT(largest, 80'000u);
        }
    }
}

TEST(CRecordWriter, DecoratesTheRoot) {
    RecordSettings settings;
    settings.m_context.SetDefaultNamespaceURI(u"N");
    settings.m_context.GetNamespaceAliases().Add(u"p", u"M");
    settings.m_context.GetProcessingInstructions().push_back(u"<?i?>");
    settings.m_context.GetAdditionalRootAttributes()->Add(u"k", u"v", u"M");
    std::string text;
    CRecordWriter writer([&](auto octets) { text.append(octets.begin(), octets.end()); }, settings);
    writer.Start(u"a");
    writer.Write(*Record(1));
    writer.Finish();
    EXPECT_EQ(text,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<?i?>\n\n<a xmlns=\"N\" xmlns:p=\"M\" p:k=\"v\">"
              "<r n=\"1\"><p:c>some text \U0001F600</p:c></r></a>");
}

/// What comes of a few steps, read again.
std::string Written(bool isFastInfoset, std::function<void(CRecordWriter&)> const& write) {
    RecordSettings settings;
    settings.m_isFastInfoset = isFastInfoset;
    settings.m_context.SetDefaultNamespaceURI(u"N");
    CBinaryData written;
    CRecordWriter writer([&](auto octets) { written.Append(octets); }, settings);
    std::string const thrown = Thrown([&] { write(writer), writer.Finish(); });
    if (thrown != "nothing") return thrown;
    CXmlSerializationContext const context;
    return ToUtf8(CElement::LoadXmlStream(written)->ToXml(false, false, eol_LF, context));
}

TEST(CRecordWriter, LimitsTheTablesOfFastInfoset) {
    // Octets of a document of many distinct texts, one of which comes again and again.
    auto const sizeWith = [](int again) {
        RecordSettings settings;
        settings.m_isFastInfoset = true;
        std::size_t size = 0;
        CRecordWriter writer([&](auto octets) { size += octets.size(); }, settings);
        writer.Start(u"a");
        for (int i = 10'000; i < 90'000; ++i) {
            writer.Start(u"b");
            writer.Text(FromUtf8(std::to_string(i < 80'000 ? i : again)).c_str());
            writer.End();
        }
        writer.Finish();
        return size;
    };
    EXPECT_EQ(sizeWith(70'000), sizeWith(75'000));
    EXPECT_GT(sizeWith(79'000), sizeWith(75'000) + 20'000);
}

/// An element of the name and in the namespace that it is given.
struct CNamed : Inert {
    CNamed() { SetElementName(u"r"); }
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const&, bool) const override {
        EXPECT_FALSE(isRoot);
        writer->WriteStartElement(GetElementName(), namespaceUri);
        writer->WriteEndElement();
    }
};

TEST(CRecordWriter, WritesNamesAndTextsAsTheyComeBack) {
    CElement element(u"e", u"N", u"##any", u"");
    auto const write = [&](CRecordWriter& writer) {
        CNamed record;
        writer.Start(u"a");
        writer.Attribute(u"k", u"x\ny");
        writer.Write(record);
        writer.Write(record, u"s");
        writer.Write(record, u"t", u"M");
        writer.Write(element, u"f");
    };
    auto const writeNoNamespace = [](CRecordWriter& writer) { writer.Start(u"a", u""); };
    for (bool const isFastInfoset : {false, true})
        EXPECT_EQ(
            Written(isFastInfoset, write),
            "<AA:a xmlns:AA=\"N\" k=\"x\ny\"><AB:r xmlns:AB=\"target\"/><AA:s/><AB:t xmlns:AB=\"M\"/><AA:e/></AA:a>");
    EXPECT_EQ(
        Written(false, writeNoNamespace),
        "CBxInvalidNamespaceException: The element [a] is in no namespace, but would come back in the default one");
    EXPECT_EQ(Written(true, writeNoNamespace), "<a/>");
}

TEST(CRecordWriter, ReplacesTheFileAtTheEndAlone) {
    TemporaryFolder const folder;
    std::string const path = folder.Write("f", "old");
    for (bool const finishes : {false, true}) {
        CRecordWriter writer(path);
        writer.Start(u"a");
        for (int i = 0; i < 10'000; ++i) writer.Write(*Record(i));
        EXPECT_EQ(Content(path), "old");
        if (finishes) writer.Finish();
    }
    EXPECT_EQ(CElement::Load(path)->GetChildElements()->GetCount(), 10'000);
    EXPECT_EQ(folder.Run("/bin/ls", "ls -A").m_out, "f\n");
    EXPECT_BX_THROW(CRecordWriter("/nowhere/f"), CBxException,
                    "Failed to write data to the file [/nowhere/f] error [0x00000002]");
    CRecordWriter full("/dev/full");
    full.Start(u"a");
    EXPECT_BX_THROW((full.Finish(), 0), CBxException,
                    "Failed to write data to the file [/dev/full] error [0x0000001C]");
}

/// An object that writes no element.
struct CNothing : CNamed {
    void ToXml_Int(CXmlWriter*, bool, char16_t const*, CXmlSerializationContext const&, bool) const override {
    }
};

TEST(CRecordWriter, AcceptsNothingAfterAFailure) {
    std::string const state = "CBxInvalidStateException: ";
    struct {
        std::function<void(CRecordWriter&)> m_step;
        std::string m_thrown;
    } const rows[] = {
        {[](auto& writer) { writer.End(); }, state + "No element is open"},
        {[](auto& writer) { writer.Finish(); }, state + "The document has no root"},
        {[](auto& writer) { writer.Text(u"x"); }, state + "No element is open"},
        {[](auto& writer) { writer.Start(u"a"), writer.End(), writer.Start(u"b"); },
         state + "The document has a root already"},
        {[](auto& writer) { writer.Write(*Record(1)), writer.Write(*Record(2)); },
         state + "The document has a root already"},
        {[](auto& writer) { writer.Start(u"a"), writer.Text(u"x"), writer.Attribute(u"k", u"v"); },
         "CBxException: Attributes must be added before elements"},
        {[](auto& writer) { writer.Start(u"a b"); },
         "CBxInvalidValueException: The element [a b] has the character U+0020, which cannot stand there"},
        {[](auto& writer) { writer.Write(CNothing()), writer.Finish(); }, state + "The document has no root"},
        {[](auto& writer) { writer.Start(u"a"), writer.Finish(), throw CBxException(u"finished"); },
         "CBxException: finished"},
    };
    for (auto const& row : rows) {
        CRecordWriter writer([](auto) {});
        EXPECT_EQ(Thrown([&] { row.m_step(writer); }), row.m_thrown);
        EXPECT_BX_THROW((writer.Start(u"a"), 0), CBxInvalidStateException,
                        "Nothing is written any more, since the document is finished or failed");
    }
    EXPECT_BX_THROW(CRecordWriter(CRecordWriter::Sink()), CBxInvalidParamException, "There is no sink");
}

/// Fails in another way each time.
struct CFickle : CNamed {
    void ToXml_Int(CXmlWriter*, bool, char16_t const*, CXmlSerializationContext const&, bool) const override {
        throw CBxException(FromUtf8(std::to_string(++m_count)));
    }
    mutable int m_count = 0;
};

TEST(CRecordWriter, TellsWhereItFails) {
    auto const bad = [](char16_t const* attribute) {
        CSmartPtr<CElement> const record = Record(1);
        record->GetChildElements()->Add(u"d", u"");
        CSmartPtr<CElement> const child = record->GetChildElements()->Add(u"d", u"M");
        child->GetAttributes()->Add(attribute, u"", u"");
        return record;
    };
    struct {
        std::function<void(CRecordWriter&)> m_step;
        std::string m_path;
    } const rows[] = {
        {[&](auto& writer) { writer.Write(*bad(u"-")); }, "/a/b[2]/r[1]/d[2]/@-"},
        {[&](auto& writer) { writer.Write(*Record(1)), writer.Write(*bad(u"-")); }, "/a/b[2]/r[2]/d[2]/@-"},
        {[&](auto& writer) {
             CNamed other;
             CElement element(u"s", u"N", u"##any", u"");
             writer.Write(other), writer.Write(other, u"s"), writer.Write(element, u"r");
             writer.Write(other, u"-");
         },
         "/a/b[2]/-[1]"},
        {[&](auto& writer) {
             CNamed other;
             CElement element(u"s", u"N", u"##any", u"");
             writer.Write(other, u"s"), writer.Write(element, u"r"), element.SetName(u"s");
             element.SetText(u"\x1");
             writer.Write(element);
         },
         "/a/b[2]/s[3]"},
        {[](auto& writer) { writer.Write(CFickle()); }, "/a/b[2]"},
        {[](auto& writer) { writer.Start(u"c d"); }, "/a/b[2]/c d[1]"},
        {[](auto& writer) { writer.End(), writer.Start(u"b"), writer.Text(u"\x1"); }, "/a/b[3]"},
        {[](auto& writer) { writer.Attribute(u"k", u"\x1"); }, "/a/b[2]/@k"},
        {[](auto& writer) { writer.Text(u"x"), writer.Attribute(u"k", u""); }, "/a/b[2]/@k"},
        {[](auto& writer) { writer.End(), writer.End(), writer.End(); }, ""},
    };
    for (bool const isFastInfoset : {false, true}) {
        RecordSettings settings;
        settings.m_isFastInfoset = isFastInfoset;
        settings.m_context.GetProcessingInstructions().push_back(u"<?i?>");
        for (auto const& row : rows) {
            CRecordWriter writer([](auto) {}, settings);
            writer.Start(u"a");
            writer.Start(u"b"), writer.End();
            writer.Start(u"b");
            EXPECT_EQ(PathOf([&] { row.m_step(writer); }), row.m_path);
        }
        settings.m_context.SetCheckWellFormed(false);
        settings.m_context.SetDefaultNamespaceURI(u"<");
        CRecordWriter unchecked([](auto) {}, settings);
        TestObject object(Class("a:{b:short?<long>}*"));
        Read(object, "<a/>");
        unchecked.Start(u"x y");
        EXPECT_EQ(PathOf([&] { unchecked.Write(object); }), "/x y/r[1]/a/b");
        settings.m_context.GetAdditionalRootAttributes()->Add(u"-", u"", u"");
        settings.m_context.SetCheckWellFormed(true);
        settings.m_context.SetDefaultNamespaceURI(u"");
        CRecordWriter decorated([](auto) {}, settings);
        EXPECT_EQ(PathOf([&] { decorated.Start(u"a"); }), "/a/@-");
    }
    // Names beyond a thousand are not counted, so that they take no memory.
    for (auto const& [name, path] : {std::pair{u"n999", "/a/n999[3]/@-"}, {u"n1000", "/a/n1000/@-"}}) {
        CRecordWriter writer([](auto) {});
        writer.Start(u"a");
        CNamed record;
        for (int i = 0; i < 3'000; ++i)
            writer.Write(record, (u"n" + FromUtf8(std::to_string(i % 1'500))).c_str());
        writer.Start(name);
        EXPECT_EQ(PathOf([&] { writer.Attribute(u"-", u""); }), path);
    }
}

}  // namespace
