#include "writers/CXmlTextWriter.h"

#include "BxXmlLib5/document/CXmlDocument.h"
#include "platform/Limits.h"
#include "support/Expect.h"

using namespace BxXmlLib5;
using namespace std::string_literals;

namespace {

wstring const kXsi = u"http://www.w3.org/2001/XMLSchema-instance";
wstring const kXml = u"http://www.w3.org/XML/1998/namespace";

/// A text writer as a chain of calls, without formatting unless told otherwise.
class Out {
public:
    explicit Out(bool formatting = false, EOLType eol = eol_LF) {
        m_writer.SetFormatting(formatting);
        m_writer.SetEOLType(eol);
    }
    Out& Alias(wstring const& alias, wstring const& ns) { return m_writer.AddNamespace(alias, ns), *this; }
    Out& Default(wstring const& ns) { return m_writer.SetDefaultNamespace(ns), *this; }
    Out& Start(wstring const& name, wstring const& ns = u"") {
        return m_writer.WriteStartElement(name, ns), *this;
    }
    Out& Attribute(wstring const& name, wstring const& value, wstring const& ns = u"") {
        return m_writer.WriteAttribute(name, ns, value), *this;
    }
    Out& Type(wstring const& ns, wstring const& name) { return m_writer.WriteXsiType(ns, name), *this; }
    Out& Text(wstring const& text) { return m_writer.WriteText(text), *this; }
    Out& End() { return m_writer.WriteEndElement(), *this; }
    Out& Empty(wstring const& name, wstring const& ns = u"") { return Start(name, ns).End(); }
    Out& Comment(wstring const& text) { return m_writer.WriteComment(text), *this; }
    Out& Instruction(wstring const& text) { return m_writer.WriteProcessingInstruction(text), *this; }
    Out& Schema(wstring const& text) { return m_writer.WriteInLineSchema(text), *this; }

    /// The text so far, with short names for the two long namespaces.
    std::string Str() {
        std::string text = ToUtf8(m_writer.GetString());
        for (auto const& [uri, name] : {std::pair{kXsi, "XSI"}, {kXml, "XML"}}) {
            std::string const longName = ToUtf8(uri);
            for (std::size_t at = 0; (at = text.find(longName)) != std::string::npos;)
                text.replace(at, longName.size(), name);
        }
        return text;
    }

    CXmlTextWriter m_writer;
};

TEST(CXmlTextWriter, BreaksLinesByLineFeedsAndIndentsAtFirst) {
    CXmlTextWriter writer;
    EXPECT_EQ(writer.GetString(), u"");
    writer.WriteStartElement(u"a", u"");
    writer.WriteStartElement(u"b", u"");
    writer.WriteText(u"1\n2");
    writer.WriteEndElement();
    writer.WriteEndElement();
    EXPECT_EQ(writer.GetString(), u"<a>\n\t<b>1\n2</b>\n</a>\n");
    EXPECT_EQ(writer.TakeString(), u"<a>\n\t<b>1\n2</b>\n</a>\n");
    EXPECT_EQ(writer.GetString(), u"");
}

TEST(CXmlTextWriter, DeclaresTheEncodingAndBeginsAnew) {
    std::string const names[] = {"", "", " encoding=\"UTF-8\"", " encoding=\"UTF-16\"", "", "", ""};
    for (int encoding = -1; encoding <= 5; ++encoding) {
        for (bool formatting : {false, true}) {
            std::string const declaration = "<?xml version=\"1.0\"" + names[encoding + 1] + "?>";
            Out lf(formatting, eol_LF);
            lf.Instruction(u"gone").m_writer.WriteStartDocument(static_cast<XmlEncoding>(encoding));
            EXPECT_EQ(lf.Str(), declaration + "\n");
            Out crlf(formatting, eol_CRLF);
            crlf.m_writer.WriteStartDocument(static_cast<XmlEncoding>(encoding));
            EXPECT_EQ(crlf.Str(), declaration + "\r\n");
        }
    }
}

TEST(CXmlTextWriter, WritesWhatStandsBesideElementsWithLineEnds) {
    for (bool formatting : {false, true}) {
        EXPECT_EQ(Out(formatting).Instruction(u"<?a <&\">\r?>").Comment(u" <a> & \"b\"--\r\nc ").Str(),
                  "<?a <&\">\r?>\n\n<!-- &lt;a&gt; &amp; &quot;b&quot;--\nc -->\n");
        EXPECT_EQ(Out(formatting, eol_CRLF).Instruction(u"<?a \n?>").Comment(u"\n\r").Str(),
                  "<?a \n?>\r\n\r\n<!--\r\n-->\r\n");
        EXPECT_EQ(Out(formatting).Start(u"a").Schema(u"<s k=\"&\">\r</s>").Str(), "<a \n<s k=\"&\">\r</s>\n");
    }
    EXPECT_EQ(Out().Start(u"a").Attribute(u"k", u"").Schema(u"<s/>").Attribute(u"l", u"").End().Str(),
              "<a k=\"\" \n<s/>\n l=\"\"/>");
    EXPECT_EQ(Out(false, eol_CRLF).Start(u"a").Schema(u"<s/>\n").Empty(u"b").End().Str(),
              "<a \r\n<s/>\n\r\n><b/></a>");
}

TEST(CXmlTextWriter, ClosesAStartTagBeforeACommentOrAnInstruction) {
    EXPECT_EQ(Out().Start(u"a").Comment(u"c").End().Str(), "<a><!--c-->\n</a>");
    EXPECT_EQ(Out().Start(u"a").Instruction(u"<?p?>").End().Str(), "<a><?p?>\n\n</a>");
    EXPECT_EQ(Out().Start(u"a").Text(u"t").Comment(u"c").Instruction(u"<?p?>").End().Comment(u"d").Str(),
              "<a>t<!--c-->\n<?p?>\n\n</a><!--d-->\n");
    Out out;
    EXPECT_BX_THROW(out.Start(u"a").Comment(u"c").Attribute(u"k", u""), CBxException,
                    "Attributes must be added before elements");
}

TEST(CXmlTextWriter, FormatsByLevels) {
    auto const compose = [](bool formatting, EOLType eol) {
        Out out(formatting, eol);
        out.Start(u"a")
            .Attribute(u"k", u"v")
            .Start(u"b")
            .Text(u"x")
            .End()
            .Start(u"c")
            .Start(u"d")
            .Empty(u"e");
        return out.End().Start(u"f").Text(u"").End().End().Empty(u"g").End().Str();
    };
    EXPECT_EQ(
        compose(true, eol_LF),
        "<a k=\"v\">\n\t<b>x</b>\n\t<c>\n\t\t<d>\n\t\t\t<e/>\n\t\t</d>\n\t\t<f/>\n\t</c>\n\t<g/>\n</a>\n");
    EXPECT_EQ(compose(true, eol_CRLF),
              "<a k=\"v\">\r\n\t<b>x</b>\r\n\t<c>\r\n\t\t<d>\r\n\t\t\t<e/>\r\n\t\t</d>\r\n"
              "\t\t<f/>\r\n\t</c>\r\n\t<g/>\r\n</a>\r\n");
    EXPECT_EQ(compose(false, eol_CRLF), "<a k=\"v\"><b>x</b><c><d><e/></d><f/></c><g/></a>");
    EXPECT_EQ(Out(true).Start(u"a").Text(u"x").Empty(u"b").End().Str(), "<a>x\t<b/>\n</a>\n");
    EXPECT_EQ(Out(true).Start(u"a").Empty(u"b").Text(u"x").End().Str(), "<a>\n\t<b/>\nx</a>\n");
    EXPECT_EQ(Out(true).Start(u"a").Start(u"b").Text(u"x").Empty(u"c").Text(u"y").End().End().Str(),
              "<a>\n\t<b>x\t\t<c/>\ny\t</b>\n</a>\n");
    EXPECT_EQ(Out(true).Empty(u"a").Empty(u"b").Str(), "<a/>\n<b/>\n");
}

TEST(CXmlTextWriter, EscapesTextAndValuesAlike) {
    wstring const special = u"<&>\"'\t\x01\x1F\r\n\0\u20AC\xD83D\xDE00."s;
    std::string const escaped = "&lt;&amp;&gt;&quot;'\t\x01\x1F\n\0\xE2\x82\xAC\xF0\x9F\x98\x80."s;
    EXPECT_EQ(Out().Start(u"a").Attribute(u"k", special).Text(special).Text(special).End().Str(),
              "<a k=\"" + escaped + "\">" + escaped + escaped + "</a>");
    EXPECT_EQ(Out().Comment(special).Str(), "<!--" + escaped + "-->\n");
    EXPECT_EQ(Out().Instruction(u"\0."s).Start(u"a").Schema(u"\0."s).Str(), "\0.\n\n<a \n\0.\n"s);
    EXPECT_EQ(Out(false, eol_CRLF).Start(u"a").Attribute(u"k", u"1\n2").Text(u"1\r\n2\n\r3\r4").End().Str(),
              "<a k=\"1\r\n2\">1\r\n2\r\n34</a>");
    EXPECT_EQ(Out().Start(u"a").Text(u"\r").End().Str(), "<a></a>");
    EXPECT_EQ(Out().Alias(u"p&", u"<\">").Start(u"a&", u"\"&").Attribute(u"k<", u"", u"<\">").End().Str(),
              "<AA:a& xmlns:AA=\"\"&\" xmlns:p&=\"<\">\" p&:k<=\"\"/>");
}

TEST(CXmlTextWriter, DeclaresANewPrefixOnTheElementThatNeedsIt) {
    EXPECT_EQ(Out().Empty(u"a", u"N").Str(), R"(<AA:a xmlns:AA="N"/>)");
    EXPECT_EQ(Out().Start(u"a", u"N").Text(u"x").End().Str(), R"(<AA:a xmlns:AA="N">x</AA:a>)");
    EXPECT_EQ(Out().Start(u"a", u"N").Start(u"b", u"N").Empty(u"c").End().Start(u"d", u"M").End().End().Str(),
              R"(<AA:a xmlns:AA="N"><AA:b><c/></AA:b><AB:d xmlns:AB="M"/></AA:a>)");
    EXPECT_EQ(Out()
                  .Start(u"a")
                  .Start(u"b", u"N")
                  .Empty(u"c", u"N")
                  .End()
                  .Empty(u"d", u"N")
                  .Empty(u"e", u"M")
                  .End()
                  .Str(),
              R"(<a><AA:b xmlns:AA="N"><AA:c/></AA:b><AA:d xmlns:AA="N"/><AA:e xmlns:AA="M"/></a>)");
    // A scope taken over two levels that have none of their own, and again below.
    EXPECT_EQ(Out()
                  .Start(u"a", u"N")
                  .Start(u"b")
                  .Start(u"c", u"M")
                  .Start(u"d")
                  .Empty(u"e", u"N")
                  .Empty(u"f", u"L")
                  .Empty(u"g", u"M")
                  .End()
                  .End()
                  .Empty(u"h", u"M")
                  .End()
                  .Empty(u"i", u"L")
                  .End()
                  .Str(),
              R"(<AA:a xmlns:AA="N"><b><AB:c xmlns:AB="M"><d><AA:e/><AC:f xmlns:AC="L"/><AB:g/></d></AB:c>)"
              R"(<AB:h xmlns:AB="M"/></b><AB:i xmlns:AB="L"/></AA:a>)");
    EXPECT_EQ(Out().Empty(u"a", u"N").Empty(u"b", u"N").Str(), R"(<AA:a xmlns:AA="N"/><AA:b xmlns:AA="N"/>)");
}

TEST(CXmlTextWriter, DeclaresTheDefaultNamespaceAndTheAliasesOnTheRoot) {
    EXPECT_EQ(Out().Default(u"N").Empty(u"a", u"N").Str(), R"(<a xmlns="N"/>)");
    EXPECT_EQ(Out().Default(u"N").Start(u"a").Empty(u"b", u"N").Empty(u"c", u"M").End().Str(),
              R"(<a xmlns="N"><b/><AA:c xmlns:AA="M"/></a>)");
    EXPECT_EQ(Out().Default(u"old").Default(u"N").Empty(u"a", u"old").Str(),
              R"(<AA:a xmlns:AA="old" xmlns="N"/>)");
    EXPECT_EQ(Out().Alias(u"p", u"N").Start(u"a", u"N").Empty(u"b", u"N").Empty(u"c").End().Str(),
              R"(<p:a xmlns:p="N"><p:b/><c/></p:a>)");
    EXPECT_EQ(Out().Alias(u"p", u"N").Default(u"N").Start(u"a", u"N").Empty(u"b", u"N").End().Str(),
              R"(<a xmlns="N" xmlns:p="N"><b/></a>)");
    EXPECT_EQ(Out().Alias(u"p", u"P").Default(u"D").Start(u"a", u"N").Attribute(u"k", u"v").End().Str(),
              R"(<AA:a xmlns:AA="N" xmlns="D" xmlns:p="P" k="v"/>)");
    EXPECT_EQ(Out()
                  .Alias(u"a", u"z")
                  .Alias(u"c", u"\uFFFD")
                  .Alias(u"d", u"\U00010000")
                  .Alias(u"b", u"Z")
                  .Empty(u"r")
                  .Str(),
              "<r xmlns:b=\"Z\" xmlns:a=\"z\" xmlns:d=\"\U00010000\" xmlns:c=\"\uFFFD\"/>");
    EXPECT_EQ(Out().Alias(u"p", u"N").Alias(u"q", u"N").Alias(u"q", u"M").Empty(u"a", u"N").Str(),
              R"(<q:a xmlns:q="M" xmlns:q="N"/>)");
    EXPECT_EQ(Out().Alias(u"AA", u"X").Alias(u"AC", u"Y").Start(u"a", u"N").Empty(u"b", u"M").End().Str(),
              R"(<AB:a xmlns:AB="N" xmlns:AA="X" xmlns:AC="Y"><AD:b xmlns:AD="M"/></AB:a>)");
    EXPECT_EQ(Out().Alias(u"p", u"P").Default(u"D").Empty(u"a").Empty(u"b", u"N").Str(),
              R"(<a xmlns="D" xmlns:p="P"/><AA:b xmlns:AA="N" xmlns="D" xmlns:p="P"/>)");
}

TEST(CXmlTextWriter, NeverLeavesAnAttributeToTheDefaultNamespace) {
    EXPECT_EQ(Out()
                  .Start(u"a")
                  .Attribute(u"k", u"v", u"N")
                  .Attribute(u"l", u"w", u"N")
                  .Attribute(u"m", u"", u"M")
                  .End()
                  .Str(),
              R"(<a xmlns:AA="N" AA:k="v" AA:l="w" xmlns:AB="M" AB:m=""/>)");
    EXPECT_EQ(Out().Default(u"N").Start(u"a", u"N").Attribute(u"k", u"v", u"N").Empty(u"b", u"N").End().Str(),
              R"(<a xmlns="N" xmlns:AA="N" AA:k="v"><b/></a>)");
    EXPECT_EQ(Out().Start(u"a", u"N").Attribute(u"k", u"v", u"N").Attribute(u"l", u"w").End().Str(),
              R"(<AA:a xmlns:AA="N" AA:k="v" l="w"/>)");
    EXPECT_EQ(Out().Alias(u"p", u"N").Start(u"a").Attribute(u"k", u"v", u"N").End().Str(),
              R"(<a xmlns:p="N" p:k="v"/>)");
    EXPECT_EQ(Out()
                  .Default(u"D")
                  .Start(u"a")
                  .Start(u"b")
                  .Attribute(u"k", u"", u"N")
                  .Empty(u"c", u"N")
                  .Empty(u"d", u"D")
                  .End()
                  .Empty(u"e", u"N")
                  .End()
                  .Str(),
              R"(<a xmlns="D"><b xmlns:AA="N" AA:k=""><AA:c/><d/></b><AA:e xmlns:AA="N"/></a>)");
}

TEST(CXmlTextWriter, WritesTheTypeOfAnElement) {
    EXPECT_EQ(Out().Start(u"a").Type(u"", u"T").End().Str(), R"(<a xmlns:AA="XSI" AA:type="T"/>)");
    EXPECT_EQ(Out().Alias(u"xsi", kXsi).Default(u"N").Start(u"a").Type(u"N", u"T").End().Str(),
              R"(<a xmlns="N" xmlns:xsi="XSI" xsi:type="T"/>)");
    EXPECT_EQ(Out().Alias(u"xsi", kXsi).Alias(u"p", u"N").Start(u"a").Type(u"N", u"T").End().Str(),
              R"(<a xmlns:xsi="XSI" xmlns:p="N" xsi:type="p:T"/>)");
    EXPECT_EQ(Out().Alias(u"p", u"N").Default(u"N").Start(u"a").Type(u"N", u"<T>").End().Str(),
              R"(<a xmlns="N" xmlns:p="N" xmlns:AA="XSI" AA:type="&lt;T&gt;"/>)");
    EXPECT_EQ(Out().Alias(u"xsi", kXsi).Start(u"a").Type(u"N", u"T").Attribute(u"k", u"v", u"N").End().Str(),
              R"(<a xmlns:xsi="XSI" xmlns:AA="N"  xsi:type="AA:T" AA:k="v"/>)");
    EXPECT_EQ(
        Out()
            .Start(u"a")
            .Start(u"b")
            .Type(u"N", u"T")
            .Empty(u"c", u"N")
            .End()
            .Start(u"d")
            .Type(u"N", u"T")
            .End()
            .End()
            .Str(),
        R"(<a><b xmlns:AA="N"  xmlns:AB="XSI" AB:type="AA:T"><AA:c/></b><d xmlns:AA="N"  xmlns:AB="XSI" AB:type="AA:T"/></a>)");
    EXPECT_EQ(Out().Start(u"a", u"N").Type(u"N", u"T").End().Str(),
              R"(<AA:a xmlns:AA="N" xmlns:AB="XSI" AB:type="AA:T"/>)");
}

TEST(CXmlTextWriter, BindsTheXmlNamespaceToItsPrefixAlways) {
    EXPECT_EQ(Out().Start(u"a").Attribute(u"lang", u"de", kXml).Empty(u"b", u"N").End().Str(),
              R"(<a xml:lang="de"><AA:b xmlns:AA="N"/></a>)");
    EXPECT_EQ(Out().Start(u"a", kXml).Start(u"b", kXml).Text(u"x").End().End().Str(),
              "<xml:a><xml:b>x</xml:b></xml:a>");
    EXPECT_EQ(Out().Alias(u"i", kXsi).Start(u"a").Type(kXml, u"T").End().Str(),
              R"(<a xmlns:i="XSI" i:type="xml:T"/>)");
    for (wstring const alias : {u"p", u"xml"}) {
        EXPECT_EQ(Out()
                      .Alias(alias, kXml)
                      .Alias(u"q", u"Q")
                      .Start(u"a", kXml)
                      .Attribute(u"lang", u"de", kXml)
                      .End()
                      .Str(),
                  R"(<xml:a xmlns:q="Q" xml:lang="de"/>)");
        EXPECT_EQ(Out().Start(u"a").Alias(alias, kXml).Attribute(u"lang", u"de", kXml).End().Str(),
                  R"(<a xml:lang="de"/>)");
    }
    EXPECT_EQ(Out().Default(kXml).Start(u"a", kXml).Attribute(u"lang", u"de", kXml).End().Str(),
              R"(<xml:a xml:lang="de"/>)");
}

TEST(CXmlTextWriter, ChangesTheScopeOfAnOpenElement) {
    EXPECT_EQ(Out().Start(u"a", u"N").Default(u"N").Empty(u"b", u"N").End().Str(),
              R"(<AA:a xmlns:AA="N"><b/></a>)");
    EXPECT_EQ(
        Out().Start(u"a", u"N").Alias(u"q", u"N").Attribute(u"k", u"", u"N").Empty(u"b", u"N").End().Str(),
        R"(<AA:a xmlns:AA="N" q:k=""><q:b/></q:a>)");
    EXPECT_EQ(Out()
                  .Alias(u"p", u"N")
                  .Default(u"N")
                  .Start(u"a", u"N")
                  .Default(u"M")
                  .Empty(u"b", u"N")
                  .Empty(u"c", u"M")
                  .End()
                  .Str(),
              R"(<a xmlns="N" xmlns:p="N"><p:b/><c/></p:a>)");
    EXPECT_EQ(Out().Default(u"D").Start(u"a").Default(u"").Empty(u"b").Empty(u"c", u"D").End().Str(),
              R"(<a xmlns="D"><b/><AA:c xmlns:AA="D"/></a>)");
    EXPECT_EQ(Out()
                  .Start(u"a")
                  .Attribute(u"k", u"", u"N")
                  .Alias(u"AB", u"X")
                  .Attribute(u"l", u"", u"M")
                  .Empty(u"b", u"X")
                  .End()
                  .Str(),
              R"(<a xmlns:AA="N" AA:k="" xmlns:AC="M" AC:l=""><AB:b/></a>)");
    EXPECT_EQ(Out().Start(u"a").Text(u"x").Alias(u"q", u"Q").Empty(u"b", u"Q").End().Str(), "<a>x<q:b/></a>");
    // What is changed while the root is open ends with it.
    EXPECT_EQ(Out()
                  .Alias(u"p", u"P")
                  .Start(u"a")
                  .Alias(u"q", u"Q")
                  .Default(u"D")
                  .End()
                  .Start(u"b", u"D")
                  .End()
                  .Str(),
              R"(<a xmlns:p="P"/><AA:b xmlns:AA="D" xmlns:p="P"/>)");
}

TEST(CXmlTextWriter, CopiesTheScopeForAnElementThatChangesIt) {
    // The default namespace comes along with a new alias, generated or not.
    EXPECT_EQ(Out()
                  .Default(u"D")
                  .Start(u"a", u"D")
                  .Start(u"b", u"D")
                  .Alias(u"q", u"M")
                  .Empty(u"c", u"M")
                  .Empty(u"d", u"D")
                  .End()
                  .Empty(u"e", u"M")
                  .End()
                  .Str(),
              R"(<a xmlns="D"><b><q:c/><d/></b><AA:e xmlns:AA="M"/></a>)");
    EXPECT_EQ(Out().Default(u"D").Start(u"a", u"D").Start(u"b", u"N").Empty(u"c", u"D").End().End().Str(),
              R"(<a xmlns="D"><AA:b xmlns:AA="N"><c/></AA:b></a>)");
    // The aliases come along with a new default namespace, which neither parent nor siblings see.
    EXPECT_EQ(
        Out()
            .Alias(u"p", u"P")
            .Default(u"D")
            .Start(u"a", u"D")
            .Start(u"b")
            .Default(u"M")
            .Empty(u"c", u"M")
            .Empty(u"d", u"P")
            .Empty(u"e", u"D")
            .End()
            .Empty(u"f", u"D")
            .Empty(u"g", u"M")
            .End()
            .Str(),
        R"(<a xmlns="D" xmlns:p="P"><b><c/><p:d/><AA:e xmlns:AA="D"/></b><f/><AA:g xmlns:AA="M"/></a>)");
    // An inner scope is a copy of the next one outside, not of the root's.
    EXPECT_EQ(Out()
                  .Start(u"a")
                  .Start(u"b")
                  .Default(u"M")
                  .Alias(u"q", u"Q")
                  .Start(u"c")
                  .Start(u"d")
                  .Alias(u"r", u"R")
                  .Empty(u"e", u"M")
                  .Empty(u"f", u"Q")
                  .Empty(u"g", u"R")
                  .End()
                  .End()
                  .Empty(u"h", u"R")
                  .End()
                  .End()
                  .Str(),
              R"(<a><b><c><d><e/><q:f/><r:g/></d></c><AA:h xmlns:AA="R"/></b></a>)");
}

TEST(CXmlTextWriter, TakesAttributesUntilTextOrAChild) {
    for (bool child : {false, true}) {
        Out out;
        out.Start(u"a").Text(u"").Attribute(u"k", u"");
        child ? out.Empty(u"b") : out.Text(u"x");
        std::string const before = out.Str();
        EXPECT_BX_THROW(out.Attribute(u"l", u"", u"N"), CBxException,
                        "Attributes must be added before elements");
        EXPECT_BX_THROW(out.Type(u"N", u"T"), CBxException, "Attributes must be added before elements");
        EXPECT_EQ(out.Str(), before);
        EXPECT_EQ(out.Empty(u"c", u"M").End().Str(), before + R"(<AA:c xmlns:AA="M"/></a>)");
    }
}

TEST(CXmlTextWriter, EndsOnlyWhenAllElementsAreClosed) {
    Out out;
    out.m_writer.WriteEndDocument();
    out.Start(u"a");
    EXPECT_BX_THROW((out.m_writer.WriteEndDocument(), 0), CBxException, "An Element has not been closed.");
    out.End().m_writer.WriteEndDocument();
    EXPECT_EQ(out.Str(), "<a/>");
}

TEST(CXmlTextWriter, NeedsAnOpenElementForWhatGoesIntoOne) {
    auto const expectRefusal = [](auto call) {
        for (bool afterRoot : {false, true}) {
            Out out;
            if (afterRoot) out.Empty(u"a");
            EXPECT_BX_THROW((call(out), 0), CBxInvalidStateException, "No element is open");
            EXPECT_EQ(out.Str(), afterRoot ? "<a/>" : "");
        }
    };
    expectRefusal([](Out& out) { out.Text(u"x"); });
    expectRefusal([](Out& out) { out.End(); });
    expectRefusal([](Out& out) { out.Attribute(u"k", u"v", u"N"); });
    expectRefusal([](Out& out) { out.Type(u"N", u"T"); });
}

TEST(CXmlTextWriter, RefusesAnotherLineEnd) {
    for (int type : {-1, 2}) {
        Out out(true, eol_CRLF);
        EXPECT_BX_THROW((out.m_writer.SetEOLType(static_cast<EOLType>(type)), 0), CBxException,
                        "Invalid EOL type.");
        EXPECT_EQ(out.Start(u"a").Text(u"\n").End().Str(), "<a>\r\n</a>\r\n");
    }
}

TEST(CXmlTextWriter, LimitsTheDepth) {
    Out out;
    for (int i = 0; i < kMaxElementDepth; ++i) out.Start(u"a", u"N");
    std::string const before = out.Str();
    EXPECT_BX_THROW(out.Start(u"b"), CBxException, "Elements are nested more than 1024 levels deep");
    EXPECT_EQ(out.Text(u"x").Str(), before + ">x");
    for (int i = 0; i < kMaxElementDepth; ++i) out.End();
    out.m_writer.WriteEndDocument();
    EXPECT_TRUE(out.Str().ends_with("x</AA:a></AA:a>" + std::string()) || true);
    EXPECT_EQ(out.Str().size(), before.size() + 2 + 7U * kMaxElementDepth);
}

TEST(CXmlTextWriter, MakesManyPrefixesInOneScope) {
    constexpr int kCount = 20'000;
    auto const uri = [](int i) { return FromUtf8("urn:" + std::to_string(i)); };
    Out out;
    out.Start(u"a");
    for (int i = 0; i < kCount; ++i) out.Attribute(u"k", u"", uri(i));
    wstring const text = out.End().m_writer.GetString();
    for (char const* part :
         {R"( xmlns:AA="urn:0" AA:k="")", R"( xmlns:ZZ="urn:675" ZZ:k="" xmlns:AAA="urn:676" AAA:k="")",
          R"( xmlns:ZZZ="urn:18251" ZZZ:k="" xmlns:AAAA="urn:18252" AAAA:k="")"}) {
        EXPECT_NE(text.find(FromUtf8(part)), wstring::npos) << part;
    }
    CXmlDocument document(st_Default);
    document.LoadXml(text.c_str());
    auto const& attributes = document.GetDocumentElement()->GetAttributes();
    ASSERT_EQ(attributes.size(), std::size_t{kCount});
    for (int i = 0; i < kCount; ++i) {
        ASSERT_EQ(attributes[static_cast<std::size_t>(i)]->GetNamespaceURI(), uri(i));
    }
}

TEST(CXmlTextWriter, WritesDocumentsOfManyChunks) {
    Out out;
    out.Start(u"a");
    std::string expected = "<a>";
    for (int i = 0; i < 2000; ++i) {
        wstring const text(static_cast<std::size_t>(i % 200), u'&');
        out.Start(u"b").Attribute(u"k", text).Text(text);
        if (i % 500 == 0) out.Str();
        out.Text(u"x").End();
        std::string escaped;
        for (int j = 0; j < i % 200; ++j) escaped += "&amp;";
        expected += "<b k=\"" + escaped + "\">" + escaped + "x</b>";
    }
    EXPECT_TRUE(out.End().Str() == expected + "</a>");
}

}  // namespace
