#include "writers/CWellFormedWriter.h"

#include <algorithm>
#include <random>
#include <vector>

#include "BxXmlLib5/BxXmlLib5.h"
#include "support/Expect.h"
#include "support/Inert.h"
#include "support/WriterScript.h"
#include "writers/CFastInfosetWriter.h"
#include "writers/CXmlTextWriter.h"

using namespace BxTest;
using namespace BxXmlLib5;

namespace {

/// What a script gives as text, or what is thrown.
std::string Written(std::string const& script, Unprefixed unprefixed = Unprefixed::kIsDefault) {
    CXmlTextWriter writer;
    writer.SetFormatting(false);
    writer.WriteExactly();
    std::string const thrown = Thrown([&] {
        CWellFormedWriter checked(writer, unprefixed);
        Write(checked, script);
        checked.TestEnd();
    });
    return thrown == "nothing" ? Replaced(ToUtf8(writer.GetString()), "\n", "") : thrown;
}

TEST(CWellFormedWriter, HandsOnWhatIsWellFormed) {
    std::pair<std::string, std::string> const rows[] = {
        {"?<?t?> !c <|a >", "<?t?><!--c--><a/>"},
        {"?<?xml-stylesheet?> !<&> <|a 'x&y >", "<?xml-stylesheet?><!--<&>--><a>x&amp;y</a>"},
        {"+p=N *M <M|a @N|k=v @|k=v #p:l='&lt;' <N|b > > .",
         "<a xmlns=\"M\" xmlns:p=\"N\" p:k=\"v\" k=\"v\" p:l='&lt;'><p:b/></a>"},
        {"<|a @N|k=v #k='v' >", "<a xmlns:AA=\"N\" AA:k=\"v\" k='v'/>"},
        {"+p=M +=M +p=N <N|a ^N|T >", "<p:a xmlns:p=\"N\" xmlns:AA=\"XSI\" AA:type=\"p:T\"/>"},
        {"<|a @|k=1 <|b @|l=2 @|k=3 > <|b @|k=4 > >", "<a k=\"1\"><b l=\"2\" k=\"3\"/><b k=\"4\"/></a>"},
        {"+q=XMLNS *XMLNS <|a @XMLNS|lang=v >", "<a xml:lang=\"v\"/>"},
        {"+p=N +q=N +p=M <N|\u00E9\u4E00-.9_ > .", "<q:\u00E9\u4E00-.9_ xmlns:p=\"M\" xmlns:q=\"N\"/>"},
    };
    for (auto const& [script, text] : rows) EXPECT_EQ(Written(script), Expand(text)) << script;
    EXPECT_EQ(Written("*N <|a >", Unprefixed::kIsInNoNamespace), "<a xmlns=\"N\"/>");
}

TEST(CWellFormedWriter, RefusesWhatIsNot) {
    std::string const character = " has the character ", there = ", which cannot stand there";
    auto const value = [&](std::string const& where, std::string const& code) {
        return "CBxInvalidValueException: The " + where + character + code + there;
    };
    std::string const ns = "CBxInvalidNamespaceException: ", state = "CBxInvalidStateException: ";
    auto const markup = [&](std::string const& what) {
        return state + "The " + what + " would not leave the document well-formed";
    };
    std::string const schema =
        state + "The in-line schema, which stands in the root's start tag, would not leave it well-formed";
    std::pair<std::string, std::string> const rows[] = {
        {"<|a '\x01", value("text of the element [a]", "U+0001")},
        {"<|a <|b > '\uFFFE", value("text of the element [a]", "U+FFFE")},
        {"<|a @|k=\x1B", value("attribute [k] of the element [a]", "U+001B")},
        {"<|1a", value("element [1a]", "U+0031")},
        {"<|p:a", value("element [p:a]", "U+003A")},
        {"<|a\u00D7", value("element [a\u00D7]", "U+00D7")},
        {"<|", "CBxInvalidValueException: The element [] is not read as a name"},
        {"<|\U00010000",
         "CBxInvalidValueException: The element [\U00010000] is not read as a name"},  // fifth edition alone
        {"<|a @|k>=v", value("attribute [k>]", "U+003E")},
        {"<|a ^|b:c", value("type [b:c]", "U+003A")},
        {"<|a @|xmlns=v", "CBxInvalidValueException: The attribute [xmlns] would come back as a declaration"},
        {"<M&N|a", value("namespace [M&N]", "U+0026")},
        {"<|a ^M&N|T >", value("namespace [M&N]", "U+0026")},
        {"*a\"b", value("namespace [a\"b]", "U+0022")},
        {"+p=a<b", value("namespace [a<b]", "U+003C")},
        {"+p\x7F=N", value("prefix [p\x7F]", "U+007F")},
        {"+p=", ns + "The prefix [p] cannot stand for the namespace []"},
        {"+xml=N", ns + "The prefix [xml] cannot stand for the namespace [N]"},
        {"+xmlns=N", ns + "The prefix [xmlns] cannot stand for the namespace [N]"},
        {"<http://www.w3.org/2000/xmlns/|a",
         ns + "The namespace [http://www.w3.org/2000/xmlns/] cannot be declared"},
        {"<" + std::string(4097, 'n') + "|a",
         ns + "The namespace [" + std::string(4097, 'n') + "] cannot be declared"},
        {"+p=N +p=M <|a", ns + "The prefix [p] stands for more than one namespace"},
        {"*N <|a", ns + "The element [a] is in no namespace, but would come back in the default one"},
        {"*N <N|a ^|T", ns + "The type [T] is in no namespace, but would come back in the default one"},
        {"<|a *N >", state + "The element [a] is still open"},
        {"<|a <|b +p=N > >", state + "The element [b] is still open"},
        {"<|a @|k=1 @N|k=1 @|l=1 @|k=2 >", state + "The element [a] has more than one attribute [k]"},
        {"<|a @|k=1 @|k=2 <|b", state + "The element [a] has more than one attribute [k]"},
        {"<|a ^|T @XSI|type=x 'x >", state + "The element [a] has more than one attribute [type]"},
        {"<|a > <|b", state + "The element [b] is a second root"},
        {"!c", state + "The document has no root"},
        {"<|a", state + "The element [a] is still open"},
        {"<|a .", "CBxException: An Element has not been closed."},
        {"!a--b", markup("comment [a--b]")},
        {"!a-", markup("comment [a-]")},
        {"!\x01", value("comment", "U+0001")},
        {"?<?a", markup("processing instruction [<?a]")},
        {"?<?>", markup("processing instruction [<?>]")},
        {"?a?>", markup("processing instruction [a?>]")},
        {"?<?a?>?>", markup("processing instruction [<?a?>?>]")},
        {"?<?xMl?>", markup("processing instruction [<?xMl?>]")},
        {"?<?a\x01?>", value("processing instruction", "U+0001")},
        {"?<?a:b?>", value("target of a processing instruction [a:b]", "U+003A")},
        {"<|a #<b/>", schema},
        {"<|a #p:k=''", schema},
        {"<|a @|k=v #k='v'", schema},
        {"+p=N <|a @N|k=v #p:k='v'", schema},
        {"<|a #k='v'/><b", schema},
        {"<|a #><b", markup("in-line schema [><b]")},
        {"<|a #xmlns='N'", markup("in-line schema [xmlns='N']")},
        {"<|a #\x01", value("in-line schema", "U+0001")},
    };
    for (auto const& [script, thrown] : rows) EXPECT_EQ(Written(script), thrown) << script;
    CXmlTextWriter writer;
    CWellFormedWriter checked(writer, Unprefixed::kIsDefault);
    EXPECT_EQ(Thrown([&] { checked.WriteStartElement(u"a\xD800", u""); }),
              value("element [a\uFFFD]", "U+D800"));
    EXPECT_EQ(Thrown([&] { checked.WriteComment(u"\r"); }), value("comment", "U+000D"));
}

// Documents by chance.

struct Node {
    struct Attribute {
        wstring m_namespace, m_name, m_value;
    };
    wstring m_namespace, m_name, m_text;
    std::vector<Attribute> m_attributes;
    std::vector<Node> m_children;
};

/// Text and, in formatted documents, that among children without what formatting adds.
wstring TextOf(Node const& node, bool formatted) {
    wstring text = node.m_text;
    if (formatted && !node.m_children.empty())
        std::erase_if(text, [](char16_t c) { return c == u'\n' || c == u'\t'; });
    return text;
}

/// Everything that a document holds, in one order.
wstring Canonical(Node const& node, bool formatted) {
    std::vector<wstring> attributes;
    for (auto const& [ns, name, value] : node.m_attributes)
        attributes.push_back(u" {" + ns + u"}" + name + u"=[" + value + u"]");
    std::ranges::sort(attributes);
    wstring result = u"<{" + node.m_namespace + u"}" + node.m_name;
    for (wstring const& attribute : attributes) result += attribute;
    result += u">";
    for (Node const& child : node.m_children) result += Canonical(child, formatted);
    return result + u"[" + TextOf(node, formatted) + u"]</>";
}

/// What the library reads, in which no text has a CR.
Node FromElement(CXmlElement const& element) {
    Node node{element.GetNamespaceURI(), element.GetLocalName(), wstring(element.GetText()), {}, {}};
    for (CXmlAttribute const* const attribute : element.GetAttributes())
        node.m_attributes.push_back(
            {attribute->GetNamespaceURI(), attribute->GetLocalName(), wstring(attribute->GetValue())});
    for (CXmlElement const* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        node.m_children.push_back(FromElement(*child));
    return node;
}

void DropCarriageReturns(Node& node) {
    std::erase(node.m_text, u'\r');
    for (Node& child : node.m_children) DropCarriageReturns(child);
}

/// A document by chance, in which something is amiss now and then, and which writes itself.
class Document : public Inert {
public:
    explicit Document(unsigned seed) : m_random(seed) {
        for (int i = Below(3); i > 0; --i)
            m_aliases.emplace_back(OneOf({u"p", u"q"}, {u"p", u"xml", u"p:q", u"1"}), Namespace());
        if (Below(3) == 0) m_default = OneOf({u"", u"N"}, {u"M&M"});
        m_root = Element(0);
    }

    Node m_root;

protected:
    void ToXml_Int(CXmlWriter* writer, bool, char16_t const*, CXmlSerializationContext const&,
                   bool) const override {
        for (auto const& [alias, ns] : m_aliases) writer->AddNamespace(alias, ns);
        if (!m_default.empty()) writer->SetDefaultNamespace(m_default);
        Write(*writer, m_root);
    }

private:
    static void Write(CXmlWriter& writer, Node const& node) {
        writer.WriteStartElement(node.m_name, node.m_namespace);
        for (auto const& [ns, name, value] : node.m_attributes) writer.WriteAttribute(name, ns, value);
        for (Node const& child : node.m_children) Write(writer, child);
        writer.WriteText(node.m_text);
        writer.WriteEndElement();
    }

    int Below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    wstring OneOf(std::vector<wstring> const& usual, std::vector<wstring> const& odd) {
        auto const& texts = Below(100) == 0 ? odd : usual;
        return texts[static_cast<std::size_t>(Below(static_cast<int>(texts.size())))];
    }
    wstring Namespace() {
        return OneOf({u"", u"N", u"N", u"M", u"M \u00E9'\U0001F600"}, {u"a&b", u"a|b", u"a\"b", u"a\tb"});
    }
    wstring Name() {
        return OneOf({u"a", u"b-1.c", u"\u00E9t\u00E9", u"\u4E00"},
                     {u"", u"a b", u"1", u"a:b", u"\U00010000", u"a\xD800", u"a\x01", u"xmlns"});
    }
    wstring Text() {
        wstring text;
        for (int i = Below(12); i > 0; --i) {
            text +=
                OneOf({u"x", u"<&>\"'", u"]]>", u"\t", u"\n", u"\r", u"\r\n", u" ", u"\u0085", u"\U0010FFFF"},
                      {u"\x01", u"\x0B", u"\xFFFE", u"\xD800", u"\xDC00", wstring(1, u'\0')});
        }
        return text;
    }
    Node Element(int depth) {
        Node node{Namespace(), Name(), Text(), {}, {}};
        for (int i = Below(3); i > 0; --i) node.m_attributes.push_back({Namespace(), Name(), Text()});
        for (int i = depth < 3 ? Below(4) : 0; i > 0; --i) node.m_children.push_back(Element(depth + 1));
        return node;
    }

    std::mt19937 m_random;
    std::vector<std::pair<wstring, wstring>> m_aliases;
    wstring m_default;
};

/// The form of a document that is read, without its line ends and tabs among children if asked for.
wstring Read(CBinaryData const& octets, bool formatted) {
    CXmlDocument document;
    document.SetRequireWholeDocument(true);
    std::string const thrown = Thrown([&] { document.LoadXmlStream(octets.GetData(), octets.GetLength()); });
    return thrown == "nothing" ? Canonical(FromElement(*document.GetDocumentElement()), formatted)
                               : FromUtf8(thrown);
}

TEST(CWellFormedWriter, RefusesWhatDoesNotComeBackAndNothingElse) {
    CXmlSerializationContext asTold, checked;
    checked.SetCheckWellFormed(true);
    int written = 0, refused = 0;
    for (unsigned seed = 0; seed < 1'500; ++seed) {
        Document document(seed);
        bool const declares = seed % 2 == 0, formatted = seed % 4 < 2;
        EOLType const eol = seed % 8 < 4 ? eol_LF : eol_CRLF;
        Node withoutCr = document.m_root;
        DropCarriageReturns(withoutCr);
        for (XmlEncoding const encoding : {enc_UTF8, enc_UTF16, enc_UTF16NoDeclaration}) {
            auto const write = [&](CXmlSerializationContext const& context) {
                return document.ToXmlStream(declares, formatted, encoding, eol, context, cmp_None);
            };
            CBinaryData octets;
            if (Thrown([&] { octets = write(checked); }) == "nothing") {
                ASSERT_EQ(Read(octets, formatted), Canonical(withoutCr, formatted)) << seed;
                ++written;
            } else {
                bool const isTold = Thrown([&] { octets = write(asTold); }) == "nothing";
                ASSERT_TRUE(!isTold || Read(octets, formatted) != Canonical(withoutCr, formatted)) << seed;
                ++refused;
            }
        }
        CBinaryData octets;
        if (Thrown([&] { octets = document.ToFastInfosetStream(fi_None, checked, cmp_None); }) == "nothing") {
            ASSERT_EQ(Read(octets, false), Canonical(withoutCr, false)) << seed;
        }
    }
    EXPECT_GT(written, 500);
    EXPECT_GT(refused, 500);
}

}  // namespace
