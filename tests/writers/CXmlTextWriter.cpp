#include "writers/CXmlTextWriter.h"

#include <sstream>

#include "BxXmlLib5/document/CXmlDocument.h"
#include "platform/Limits.h"
#include "support/Expect.h"

using namespace BxXmlLib5;
using namespace std::string_literals;

namespace {

std::pair<std::string, std::string> const kLongNames[] = {
    {"XSI", "http://www.w3.org/2001/XMLSchema-instance"}, {"XML", "http://www.w3.org/XML/1998/namespace"}};

wstring Uri(std::string const& name) {
    for (auto const& [shortName, uri] : kLongNames) {
        if (name == shortName) return FromUtf8(uri);
    }
    return FromUtf8(name);
}

/// Before and behind a separator; all is behind it if there is none.
std::pair<std::string, std::string> Split(std::string const& text, char separator) {
    std::size_t const at = text.find(separator);
    return {text.substr(0, at == std::string::npos ? 0 : at), text.substr(at + 1)};
}

/// Calls the operations that a script names, which are separated by blanks:
///
///     <ns|name  WriteStartElement    @ns|name=value  WriteAttribute    +alias=ns  AddNamespace
///     >         WriteEndElement      ^ns|name        WriteXsiType      *ns        SetDefaultNamespace
///     'text     WriteText            !text  WriteComment    ?text  WriteProcessingInstruction
///     .         WriteEndDocument     #text  WriteInLineSchema
void Write(CXmlTextWriter& writer, std::string const& script) {
    std::istringstream tokens(script);
    for (std::string token; tokens >> token;) {
        auto const [ns, rest] = Split(token.substr(1), '|');
        auto const [name, value] = Split(rest, '=');
        wstring const text = FromUtf8(rest);
        char const operation = token[0];
        if (operation == '<') writer.WriteStartElement(text, Uri(ns));
        if (operation == '>') writer.WriteEndElement();
        if (operation == '@') writer.WriteAttribute(FromUtf8(name), Uri(ns), FromUtf8(value));
        if (operation == '^') writer.WriteXsiType(Uri(ns), text);
        if (operation == '\'') writer.WriteText(text);
        if (operation == '+') writer.AddNamespace(FromUtf8(name), Uri(value));
        if (operation == '*') writer.SetDefaultNamespace(Uri(rest));
        if (operation == '!') writer.WriteComment(text);
        if (operation == '?') writer.WriteProcessingInstruction(text);
        if (operation == '#') writer.WriteInLineSchema(text);
        if (operation == '.') writer.WriteEndDocument();
    }
}

/// The text so far, with the short names of the long namespaces.
std::string Text(CXmlTextWriter& writer) {
    std::string text = ToUtf8(writer.GetString());
    for (auto const& [shortName, uri] : kLongNames) {
        for (std::size_t at = 0; (at = text.find(uri)) != std::string::npos;)
            text.replace(at, uri.size(), shortName);
    }
    return text;
}

struct Row {
    char const* m_script;
    std::string m_expected;
};

void ExpectWritten(std::initializer_list<Row> rows, bool formatting = false, EOLType eol = eol_LF) {
    for (Row const& row : rows) {
        CXmlTextWriter writer;
        writer.SetFormatting(formatting);
        writer.SetEOLType(eol);
        Write(writer, row.m_script);
        EXPECT_EQ(Text(writer), row.m_expected) << row.m_script;
    }
}

TEST(CXmlTextWriter, BreaksLinesByLineFeedsAndIndentsAtFirst) {
    CXmlTextWriter writer;
    EXPECT_EQ(writer.GetString(), u"");
    Write(writer, "<a <b > >");
    EXPECT_EQ(writer.GetString(), u"<a>\n\t<b/>\n</a>\n");
    EXPECT_EQ(writer.TakeString(), u"<a>\n\t<b/>\n</a>\n");
    EXPECT_EQ(writer.GetString(), u"");
}

TEST(CXmlTextWriter, DeclaresTheEncodingAndBeginsAnew) {
    std::string const names[] = {"", "", " encoding=\"UTF-8\"", " encoding=\"UTF-16\"", "", ""};
    for (int encoding = -1; encoding <= 4; ++encoding) {
        for (EOLType eol : {eol_CRLF, eol_LF}) {
            CXmlTextWriter writer;
            writer.SetFormatting(encoding % 2 == 0);
            writer.SetEOLType(eol);
            Write(writer, "?gone");
            writer.WriteStartDocument(static_cast<XmlEncoding>(encoding));
            EXPECT_EQ(Text(writer),
                      "<?xml version=\"1.0\"" + names[encoding + 1] + (eol == eol_LF ? "?>\n" : "?>\r\n"));
        }
    }
}

TEST(CXmlTextWriter, WritesWhatStandsBesideElementsWithLineEnds) {
    for (bool formatting : {false, true}) {
        ExpectWritten({{"?<?p\"&?> !<c>&\"-- ?q", "<?p\"&?>\n\n<!--&lt;c&gt;&amp;&quot;---->\nq\n\n"},
                       {"<a #<s>\"&</s>", "<a \n<s>\"&</s>\n"}},
                      formatting);
        ExpectWritten({{"?p !c <a #s", "p\r\n\r\n<!--c-->\r\n<a \r\ns\r\n"}}, formatting, eol_CRLF);
    }
    ExpectWritten({{"<a @k=v #<s/> @l=w >", "<a k=\"v\" \n<s/>\n l=\"w\"/>"},
                   {"<a !c >", "<a><!--c-->\n</a>"},  // a start tag that is open is closed first
                   {"<a ?p >", "<a>p\n\n</a>"},
                   {"<a 't !c ?p > !d", "<a>t<!--c-->\np\n\n</a><!--d-->\n"}});
}

TEST(CXmlTextWriter, FormatsByLevels) {
    std::string const script = "<a @k=v <b 'x > <c <d <e > > <f ' > > <g > >";
    std::string const lines =
        "<a k=\"v\">\n\t<b>x</b>\n\t<c>\n\t\t<d>\n\t\t\t<e/>\n\t\t</d>\n\t\t<f/>\n\t</c>\n\t<g/>\n</a>\n";
    ExpectWritten({{script.c_str(), lines},
                   {"<a 'x <b > >", "<a>x\t<b/>\n</a>\n"},
                   {"<a <b > 'x >", "<a>\n\t<b/>\nx</a>\n"},
                   {"<a <b 'x <c > 'y > >", "<a>\n\t<b>x\t\t<c/>\ny\t</b>\n</a>\n"},
                   {"<a > <b >", "<a/>\n<b/>\n"}},
                  true);
    ExpectWritten({{script.c_str(), "<a k=\"v\"><b>x</b><c><d><e/></d><f/></c><g/></a>"}}, false, eol_CRLF);
    ExpectWritten({{"<a <b 'x > >", "<a>\r\n\t<b>x</b>\r\n</a>\r\n"}}, true, eol_CRLF);
}

TEST(CXmlTextWriter, EscapesTextValuesAndCommentsAlike) {
    wstring const special = u"<&>\"'\t\x01\x1F\r\n\0\u20AC\xD83D\xDE00 ."s;
    std::string const expected = "&lt;&amp;&gt;&quot;'\t\x01\x1F\r\n\0\xE2\x82\xAC\xF0\x9F\x98\x80 ."s;
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
    EXPECT_EQ(Text(writer), "<!--" + expected +
                                "-->\r\n\0\n\r\r\n\r\n<AA:a& xmlns:AA=\"\"\" xmlns:p&=\"<\">\" p&:k<=\""s +
                                expected + "\" \r\n\0\n\r\r\n>"s + expected + expected);
    ExpectWritten({{"<a ' @k= >", "<a k=\"\"/>"}});
    CXmlTextWriter dropped;
    Write(dropped, "<a");
    dropped.WriteText(u"\r");
    Write(dropped, ">");
    EXPECT_EQ(Text(dropped), "<a></a>\n");
}

TEST(CXmlTextWriter, DeclaresANewPrefixOnTheElementThatNeedsIt) {
    ExpectWritten(
        {{"<N|a >", R"(<AA:a xmlns:AA="N"/>)"},
         {"<N|a 'x >", R"(<AA:a xmlns:AA="N">x</AA:a>)"},
         {"<N|a <N|b <c > > <M|d > >", R"(<AA:a xmlns:AA="N"><AA:b><c/></AA:b><AB:d xmlns:AB="M"/></AA:a>)"},
         {"<a <N|b <N|c > > <N|d > <M|e > >",
          R"(<a><AA:b xmlns:AA="N"><AA:c/></AA:b><AA:d xmlns:AA="N"/><AA:e xmlns:AA="M"/></a>)"},
         {"<N|a <b <M|c <d <N|e > <L|f > <M|g > > > <M|h > > <L|i > >",
          R"(<AA:a xmlns:AA="N"><b><AB:c xmlns:AB="M"><d><AA:e/><AC:f xmlns:AC="L"/><AB:g/></d></AB:c>)"
          R"(<AB:h xmlns:AB="M"/></b><AB:i xmlns:AB="L"/></AA:a>)"},
         {"<N|a > <N|b >", R"(<AA:a xmlns:AA="N"/><AA:b xmlns:AA="N"/>)"}});
}

TEST(CXmlTextWriter, DeclaresTheDefaultNamespaceAndTheAliasesOnTheRoot) {
    ExpectWritten(
        {{"*N <N|a >", R"(<a xmlns="N"/>)"},
         {"*N <a <N|b 'x > <M|c > >", R"(<a xmlns="N"><b>x</b><AA:c xmlns:AA="M"/></a>)"},
         {"*M *N <M|a >", R"(<AA:a xmlns:AA="M" xmlns="N"/>)"},
         {"+p=N <N|a <N|b > <c > >", R"(<p:a xmlns:p="N"><p:b/><c/></p:a>)"},
         {"+p=N *N <N|a <N|b > >", R"(<a xmlns="N" xmlns:p="N"><b/></a>)"},
         {"+p=P *D <N|a @k=v >", R"(<AA:a xmlns:AA="N" xmlns="D" xmlns:p="P" k="v"/>)"},
         {"+a=z +c=\uFFFD +d=\U00010000 +b=Z <r >",  // U+10000 begins with D800, before FFFD
          "<r xmlns:b=\"Z\" xmlns:a=\"z\" xmlns:d=\"\U00010000\" xmlns:c=\"\uFFFD\"/>"},
         {"+p=N +q=N +q=M <N|a >", R"(<q:a xmlns:q="M" xmlns:q="N"/>)"},
         {"+AA=X +AC=Y <N|a <M|b > >",
          R"(<AB:a xmlns:AB="N" xmlns:AA="X" xmlns:AC="Y"><AD:b xmlns:AD="M"/></AB:a>)"},
         {"+p=P *D <a > <N|b >", R"(<a xmlns="D" xmlns:p="P"/><AA:b xmlns:AA="N" xmlns="D" xmlns:p="P"/>)"}});
}

TEST(CXmlTextWriter, NeverLeavesAnAttributeToTheDefaultNamespace) {
    ExpectWritten(
        {{"<a @N|k=v @N|l= @M|m=w @n= >", R"(<a xmlns:AA="N" AA:k="v" AA:l="" xmlns:AB="M" AB:m="w" n=""/>)"},
         {"*N <N|a @N|k=v <N|b > >", R"(<a xmlns="N" xmlns:AA="N" AA:k="v"><b/></a>)"},
         {"<N|a @N|k=v >", R"(<AA:a xmlns:AA="N" AA:k="v"/>)"},
         {"+p=N <a @N|k=v >", R"(<a xmlns:p="N" p:k="v"/>)"},
         {"*D <a <b @N|k=v <N|c > <D|d > > <N|e > >",
          R"(<a xmlns="D"><b xmlns:AA="N" AA:k="v"><AA:c/><d/></b><AA:e xmlns:AA="N"/></a>)"}});
}

TEST(CXmlTextWriter, WritesTheTypeOfAnElement) {
    ExpectWritten({{"<a ^T >", R"(<a xmlns:AA="XSI" AA:type="T"/>)"},
                   {"+x=XSI *N <a ^N|<T> >", R"(<a xmlns="N" xmlns:x="XSI" x:type="&lt;T&gt;"/>)"},
                   {"+x=XSI +p=N <a ^N|T >", R"(<a xmlns:x="XSI" xmlns:p="N" x:type="p:T"/>)"},
                   {"+p=N *N <a ^N|T >", R"(<a xmlns="N" xmlns:p="N" xmlns:AA="XSI" AA:type="T"/>)"},
                   {"+x=XSI <a ^N|T @N|k= >", R"(<a xmlns:x="XSI" xmlns:AA="N"  x:type="AA:T" AA:k=""/>)"},
                   {"<a <b ^N|T <N|c > > <d ^N|T > >",
                    R"(<a><b xmlns:AA="N"  xmlns:AB="XSI" AB:type="AA:T"><AA:c/></b>)"
                    R"(<d xmlns:AA="N"  xmlns:AB="XSI" AB:type="AA:T"/></a>)"},
                   {"<N|a ^N|T >", R"(<AA:a xmlns:AA="N" xmlns:AB="XSI" AB:type="AA:T"/>)"}});
}

TEST(CXmlTextWriter, BindsTheXmlNamespaceToItsPrefixAlways) {
    ExpectWritten({{"<a @XML|lang=de <N|b > >", R"(<a xml:lang="de"><AA:b xmlns:AA="N"/></a>)"},
                   {"<XML|a <XML|b 'x > >", "<xml:a><xml:b>x</xml:b></xml:a>"},
                   {"+i=XSI <a ^XML|T >", R"(<a xmlns:i="XSI" i:type="xml:T"/>)"},
                   {"+p=XML +q=Q <XML|a @XML|lang=de >", R"(<xml:a xmlns:q="Q" xml:lang="de"/>)"},
                   {"+xml=XML <a @XML|lang=de >", R"(<a xml:lang="de"/>)"},
                   {"<a +p=XML @XML|lang=de >", R"(<a xml:lang="de"/>)"},
                   {"*XML <XML|a @XML|lang=de >", R"(<xml:a xml:lang="de"/>)"}});
}

TEST(CXmlTextWriter, ChangesTheScopeOfAnOpenElementAlone) {
    ExpectWritten(
        {{"<N|a *N <N|b > >", R"(<AA:a xmlns:AA="N"><b/></a>)"},
         {"<N|a +q=N @N|k= <N|b > >", R"(<AA:a xmlns:AA="N" q:k=""><q:b/></q:a>)"},
         {"+p=N *N <N|a *M <N|b > <M|c > >", R"(<a xmlns="N" xmlns:p="N"><p:b/><c/></p:a>)"},
         {"*D <a * <b > <D|c > >", R"(<a xmlns="D"><b/><AA:c xmlns:AA="D"/></a>)"},
         {"<a @N|k= +AB=X @M|l= <X|b > >", R"(<a xmlns:AA="N" AA:k="" xmlns:AC="M" AC:l=""><AB:b/></a>)"},
         {"<a 'x +q=Q <Q|b > >", "<a>x<q:b/></a>"},
         {"+p=P <a +q=Q *D > <D|b >", R"(<a xmlns:p="P"/><AA:b xmlns:AA="D" xmlns:p="P"/>)"},
         // A scope that is copied brings the default namespace and the aliases along.
         {"*D <D|a <D|b +q=M <M|c > <D|d > > <M|e > >",
          R"(<a xmlns="D"><b><q:c/><d/></b><AA:e xmlns:AA="M"/></a>)"},
         {"*D <D|a <N|b <D|c > > >", R"(<a xmlns="D"><AA:b xmlns:AA="N"><c/></AA:b></a>)"},
         {"+p=P *D <D|a <b *M <M|c > <P|d > <D|e > > <D|f > <M|g > >",
          R"(<a xmlns="D" xmlns:p="P"><b><c/><p:d/><AA:e xmlns:AA="D"/></b><f/><AA:g xmlns:AA="M"/></a>)"},
         {"<a <b *M +q=Q <c <d +r=R <M|e > <Q|f > <R|g > > > <R|h > > >",
          R"(<a><b><c><d><e/><q:f/><r:g/></d></c><AA:h xmlns:AA="R"/></b></a>)"}});
}

TEST(CXmlTextWriter, RefusesACallAndKeepsItsState) {
    struct Refusal {
        char const* m_before;
        char const* m_call;
        char const* m_thrown;
        char const* m_after;
        char const* m_expected;
    };
    char const* const late = "CBxException: Attributes must be added before elements";
    char const* const nothingOpen = "CBxInvalidStateException: No element is open";
    for (Refusal const& row : std::initializer_list<Refusal>{
             {"<a 'x", "@N|k=v", late, "<N|b > >", R"(<a>x<AA:b xmlns:AA="N"/></a>)"},
             {"<a 'x", "^N|T", late, "<N|b > >", R"(<a>x<AA:b xmlns:AA="N"/></a>)"},
             {"<a <b >", "@k=v", late, ">", "<a><b/></a>"},
             {"<a <b >", "^T", late, ">", "<a><b/></a>"},
             {"<a !c", "@k=v", late, ">", "<a><!--c-->\n</a>"},
             {"<a <b >", ".", "CBxException: An Element has not been closed.", "> .", "<a><b/></a>"},
             {". <a", ".", "CBxException: An Element has not been closed.", "@k=v > .", "<a k=\"v\"/>"},
             {"+p=N", "'x", nothingOpen, "<a >", R"(<a xmlns:p="N"/>)"},
             {"", ">", nothingOpen, "<a >", "<a/>"},
             {"", "@N|k=v", nothingOpen, "<a >", "<a/>"},
             {"", "^N|T", nothingOpen, "<a >", "<a/>"},
             {"<a >", "'x", nothingOpen, ".", "<a/>"},
             {"<a >", ">", nothingOpen, ".", "<a/>"},
             {"<a >", "@k=v", nothingOpen, ".", "<a/>"},
             {"<a >", "^T", nothingOpen, ".", "<a/>"}}) {
        CXmlTextWriter writer;
        writer.SetFormatting(false);
        Write(writer, row.m_before);
        std::string const before = Text(writer);
        EXPECT_EQ(BxTest::Thrown([&] { Write(writer, row.m_call); }), row.m_thrown)
            << row.m_before << " " << row.m_call;
        EXPECT_EQ(Text(writer), before);
        Write(writer, row.m_after);
        EXPECT_EQ(Text(writer), row.m_expected);
    }
}

TEST(CXmlTextWriter, RefusesAnotherLineEnd) {
    for (int type : {-1, 2}) {
        CXmlTextWriter writer;
        writer.SetEOLType(eol_CRLF);
        EXPECT_BX_THROW((writer.SetEOLType(static_cast<EOLType>(type)), 0), CBxException,
                        "Invalid EOL type.");
        Write(writer, "<a");
        writer.WriteText(u"\n");
        Write(writer, ">");
        EXPECT_EQ(Text(writer), "<a>\r\n</a>\r\n");
    }
}

TEST(CXmlTextWriter, LimitsTheDepth) {
    CXmlTextWriter writer;
    writer.SetFormatting(false);
    std::string expected = "<AA:a xmlns:AA=\"N\">";
    Write(writer, "<N|a");
    for (int i = 1; i < kMaxElementDepth; ++i) Write(writer, "<b"), expected += "<b>";
    EXPECT_BX_THROW((Write(writer, "<c"), 0), CBxException,
                    "Elements are nested more than 1024 levels deep, which is the limit");
    Write(writer, "'x");
    expected += "x";
    for (int i = 1; i < kMaxElementDepth; ++i) Write(writer, ">"), expected += "</b>";
    Write(writer, "> .");
    EXPECT_EQ(Text(writer), expected + "</AA:a>");
}

TEST(CXmlTextWriter, MakesManyPrefixesInOneScope) {
    constexpr int kCount = 20'000;
    auto const uri = [](int i) { return FromUtf8("urn:" + std::to_string(i)); };
    CXmlTextWriter writer;
    Write(writer, "<a");
    for (int i = 0; i < kCount; ++i) writer.WriteAttribute(u"k", uri(i), u"");
    Write(writer, ">");
    std::string const text = Text(writer);
    for (char const* part :
         {R"( xmlns:AA="urn:0" AA:k="")", R"( xmlns:ZZ="urn:675" ZZ:k="" xmlns:AAA="urn:676" AAA:k="")",
          R"( xmlns:ZZZ="urn:18251" ZZZ:k="" xmlns:AAAA="urn:18252" AAAA:k="")"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part;
    }
    CXmlDocument document(st_Default);
    document.LoadXml(text.c_str());
    auto const& attributes = document.GetDocumentElement()->GetAttributes();
    ASSERT_EQ(attributes.size(), std::size_t{kCount});
    for (int i = 0; i < kCount; ++i)
        ASSERT_EQ(attributes[static_cast<std::size_t>(i)]->GetNamespaceURI(), uri(i));
}

TEST(CXmlTextWriter, WritesDocumentsOfManyChunks) {
    CXmlTextWriter writer;
    writer.SetFormatting(false);
    Write(writer, "<a");
    std::string expected = "<a>";
    for (int i = 0; i < 2000; ++i) {
        std::string const text(static_cast<std::size_t>(i % 200), '.');
        Write(writer, "<b @k=" + text + " '" + text);
        if (i % 500 == 0) Text(writer);
        Write(writer, "'& >");
        expected.append("<b k=\"").append(text).append("\">").append(text).append("&amp;</b>");
    }
    EXPECT_TRUE(Text(writer) == expected);
}

}  // namespace
