#include "BxXmlLib5/writers/CXmlWriter.h"

#include "support/Expect.h"
#include "writers/CXmlWriterContext.h"

using namespace BxXmlLib5;
using Map = std::map<wstring, wstring>;

namespace {

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
    using CXmlWriter::Current, CXmlWriter::GetUniquePrefix, CXmlWriter::NsIntToString;
    using CXmlWriter::RootDefaultNamespace, CXmlWriter::RootNamespaces;
};

TEST(CXmlWriter, MakesPrefixesOfTwoLettersThenOfThree) {
    Writer writer;
    std::string prefixes;
    for (int i : {0, 1, 25, 26, 51, 675, 676, 677, 702, 1352, 18251})
        prefixes += ToUtf8(writer.NsIntToString(i)) + " ";
    EXPECT_EQ(prefixes, "AA AB AZ BA BZ ZZ AAA AAB ABA BAA ZZZ ");
    EXPECT_EQ(
        writer.GetUniquePrefix({{u"AA", u"p"}, {u"1", u"aa"}, {u"2", u"AAA"}, {u"3", u"A"}, {u"4", u"AA "}}),
        u"AA");
    EXPECT_EQ(writer.GetUniquePrefix({{u"1", u"AC"}, {u"2", u"AA"}, {u"3", u"ZZ"}, {u"4", u"AA"}}), u"AB");
    Map used;
    for (int i = 0; i <= 676; ++i) {
        wstring const prefix = writer.NsIntToString(i);
        EXPECT_EQ(writer.GetUniquePrefix(used), prefix);
        used[u"uri of " + prefix] = prefix;
    }
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
        writer->AddNamespace(u"q", u"Q");
        writer->WriteStartElement(u"b", u"");
    }
    EXPECT_EQ(source.RootNamespaces(), (Map{{u"P", u"p"}}));
    EXPECT_EQ(source.Current()->m_name, u"a");
}

}  // namespace
