#include "BxXmlLib5/writers/CXmlWriter.h"

#include <array>

#include "core/Limits.h"
#include "support/Expect.h"
#include "support/StrictFastInfoset.h"
#include "support/WriterScript.h"
#include "writers/CFastInfosetWriter.h"
#include "writers/CXmlTextWriter.h"

using namespace BxTest;
using namespace BxXmlLib5;
using Map = std::map<wstring, wstring>;

namespace {

/// What all writers have in common.
class Writer : public CElementWriter {
public:
    Writer() : CElementWriter(u"Writer") {}
    void WriteComment(wstring const&) override {}
    void WriteProcessingInstruction(wstring const&) override {}
    void WriteInLineSchema(wstring const&) override {}
    void WriteStartElement(wstring const&, wstring const& ns) override {
        Start();
        m_prefix = Scopes().TakePrefix(ns).m_alias;
    }
    void WriteText(wstring const&) override {}
    void WriteEndElement() override { Context().End(); }
    void WriteAttribute(wstring const&, wstring const&, wstring const&) override {}
    wstring DeclaredPrefix(wstring const&) override { return {}; }
    using CXmlWriter::GetUniquePrefix, CXmlWriter::NsIntToString;
    wstring const& InnermostPrefix() { return m_prefix; }

private:
    wstring m_prefix;
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

TEST(CXmlWriter, TakesTheNamespacesOfAnotherAndNoOpenElement) {
    Writer source, assigned;
    Write(source, "+p=P *D <P|a");
    Write(assigned, "+gone=P <P|a <P|b");
    Writer copy = source;
    assigned = source;
    assigned = *&assigned;
    for (Writer* writer : {&copy, &assigned}) {
        Write(*writer, ".");  // nothing is open
        Write(*writer, "+q=Q <Q|b");
        EXPECT_EQ(writer->InnermostPrefix(), u"q");
        Write(*writer, "<P|c");
        EXPECT_EQ(writer->InnermostPrefix(), u"p");
    }
    Write(source, "<Q|b");
    EXPECT_EQ(source.InnermostPrefix(), u"AA");
    Write(source, "> > .");
}

/// An assignment sees the base of a writer alone, whatever it is in the midst of.
TEST(CXmlWriter, BeginsAnewWhenAssignedToWithAnElementOpen) {
    CXmlTextWriter source, text;
    text.SetFormatting(false);
    CFastInfosetWriter infoset;
    Write(source, "+p=P *D");
    infoset.WriteStartDocument(fi_None);
    for (CXmlWriter* writer : {static_cast<CXmlWriter*>(&text), static_cast<CXmlWriter*>(&infoset)}) {
        Write(*writer, "+gone=P <P|a @k=v ^N|T");
        *writer = source;
        Write(*writer, "<P|b");
        CXmlWriter const& same = *writer;
        *writer = same;
        Write(*writer, "> .");
    }
    EXPECT_TRUE(text.GetString().ends_with(u"<p:b xmlns=\"D\" xmlns:p=\"P\"/>"));
    EXPECT_EQ(CStrictFastInfoset::Read(infoset.GetBinaryData().GetOctets()), "<{P}b></>");
}

/// Expects a call to be refused and to change nothing.
template <class AnyWriter>
void ExpectRefused(std::array<std::string, 4> const& row, auto const& output) {
    auto const& [before, refused, message, after] = row;
    AnyWriter writer, expected;
    Write(writer, before);
    EXPECT_EQ(Thrown([&writer, &call = refused] { Write(writer, call); }), message)
        << before << " " << refused;
    Write(writer, after);
    Write(expected, before + " " + after);
    EXPECT_EQ(output(writer), output(expected)) << before << " " << refused;
}

TEST(CXmlWriter, RefusesACallAndKeepsItsState) {
    std::string const late = "CBxException: Attributes must be added before elements";
    std::string const open = "CBxException: An Element has not been closed.";
    std::string const noElement = "CBxInvalidStateException: No element is open";
    std::string const deep =
        "CBxException: Elements are nested more than 1024 levels deep, which is the limit";
    std::string starts, ends;
    for (int i = 0; i < kMaxElementDepth; ++i) starts += "<b ", ends += " >";
    std::array<std::string, 4> const rows[] = {{"<a 'x", "@N|k=v", late, "<N|b > > ."},
                                               {"<a ?p", "@k=v", late, ">"},
                                               {"<a <b >", "^N|T", late, ">"},
                                               {"<a", ".", open, "@k= > ."},
                                               {"", ">", noElement, "<a >"},
                                               {"<a >", "@k=v", noElement, "."},
                                               {"<a >", "'x", noElement, "."},
                                               {"<a >", "^N|T", noElement, "."},
                                               {starts, "<c", deep, "'x" + ends + " ."}};
    for (auto const& row : rows) {
        ExpectRefused<CXmlTextWriter>(row, [](auto& writer) { return writer.GetString(); });
        ExpectRefused<CFastInfosetWriter>(row, [](auto& writer) { return writer.GetBinaryData(); });
    }
}

}  // namespace
