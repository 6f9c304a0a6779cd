#include "BxXmlLib5/writers/CXmlWriter.h"

#include "support/Expect.h"
#include "writers/CXmlWriterContext.h"

using namespace BxXmlLib5;

namespace {

using Map = std::map<wstring, wstring>;

/// A writer that writes nothing.
class Writer : public CXmlWriter {
public:
    Writer() : CXmlWriter(u"Writer") {}

    void WriteComment(wstring const&) override {}
    void WriteProcessingInstruction(wstring const&) override {}
    void WriteInLineSchema(wstring const&) override {}
    void WriteStartElement(wstring const& name, wstring const& ns) override { Push(NewRecord(name, ns)); }
    void WriteText(wstring const&) override {}
    void WriteEndElement() override { Pop(); }
    void WriteAttribute(wstring const&, wstring const&, wstring const&) override {}
    void WriteXsiType(wstring const&, wstring const&) override {}

    using CXmlWriter::Current;
    using CXmlWriter::GetUniquePrefix;
    using CXmlWriter::NsIntToString;
    using CXmlWriter::RootDefaultNamespace;
    using CXmlWriter::RootNamespaces;
};

TEST(CXmlWriter, NamesPrefixesByIndex) {
    struct Row {
        int m_index;
        char const* m_prefix;
    };
    for (Row const& row : {Row{0, "AA"},
                           {1, "AB"},
                           {25, "AZ"},
                           {26, "BA"},
                           {51, "BZ"},
                           {675, "ZZ"},
                           {676, "AAA"},
                           {677, "AAB"},
                           {702, "ABA"},
                           {1352, "BAA"},
                           {18251, "ZZZ"},
                           {18252, "AAAA"}}) {
        EXPECT_EQ(ToUtf8(Writer().NsIntToString(row.m_index)), row.m_prefix);
    }
}

TEST(CXmlWriter, TakesTheFirstPrefixThatIsNoAlias) {
    Writer writer;
    EXPECT_EQ(writer.GetUniquePrefix({}), u"AA");
    EXPECT_EQ(writer.GetUniquePrefix({{u"AA", u"p"}, {u"AB", u""}}), u"AA");
    EXPECT_EQ(writer.GetUniquePrefix({{u"1", u"aa"}, {u"2", u"AAA"}, {u"3", u"A"}, {u"4", u"AA "}}), u"AA");
    EXPECT_EQ(writer.GetUniquePrefix({{u"1", u"AC"}, {u"2", u"AA"}, {u"3", u"ZZ"}}), u"AB");
    EXPECT_EQ(writer.GetUniquePrefix({{u"1", u"AA"}, {u"2", u"AA"}, {u"3", u"AB"}}), u"AC");
    Map used;
    for (int i = 0; i < 676; ++i) {
        wstring const prefix = writer.NsIntToString(i);
        EXPECT_EQ(writer.GetUniquePrefix(used), prefix);
        used[prefix + u"/uri"] = prefix;
    }
    EXPECT_EQ(writer.GetUniquePrefix(used), u"AAA");
    used[u"x"] = u"AAA";
    EXPECT_EQ(writer.GetUniquePrefix(used), u"AAB");
    used.erase(u"BA/uri");
    EXPECT_EQ(writer.GetUniquePrefix(used), u"BA");
}

TEST(CXmlWriter, CopiesTheNamespacesAndNoOpenElement) {
    Writer source;
    source.AddNamespace(u"p", u"P");
    source.SetDefaultNamespace(u"D");
    source.WriteStartElement(u"a", u"");
    Writer copy = source;
    Writer assigned;
    assigned.AddNamespace(u"gone", u"G");
    assigned = source;
    for (Writer* writer : {&copy, &assigned}) {
        EXPECT_EQ(writer->RootNamespaces(), (Map{{u"P", u"p"}}));
        EXPECT_EQ(writer->RootDefaultNamespace(), u"D");
        EXPECT_EQ(writer->Current(), nullptr);
        writer->WriteEndDocument();
        writer->AddNamespace(u"q", u"Q");
        writer->WriteStartElement(u"b", u"");
    }
    EXPECT_EQ(source.RootNamespaces(), (Map{{u"P", u"p"}}));
    EXPECT_EQ(source.Current()->m_name, u"a");
    source.WriteEndElement();
    source.WriteEndDocument();
}

TEST(CXmlWriter, KeepsARecordForEachOpenElement) {
    Writer writer;
    writer.WriteStartElement(u"a", u"A");
    writer.WriteStartElement(u"b", u"B");
    EXPECT_EQ(writer.Current()->m_depth, 1U);
    EXPECT_EQ(writer.Current()->m_parent->m_name, u"a");
    writer.Current()->m_startTagOpen = false;
    writer.Current()->m_childCount = 5;
    writer.Current()->m_hasAttributes = true;
    writer.WriteEndElement();
    writer.WriteStartElement(u"c", u"C");
    EXPECT_EQ(writer.Current()->m_name + writer.Current()->m_namespace, u"cC");
    EXPECT_TRUE(writer.Current()->m_startTagOpen && !writer.Current()->m_hasAttributes);
    EXPECT_EQ(writer.Current()->m_childCount, 0U);
    EXPECT_EQ(writer.Current()->m_depth, 1U);
}

}  // namespace
