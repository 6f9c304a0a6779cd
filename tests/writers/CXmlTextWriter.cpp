#include "writers/CXmlTextWriter.h"

#include <array>

#include "BxXmlLib5/document/CXmlDocument.h"
#include "core/Limits.h"
#include "support/Expect.h"
#include "support/WriterScript.h"

using namespace BxTest;
using namespace BxXmlLib5;
using namespace std::string_literals;

namespace {

struct Row {
    std::string m_script;
    std::string m_expected;
};

void ExpectWritten(std::initializer_list<Row> rows, bool formatting = false, EOLType eol = eol_LF) {
    for (Row const& row : rows) {
        CXmlTextWriter writer;
        writer.SetFormatting(formatting);
        writer.SetEOLType(eol);
        Write(writer, row.m_script);
        EXPECT_EQ(ToUtf8(writer.GetString()), Expand(row.m_expected)) << row.m_script;
    }
}

TEST(CXmlTextWriter, DeclaresTheEncodingAndBeginsAnew) {
    std::string const names[] = {"", "", " encoding=\"UTF-8\"", " encoding=\"UTF-16\"", "", ""};
    for (int encoding = -1; encoding <= 4; ++encoding) {
        CXmlTextWriter writer;
        writer.SetFormatting(encoding % 2 == 0);
        Write(writer, "?gone");
        writer.WriteStartDocument(static_cast<XmlEncoding>(encoding));
        EXPECT_EQ(ToUtf8(writer.TakeString()), "<?xml version=\"1.0\"" + names[encoding + 1] + "?>\n");
        writer.SetEOLType(eol_CRLF);
        writer.WriteStartDocument(enc_UTF8);
        EXPECT_EQ(writer.GetString(), u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n");
    }
}

TEST(CXmlTextWriter, WritesWhatStandsBesideElementsWithLineEnds) {
    for (bool formatting : {false, true}) {
        ExpectWritten(
            {{"?<?p\"&?> !<c>&\"-- <a @k=v #<s>\"&</s> @l=w",
              "<?p\"&?>\r\n\r\n<!--&lt;c&gt;&amp;&quot;---->\r\n<a k=\"v\" \r\n<s>\"&</s>\r\n l=\"w\""}},
            formatting, eol_CRLF);
    }
    // A start tag that is open is closed first.
    ExpectWritten({{"<a !c > !d", "<a><!--c-->\n</a><!--d-->\n"}, {"<a ?p <b > >", "<a>p\n\n<b/></a>"}});
}

TEST(CXmlTextWriter, FormatsByLevels) {
    std::string const script = "<a @k=v <b 'x > <c <d <e > > <f 'y > > <g > >";
    std::string const formatted =
        "<a k=\"v\">\n\t<b>x</b>\n\t<c>\n\t\t<d>\n\t\t\t<e/>\n\t\t</d>\n\t\t<f>y</f>\n\t</c>\n\t<g/>\n</a>\n";
    ExpectWritten({{script, formatted},
                   {"<a <b 'x <c > 'y > >", "<a>\n\t<b>x\t\t<c/>\ny\t</b>\n</a>\n"},
                   {"<a > <b >", "<a/>\n<b/>\n"}},
                  true);
    ExpectWritten({{script, Replaced(Replaced(formatted, "\n", ""), "\t", "")}}, false, eol_CRLF);
}

TEST(CXmlTextWriter, EscapesTextValuesAndCommentsAlike) {
    wstring const special = u"<&>\"'\n\r\0\u20AC."s;
    std::string const expected = "&lt;&amp;&gt;&quot;'\r\n\0\u20AC."s;
    CXmlTextWriter writer;
    writer.SetFormatting(false);
    writer.SetEOLType(eol_CRLF);
    writer.WriteComment(special);
    writer.WriteProcessingInstruction(u"\0\n\r"s);
    Write(writer, "+p&=<\"> <\"|a&");
    writer.WriteAttribute(u"k<", u"<\">", special);
    writer.WriteInLineSchema(u"\0\n\r"s);
    writer.WriteText(special);
    writer.WriteText(special);
    writer.WriteStartElement(u"b", u"");
    writer.WriteText(u"\r");
    Write(writer, ">");
    EXPECT_EQ(ToUtf8(writer.GetString()),
              "<!--" + expected + "-->\r\n\0\n\r\r\n\r\n<AA:a& xmlns:AA=\"\"\" xmlns:p&=\"<\">\" p&:k<=\""s +
                  expected + "\" \r\n\0\n\r\r\n>"s + expected + expected + "<b></b>");
    ExpectWritten({{"<a ' @k= >", "<a k=\"\"/>"}});
}

TEST(CXmlTextWriter, DeclaresANewPrefixOnTheElementThatNeedsIt) {
    ExpectWritten(
        {{"<N|a 'x > <N|b >", R"(<AA:a xmlns:AA="N">x</AA:a><AA:b xmlns:AA="N"/>)"},
         {"<N|a <b <M|c <d <N|e > <L|f > <M|g > > > <M|h > > <L|i > >",
          R"(<AA:a xmlns:AA="N"><b><AB:c xmlns:AB="M"><d><AA:e/><AC:f xmlns:AC="L"/><AB:g/></d></AB:c>)"
          R"(<AB:h xmlns:AB="M"/></b><AB:i xmlns:AB="L"/></AA:a>)"}});
}

TEST(CXmlTextWriter, DeclaresTheDefaultNamespaceAndTheAliasesOnTheRoot) {
    ExpectWritten(
        {{"*M *N <N|a <b > <N|c 'x > <M|d > >", R"(<a xmlns="N"><b/><c>x</c><AA:d xmlns:AA="M"/></a>)"},
         {"+p=N <N|a <N|b > <c > >", R"(<p:a xmlns:p="N"><p:b/><c/></p:a>)"},
         {"+p=P *D <N|a @k=v >", R"(<AA:a xmlns:AA="N" xmlns="D" xmlns:p="P" k="v"/>)"},
         {"+a=z +c=\uFFFD +d=\U00010000 +b=Z <r >",  // U+10000 begins with D800, before FFFD
          "<r xmlns:b=\"Z\" xmlns:a=\"z\" xmlns:d=\"\U00010000\" xmlns:c=\"\uFFFD\"/>"},
         {"+p=N +q=N +q=M <N|a >", R"(<q:a xmlns:q="M" xmlns:q="N"/>)"},
         {"+AC=X <a @N0|k= @N1|k= <b @N2|k= > <c @N2|k= > >",
          R"(<a xmlns:AC="X" xmlns:AA="N0" AA:k="" xmlns:AB="N1" AB:k=""><b xmlns:AD="N2" AD:k=""/>)"
          R"(<c xmlns:AD="N2" AD:k=""/></a>)"},
         {"+=N <N|a >", R"(<AA:a xmlns:AA="N"/>)"},
         {"+p=P *D <a > <N|b >", R"(<a xmlns="D" xmlns:p="P"/><AA:b xmlns:AA="N" xmlns="D" xmlns:p="P"/>)"}});
}

TEST(CXmlTextWriter, NeverLeavesAnAttributeToTheDefaultNamespace) {
    ExpectWritten(
        {{"*N <N|a @N|k=v @N|l= @n= <N|b > >", R"(<a xmlns="N" xmlns:AA="N" AA:k="v" AA:l="" n=""><b/></a>)"},
         {"*D <a <b @N|k=v <N|c > <D|d > > <N|e > >",
          R"(<a xmlns="D"><b xmlns:AA="N" AA:k="v"><AA:c/><d/></b><AA:e xmlns:AA="N"/></a>)"}});
}

TEST(CXmlTextWriter, WritesTheTypeOfAnElement) {
    ExpectWritten({{"<a ^T >", R"(<a xmlns:AA="XSI" AA:type="T"/>)"},
                   {"+x=XSI *N <a ^N|<T> >", R"(<a xmlns="N" xmlns:x="XSI" x:type="&lt;T&gt;"/>)"},
                   {"+p=N *N <a ^N|T >", R"(<a xmlns="N" xmlns:p="N" xmlns:AA="XSI" AA:type="T"/>)"},
                   {"<a <b ^N|T <N|c > > <d ^N|T > >",
                    R"(<a><b xmlns:AA="N"  xmlns:AB="XSI" AB:type="AA:T"><AA:c/></b>)"
                    R"(<d xmlns:AA="N"  xmlns:AB="XSI" AB:type="AA:T"/></a>)"}});
}

TEST(CXmlTextWriter, BindsTheXmlNamespaceToItsPrefixAlways) {
    ExpectWritten(
        {{"+p=XMLNS +q=Q <XMLNS|a <XMLNS|b 'x > >", R"(<xml:a xmlns:q="Q"><xml:b>x</xml:b></xml:a>)"},
         {"+xml=XMLNS +i=XSI <a ^XMLNS|T >", R"(<a xmlns:i="XSI" i:type="xml:T"/>)"},
         {"*XMLNS <XMLNS|a @XMLNS|lang=de >", R"(<xml:a xml:lang="de"/>)"}});
}

TEST(CXmlTextWriter, ChangesTheScopeOfAnOpenElementAlone) {
    ExpectWritten(
        {{"<N|a *N <N|b > >", R"(<AA:a xmlns:AA="N"><b/></a>)"},
         {"*N <N|a *M <N|b >", R"(<a xmlns="N"><AA:b xmlns:AA="N"/>)"},
         {"<N|a +q=N @N|k= <N|b > >", R"(<AA:a xmlns:AA="N" q:k=""><q:b/></q:a>)"},
         {"<N|a <N|b +q=N 'x > >", R"(<AA:a xmlns:AA="N"><AA:b>x</q:b></AA:a>)"},
         {"+p=N *N <N|a *M <N|b > <M|c > >", R"(<a xmlns="N" xmlns:p="N"><p:b/><c/></p:a>)"},
         {"<N|a <L|b <c +q=Q <M|d", R"(<AA:a xmlns:AA="N"><AB:b xmlns:AB="L"><c><AC:d xmlns:AC="M")"},
         {"*D <a * 'x <b > <D|c > >", R"(<a xmlns="D">x<b/><AA:c xmlns:AA="D"/></a>)"},
         {"<a @N|k= +AB=X @M|l= <X|b > >", R"(<a xmlns:AA="N" AA:k="" xmlns:AC="M" AC:l=""><AB:b/></a>)"},
         {"<a @N|k= <b +q=N @M|l= > >", R"(<a xmlns:AA="N" AA:k=""><b xmlns:AA="M" AA:l=""/></a>)"},
         {"+p=P <a +q=Q *D > <D|b >", R"(<a xmlns:p="P"/><AA:b xmlns:AA="D" xmlns:p="P"/>)"},
         // The record of an element that was closed begins anew.
         {"<r <a +p=N @N|k= <N|c > > <b @N|k= 'x > >",
          R"(<r><a p:k=""><p:c/></a><b xmlns:AA="N" AA:k="">x</b></r>)"},
         {"<r <a *N <N|c > > <b *M <M|d > <N|e > > >",
          R"(<r><a><c/></a><b><d/><AA:e xmlns:AA="N"/></b></r>)"},
         {"<r <N|a +q=N 'x > <b 'y > >", R"(<r><AA:a xmlns:AA="N">x</q:a><b>y</b></r>)"},
         // A scope that is copied brings the default namespace and the aliases along.
         {"*D <D|a <D|b +q=M <M|c > <D|d > > <M|e > >",
          R"(<a xmlns="D"><b><q:c/><d/></b><AA:e xmlns:AA="M"/></a>)"},
         {"+p=P *D <D|a <b *M <M|c > <P|d > <D|e > > <D|f > <M|g > >",
          R"(<a xmlns="D" xmlns:p="P"><b><c/><p:d/><AA:e xmlns:AA="D"/></b><f/><AA:g xmlns:AA="M"/></a>)"},
         {"<a <b *M +q=Q <c <d +r=R <M|e > <Q|f > <R|g > > > <R|h > > >",
          R"(<a><b><c><d><e/><q:f/><r:g/></d></c><AA:h xmlns:AA="R"/></b></a>)"}});
}

TEST(CXmlTextWriter, RefusesACallAndKeepsItsState) {
    std::string const late = "CBxException: Attributes must be added before elements";
    std::string const open = "CBxException: An Element has not been closed.";
    std::string const noElement = "CBxInvalidStateException: No element is open";
    std::array<std::string, 5> const rows[] = {
        {"<a 'x", "@N|k=v", late, "<N|b > >", R"(<a>x<AA:b xmlns:AA="N"/></a>)"},
        {"<a !c", "@k=v", late, ">", "<a><!--c-->\n</a>"},
        {". <a", ".", open, "@k= <b > > .", R"(<a k=""><b/></a>)"},
        {"", ">", noElement, "<a >", "<a/>"},
        {"<a >", "'x", noElement, ".", "<a/>"},
        {"<a >", "^N|T", noElement, ".", "<a/>"}};
    for (auto const& [first, refused, message, last, expected] : rows) {
        CXmlTextWriter writer;
        writer.SetFormatting(false);
        Write(writer, first);
        wstring const before = writer.GetString();
        std::string const& call = refused;
        EXPECT_EQ(BxTest::Thrown([&] { Write(writer, call); }), message) << first << " " << call;
        EXPECT_EQ(writer.GetString(), before);
        Write(writer, last);
        EXPECT_EQ(ToUtf8(writer.GetString()), expected);
    }
    CXmlTextWriter writer;
    writer.SetEOLType(eol_CRLF);
    EXPECT_BX_THROW((writer.SetEOLType(static_cast<EOLType>(2)), 0), CBxException, "Invalid EOL type.");
    Write(writer, "<a");
    writer.WriteText(u"\n");
    Write(writer, ">");
    EXPECT_EQ(writer.GetString(), u"<a>\r\n</a>\r\n");
}

TEST(CXmlTextWriter, GivesItsTextAsOctets) {
    // Characters of two units, one of them across the border of two chunks of the buffer.
    std::string const text = std::string(65'507, 'x') + "\u00E9\u20AC\U0001D11E\U0001F600";
    CXmlTextWriter writer;
    writer.WriteStartDocument(enc_UTF16);
    EXPECT_EQ(writer.GetBinaryData(enc_UTF8).GetLength(), 40U);
    writer.WriteStartDocument(enc_Unspecified);
    writer.WriteProcessingInstruction(FromUtf8(text));
    std::string const expected = "<?xml version=\"1.0\"?>\n" + text + "\n\n";
    for (int i = 0; i < 2; ++i) {
        CBinaryData const utf8 = writer.GetBinaryData(enc_UTF8);
        EXPECT_TRUE(std::string(utf8.GetOctets().begin(), utf8.GetOctets().end()) == expected);
        EXPECT_TRUE(writer.GetBinaryData(enc_UTF16).GetString() == FromUtf8(expected));
        EXPECT_EQ(writer.GetBinaryData(enc_UTF16NoDeclaration), writer.GetBinaryData(enc_UTF16));
    }
    EXPECT_BX_THROW(writer.GetBinaryData(enc_Unspecified), CBxException,
                    "Unknown Encoding, select UTF-8 or ask the vendor's support");
    EXPECT_TRUE(ToUtf8(writer.GetString()) == expected);
}

TEST(CXmlTextWriter, HalfOfASurrogatePairHasNoUtf8) {
    CXmlTextWriter writer;
    EXPECT_EQ(writer.GetBinaryData(enc_UTF8).GetLength() + writer.GetBinaryData(enc_UTF16).GetLength(), 0U);
    writer.WriteProcessingInstruction(u"\xD834");
    EXPECT_BX_THROW(writer.GetBinaryData(enc_UTF8), CBxInvalidValueException,
                    "A text with half of a surrogate pair has no UTF-8 form");
    EXPECT_EQ(writer.GetBinaryData(enc_UTF16).GetString(), u"\xD834\n\n");
}

TEST(CXmlTextWriter, LimitsTheDepth) {
    CXmlTextWriter writer;
    std::string starts = "<N|a";
    for (int i = 1; i < kMaxElementDepth; ++i) starts += " <b";
    Write(writer, starts);
    EXPECT_BX_THROW((Write(writer, "<c"), 0), CBxException,
                    "Elements are nested more than 1024 levels deep, which is the limit");
    Write(writer, "'x");
    for (int i = 0; i < kMaxElementDepth; ++i) Write(writer, ">");
    Write(writer, ".");
    wstring const text = writer.GetString();
    EXPECT_NE(text.find(u"\t<b>x</b>\n" + wstring(kMaxElementDepth - 2, u'\t') + u"</b>\n"), wstring::npos);
    EXPECT_TRUE(text.ends_with(u"\n\t</b>\n</AA:a>\n"));
}

TEST(CXmlTextWriter, MakesManyPrefixesInOneScope) {
    constexpr std::size_t kCount = 20'000;
    auto const uri = [](std::size_t i) { return FromUtf8("urn:" + std::to_string(i)); };
    CXmlTextWriter writer;
    Write(writer, "<a");
    for (std::size_t i = 0; i < kCount; ++i) writer.WriteAttribute(u"k", uri(i), u"");
    Write(writer, ">");
    wstring const text = writer.GetString();
    CXmlDocument document(st_Default);
    document.LoadXml(text.c_str());
    auto const& attributes = document.GetDocumentElement()->GetAttributes();
    ASSERT_EQ(attributes.size(), kCount);
    for (std::size_t i = 0; i < kCount; ++i) ASSERT_EQ(attributes[i]->GetNamespaceURI(), uri(i));
}

}  // namespace
