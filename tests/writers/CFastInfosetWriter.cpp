#include "writers/CFastInfosetWriter.h"

#include "BxXmlLib5/document/CXmlDocument.h"
#include "fastinfoset/Integers.h"
#include "fastinfoset/Octets.h"
#include "fastinfoset/WriteInteger.h"
#include "platform/StandardNamespaces.h"
#include "support/Expect.h"
#include "support/TemporaryFolder.h"
#include "support/WriterScript.h"

using namespace BxTest;
using namespace BxXmlLib5;
using namespace BxXmlLib5::FastInfoset;
using namespace std::string_literals;

namespace {

std::string Hex(CFastInfosetWriter const& writer) {
    return ToHex(writer.GetBinaryData().GetOctets());
}

std::string Hex(std::string const& notation) {
    return ToHex(FromHex(Expand(notation)));
}

/// The last octets of the document so far.
std::string Tail(CFastInfosetWriter const& writer, std::size_t count) {
    CBinaryData const document = writer.GetBinaryData();
    return ToHex(document.GetOctets().last(count));
}

/// A different text for each number below 2^20, none with more than five units.
wstring Text(std::uint32_t number) {
    wstring text;
    for (int i = 0; i < 5; ++i, number >>= 4) text += static_cast<char16_t>(u'a' + (number & 0xF));
    return text;
}

struct Row {
    char const* m_script;
    std::string m_expected;
};

/// What follows the five octets of a document's head.
void ExpectWritten(std::initializer_list<Row> rows) {
    for (Row const& row : rows) {
        CFastInfosetWriter writer;
        writer.WriteStartDocument(fi_None);
        Write(writer, row.m_script);
        EXPECT_EQ(Hex(writer), Hex("E0 00 00 01 00" + row.m_expected)) << row.m_script;
    }
}

TEST(WriteInteger, TakesTheFormOfItsRange) {
    ForEachBoundary([](auto const& forms, Boundary const& boundary) {
        COctetBuffer output;
        output.Append(0xEE);
        WriteInteger(output, 0, forms, boundary.m_value);
        EXPECT_EQ(ToHex(output.Octets()), Hex("EE "s + boundary.m_octets));
    });
    COctetBuffer output;
    WriteInteger(output, 0xA0, kIndexOnFourthBit, 17);
    WriteInteger(output, 0x40, kIndexOnThirdBit, 526'369);
    EXPECT_EQ(ToHex(output.Octets()), "B0 00 70 00 00 00 ");
    EXPECT_BX_THROW((WriteInteger(output, 0, kLengthOnSecondBit, 4'294'967'617), 0), CBxInvalidValueException,
                    "A text is too long for a Fast Infoset document");
    EXPECT_EQ(output.Size(), 6U);
}

TEST(CFastInfosetWriter, BeginsWithADeclarationIfAskedFor) {
    std::pair<int, char const*> const rows[] = {
        {-1, ""}, {0, ""}, {9, "<?xml version='1.1' encoding='finf' standalone='no'?>"}, {10, ""}};
    for (auto const& [declaration, text] : rows) {
        CFastInfosetWriter writer;
        Write(writer, "<gone >");
        writer.WriteStartDocument(static_cast<FInfoDecl>(declaration));
        std::string const expected = ToHex(std::string(text)) + "E0 00 00 01 00 ";
        EXPECT_EQ(Hex(writer), expected);
        EXPECT_EQ(ToHex(writer.TakeBinaryData().GetOctets()), expected);
        EXPECT_EQ(writer.TakeBinaryData(), CBinaryData());
    }
}

TEST(CFastInfosetWriter, SharesTerminators) {
    ExpectWritten({{".", "F0"},
                   {"<a > .", "3C 00'a' FF"},
                   {"<a > . .", "3C 00'a' FF F0"},
                   {"<a @x=1 > .", "7C 00'a' 78 00'x' 40'1' F0 FF"},
                   {"<a <b > <b > > .", "3C 00'a' 3C 00'b' F0 01 FF F0"},
                   {"<a <b > 'x > .", "3C 00'a' 3C 00'b' F0 90'x' FF"},
                   {"<a <b <c > > <d > > .", "3C 00'a' 3C 00'b' 3C 00'c' FF 3C 00'd' FF F0"}});
}

TEST(CFastInfosetWriter, WritesTheDocumentOfTheGuide) {
    ExpectWritten(
        {{"+t=urn:tea <urn:tea|shop <urn:tea|tea @kg=5 'Assam > <urn:tea|tea @kg=5 'Ceylon > <urn:tea|tea > > .",
          "38 CF 00't' 06'urn:tea' F0 3F 81 81 03'shop' 7F 81 81 02'tea' 78 01'kg' 40'5' F0 92 02'Assam'"
          "F0 41 00 80 F0 82 03'Ceylon' F0 01 FF F0"}});
}

TEST(CFastInfosetWriter, ClosesTheStartTagByAnyText) {
    ExpectWritten({{"<a @k= ' > .", "7C 00'a' 78 00'k' FF F0 FF"},
                   {"<a <b > ' > .", "3C 00'a' 3C 00'b' F0 FF"},
                   {"' <a > ' .", "3C 00'a' FF"},  // needs no element
                   {"<a @k= ?p <b > > .", "7C 00'a' 78 00'k' FF F0 3C 00'b' FF F0"},
                   {"!c #s <a !c #s @k= !c #s @l= > .", "7C 00'a' 78 00'k' FF 78 00'l' FF F0 FF"}});
}

TEST(CFastInfosetWriter, WritesANameInFullOnce) {
    ExpectWritten({{"<a <N|b > <N|b > <b > > .",
                    "3C 00'a' 3F 01'AA' 00'N' 00'b' F0 01 F0 3C 81 FF F0"},  // no local name stands twice
                   {"<a +p=N <N|b ' +q=N <N|b > > > .",                      // the prefix makes a difference
                    "3C 00'a' 3F 00'p' 00'N' 00'b' 3F 00'q' 81 81 FF FF"},
                   // A name whose prefix and namespace are new is none without them.
                   {"<a <N|a > > .", "3C 00'a' 3F 01'AA' 00'N' 80 FF F0"},
                   {"<a @a= @a= <a @a= > > .", "7C 00'a' 78 80 FF 00 FF F0 40 00 FF F0 FF F0"},
                   {"<a @N|k=v @N|k=v @M|k=v @k=v > .",
                    "7C 00'a' 7B 01'AA' 00'N' 00'k' 40'v' 00 80 7B 01'AB' 00'M' 81 80 78 81 80 F0 FF"},
                   {"< > .", "3C FF FF"}});
}

TEST(CFastInfosetWriter, DeclaresOnTheRootWhatWasSetBefore) {
    ExpectWritten(
        {{"*N <N|a > .", "38 CD 00'N' F0 3F 01'AA' 81 00'a' FF"},
         {"+b=Z +a=A <a > .", "38 CF 00'a' 00'A' CF 00'b' 00'Z' F0 3C 00'a' FF"},
         // What is declared twice has two entries, of which the newer one counts.
         {"*N +p=N <N|a > .", "38 CD 00'N' CF 00'p' 00'N' F0 3F 81 82 00'a' FF"},
         {"+p=M +p=N <M|a <N|b > > .",
          "38 CF 00'p' 00'M' CF 00'p' 00'N' F0 3F 82 81 00'a' 3F 82 82 00'b' FF F0"},
         {"+p=XMLNS *XMLNS <XMLNS|a @XMLNS|lang=de > .", "7F 80 80 00'a' 7B 80 80 03'lang' 41'de' F0 FF"}});
}

TEST(CFastInfosetWriter, DeclaresThePrefixOfATypeOnItsElement) {
    std::string const type = "28'XSI' 03'type'";
    ExpectWritten(
        {{"<a ^XMLNS|T > .", "7C 00'a' 7B 01'AA'" + type + "44'xml:T' F0 FF"},
         {"*N <N|a ^N|T > .", "78 CD 00'N' F0 3F 01'AA' 81 00'a' 7B 01'AB'" + type + "40'T' F0 FF"},
         {"+p=N <a ^N|T > .", "78 CF 00'p' 00'N' F0 3C 00'a' 7B 01'AA'" + type + "42'p:T' F0 FF"},
         {"<a <b ^N|T > <b ^N|T > > .", "3C 00'a' 78 CF 01'AA' 00'N' F0 3C 00'b' 7B 01'AB'" + type +
                                            "43'AA:T' F0 F0 78 CF 81 81 F0 01 00 80 F0 FF F0"},
         // However late it comes, and once.
         {"<a @M|k= ^N|T ^N|U > .", "78 CF 01'AB' 00'N' F0 3C 00'a' 7B 01'AA' 00'M' 00'k' FF 7B 01'AC'" +
                                        type + "43'AB:T' 01 43'AB:U' F0 FF"}});
}

TEST(CFastInfosetWriter, EntersShortValuesAndChunks) {
    ExpectWritten(
        {{"<a @k=12345 @k=12345 @k=123456 @k=123456 > .",
          "7C 00'a' 78 00'k' 44'12345' 00 80 00 05'123456' 00 05'123456' F0 FF"},
         {"<a '12345 '12345 '123456 '123456 > .", "3C 00'a' 92 02'12345' A0 82 03'123456' 82 03'123456' FF"},
         // Units count, not octets.
         {"<é @k=€€ '€€ '€€ > .", "7C 01'é' 78 00'k' 45'€€' F0 92 03'€€' A0 FF"},
         {"<a @k=\U0001F333\U0001F333\U0001F333 '\U0001F333\U0001F333x > .",
          "7C 00'a' 78 00'k' 08 03'\U0001F333\U0001F333\U0001F333' F0 92 06'\U0001F333\U0001F333x' FF"}});
}

TEST(CFastInfosetWriter, MarksLengthsAndIndicesByWhatTheyBelongTo) {
    struct {
        std::size_t m_size;
        char const *m_name, *m_value, *m_chunk;
    } const lengths[] = {{8, "07", "07", "82 05"},
                         {9, "08", "08 00", "82 06"},
                         {321, "60 00 00 00 00", "0C 00 00 00 38", "83 00 00 00 3E"}};
    for (auto const& [size, name, value, chunk] : lengths) {
        std::string const text(size, 'x');
        ExpectWritten({{("<a @" + text + "=" + text + " '" + text + " > .").c_str(),
                        "7C 00'a' 78" + (name + ("'" + text + "'")) + value + "'" + text + "' F0" + chunk +
                            "'" + text + "' FF"}});
    }
    struct {
        std::uint32_t m_index;
        char const *m_elementWithAttribute, *m_attribute, *m_value, *m_chunk;
    } const indices[] = {{17, "50", "10", "90", "B0 00"}, {65, "60 20", "40 00", "C0 00", "B0 30"}};
    CFastInfosetWriter writer;
    writer.WriteStartElement(Text(1), u"");
    for (std::uint32_t i = 1; i <= 65; ++i) writer.WriteAttribute(Text(i), u"", Text(i));
    for (std::uint32_t i = 1; i <= 65; ++i) writer.WriteText(Text(i));
    for (std::uint32_t i = 2; i <= 65; ++i) Write(writer, "<" + ToUtf8(Text(i)) + " >");
    for (auto const& [index, element, attribute, value, chunk] : indices) {
        writer.WriteStartElement(Text(index), u"");
        writer.WriteAttribute(Text(index), u"", Text(index));
        writer.WriteText(Text(index));
        Write(writer, ">");
        std::string const expected = Hex(element + ""s + attribute + value + "F0" + chunk);
        EXPECT_EQ(Tail(writer, expected.size() / 3), expected) << index;
    }
}

TEST(CFastInfosetWriter, RefusesWhatHasNoUtf8Form) {
    wstring const half = u"x\xD800";
    std::string const message =
        "CBxInvalidValueException: A text with half of a surrogate pair has no UTF-8 form";
    for (wstring const& text : {half, half + u"long text"}) {
        CFastInfosetWriter writer;
        Write(writer, "<a @k=v");
        writer.WriteAttribute(u"k", u"", text);  // as the empty value
        writer.WriteAttribute(u"k", u"", text);
        EXPECT_EQ(Thrown([&] { writer.WriteText(text); }), message);
        Write(writer, "'v >");
        EXPECT_EQ(Hex(writer), Hex("7C 00'a' 78 00'k' 40'v' 00 FF 00 FF F0 90'v'"));
    }
    CFastInfosetWriter writer;
    writer.WriteStartElement(half, u"");
    EXPECT_EQ(Thrown([&] { Write(writer, ">"); }), message);
}

TEST(CFastInfosetWriter, AddsNothingToAFullTable) {
    CFastInfosetWriter writer;
    Write(writer, "<a");
    // The element has taken one local name.
    for (std::uint32_t i = 1; i < kMaxIndex; ++i) writer.WriteAttribute(Text(i), u"", Text(i));
    auto const append = [&](std::string const& script, std::string const& octets) {
        Write(writer, script);
        EXPECT_EQ(Tail(writer, Hex(octets).size() / 3), Hex(octets)) << script;
    };
    append("@" + ToUtf8(Text(kMaxIndex - 1)) + "=new @k=new @k=new @k=other @k=other ?p",
           "6F DF BE 42'new'"                     // the last index of the values
           "78 00'k' EF DF BF 78 00'k' EF DF BF"  // a name without an index
           "78 00'k' 04'other' 78 00'k' 04'other' F0");
    append("<k <k > > <N|k >", "3C 00'k' 3C 00'k' FF 3F 01'AA' 00'N' 00'k'");
    append("<N|a > <N|a >", "F0 3F 81 81 80 F0 01");
    for (std::uint32_t i = 0; i < kMaxIndex; ++i) writer.WriteText(Text(i));
    append("'" + ToUtf8(Text(kMaxIndex - 1)) + " 'other 'other", "B8 0B FB EF 82 02'other' 82 02'other'");
}

void WriteTree(CFastInfosetWriter& writer, CXmlElement const& element) {
    writer.WriteStartElement(element.GetLocalName(), element.GetNamespaceURI());
    for (CXmlAttribute const* attribute : element.GetAttributes()) {
        writer.WriteAttribute(attribute->GetLocalName(), attribute->GetNamespaceURI(), attribute->GetValue());
    }
    for (auto* child = element.GetFirstElement(); child != nullptr; child = child->GetNextSiblingElement()) {
        WriteTree(writer, *child);
    }
    if (!element.GetText().empty()) writer.WriteText(element.GetText());
    writer.WriteEndElement();
}

TEST(CFastInfosetWriter, WritesWholeDocuments) {
    for (std::string const name : {"feed", "drawing", "envelope"}) {
        std::string const golden = Content(BX_TEST_DATA "/" + name + ".finf");
        CXmlDocument document;
        document.Load(FromUtf8(BX_TEST_DATA "/" + name + ".xml").c_str());
        CFastInfosetWriter writer;
        writer.WriteStartDocument(fi_Version10);
        writer.AddNamespace(u"i", wstring(kXsiNamespace));
        WriteTree(writer, *document.GetDocumentElement());
        writer.WriteEndDocument();
        EXPECT_EQ(Hex(writer), ToHex(golden)) << name;
    }
}

}  // namespace
