#include "writers/CXmlTextWriter.h"

#include "BxXmlLib5/document/CXmlDocument.h"
#include "support/Expect.h"
#include "support/Octets.h"
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
    ExpectWritten({{"' <a ' @k= > '", "<a k=\"\"/>"}});  // the empty text writes nothing, wherever it is
}

/// What random scripts meet seldom.
TEST(CXmlTextWriter, DeclaresNamespacesWhereTheyAreNeeded) {
    // Two namespaces may share an alias that looks generated; dropping one keeps it in use.
    ExpectWritten({{"+AA=M +AA=N <a +q=M @L|k= >", R"(<a xmlns:AA="M" xmlns:AA="N" xmlns:AB="L" AB:k=""/>)"},
                   // A change of scope inside an element leaves its own tags alone.
                   {"<N|a *N +q=M <M|b > >", R"(<AA:a xmlns:AA="N"><q:b/></AA:a>)"}});
}

TEST(CXmlTextWriter, KeepsItsLineEndIfAnotherIsRefused) {
    CXmlTextWriter writer;
    writer.SetEOLType(eol_CRLF);
    EXPECT_BX_THROW((writer.SetEOLType(static_cast<EOLType>(2)), 0), CBxException, "Invalid EOL type.");
    Write(writer, "<a");
    writer.WriteText(u"\n");
    Write(writer, ">");
    EXPECT_EQ(writer.GetString(), u"<a>\r\n</a>\r\n");
}

std::string Utf8Of(CXmlTextWriter& writer) {
    return AsText(writer.TakeBinaryData(enc_UTF8));
}

TEST(CXmlTextWriter, GivesItsTextAsOctets) {
    std::string const text = std::string(65'507, 'x') + "\u00E9\u20AC\U0001D11E\U0001F600";
    std::string const expected = "<?xml version=\"1.0\"?>\n" + text + "\n\n";
    CXmlTextWriter writer;
    auto const write = [&] {
        writer.WriteStartDocument(enc_Unspecified);
        writer.WriteProcessingInstruction(FromUtf8(text));
    };
    writer.WriteStartDocument(enc_UTF16);
    EXPECT_EQ(Utf8Of(writer).size(), 40U);
    for (XmlEncoding const encoding : {enc_UTF16, enc_UTF16NoDeclaration}) {
        write();
        EXPECT_TRUE(writer.TakeBinaryData(encoding).GetString() == FromUtf8(expected));
        write();
        EXPECT_TRUE(Utf8Of(writer) == expected);
        EXPECT_EQ(writer.GetString(), u"");
    }
    write();
    EXPECT_BX_THROW(writer.TakeBinaryData(enc_Unspecified), CBxException,
                    "Unknown Encoding, select UTF-8 or ask the vendor's support");
    EXPECT_TRUE(ToUtf8(writer.GetString()) == expected);
}

/// Chunks of the buffer have 65,535 units, or 4,096 where they are converted.
TEST(CXmlTextWriter, KeepsPairsTogetherWhereTheBufferGrows) {
    for (bool const isConverted : {false, true}) {
        std::size_t const chunk = isConverted ? 4'096 : 65'535;
        for (std::size_t length = 2 * chunk - 5; length < 2 * chunk + 5; ++length) {
            CXmlTextWriter writer;
            if (isConverted) writer.ConvertAsItGrows();
            std::string const text = std::string(length, 'x') + "\U0001F600";
            writer.WriteProcessingInstruction(FromUtf8(text));
            EXPECT_EQ(Utf8Of(writer), text + "\n\n") << length;
            writer.WriteProcessingInstruction(u"again");
            EXPECT_EQ(Utf8Of(writer), "again\n\n");
        }
    }
}

TEST(CXmlTextWriter, HalfOfASurrogatePairHasNoUtf8) {
    CXmlTextWriter writer;
    EXPECT_EQ(writer.TakeBinaryData(enc_UTF8).GetLength() + writer.TakeBinaryData(enc_UTF16).GetLength(), 0U);
    writer.WriteProcessingInstruction(u"\xD834");
    EXPECT_BX_THROW(writer.TakeBinaryData(enc_UTF8), CBxInvalidValueException,
                    "A text with half of a surrogate pair has no UTF-8 form");
    EXPECT_EQ(writer.TakeBinaryData(enc_UTF16).GetString(), u"\xD834\n\n");

    CXmlTextWriter converting;
    converting.ConvertAsItGrows();
    EXPECT_BX_THROW((converting.WriteProcessingInstruction(u'\xD834' + wstring(5'000, u'x')), 0),
                    CBxInvalidValueException, "A text with half of a surrogate pair has no UTF-8 form");
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
