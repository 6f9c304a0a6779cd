#include "fastinfoset/Reading.h"

using namespace BxTest;

namespace {

std::string const kEndOfFile = " => ! Unexpected End of File.";
std::string const kInvalidElement = " => ! Invalid Encoding of Element type.";
std::string const kBeyondTable = " => ! Invalid index beyond the end of its table.";
std::string const kNoRoot = " => Invalid or empty XML document";

std::string NoInteger(std::string const& range, std::string const& bit) {
    return " => ! Invalid Encoding of integers " + range + " To 2^20 type  on the " + bit +
           " bit of an octet.";
}
std::string NoLength(std::string const& bit) {
    return " => ! Invalid NonEmptyOctetString type  on the " + bit + " bit of an octet.";
}

}  // namespace

TEST(CFastInfosetReader, Recognition) {
    std::string const identification = "E0 00 00 01", rest = " 00 3C 00 'a' FF => a";
    std::vector<std::string> rows = {
        identification + rest,
        identification + " 00" + kEndOfFile,
        identification + kNoRoot,
        "E0 00 00 02 00" + kNoRoot,
        "E0 00 01 01 00" + kNoRoot,
        "'<?xml encoding=\"finf\"?>' " + identification + " 00 => XML declaration not well-formed at line 1",
        "'<?xml version=\"1.0\" encoding=\"finf\"?>' " + identification +
            " 00 => unknown encoding at line 1"};
    ExpectReads(rows, "");
    for (std::string const version : {"", " version='1.0'", " version='1.1'"})
        for (std::string const standalone : {"", " standalone='yes'", " standalone='no'"}) {
            std::string const declaration = "<?xml" + version + " encoding='finf'" + standalone + "?>";
            EXPECT_EQ(Read(declaration + OctetsOf(identification + " 00 3C 00 'a' FF")), "a") << declaration;
            EXPECT_NE(Read(declaration + " " + OctetsOf(identification + " 00 3C 00 'a' FF")), "a");
        }
}

TEST(CFastInfosetReader, OptionalComponents) {
    std::string const root = " 3C 00 'a' FF", a = " => a", name = "3F 01 'm' 40 00 'x'";
    ExpectReads(
        {"80" + root + a, "FF" + kEndOfFile,
         // additional-data: 1 item, 129, and the second octet string of an item cut off
         "40 00 00 'i' 00 'd'" + root + a, "40 01 00 'i' 00 'd' 00 'j' 01 'de'" + root + a,
         "40 F0 00 00 " + Repeat("00 'i' 00 'd' ", 129) + root + a, "40 8F FF FF 00 'i' 00 'd'" + kEndOfFile,
         "40 00 00 'i' 41 'd'" + NoLength("second"),
         // initial-vocabulary: nothing, an external one, each table, all of them
         "20 00 00" + root + a, "20 10 00 00 'u'" + root + a, "20 08 00 01 00 'x' 01 'yz'" + root + a,
         "20 04 00 00 00 'x'" + root + a, "20 02 00 00 00 'x'" + root + a, "20 01 00 00 00 'x'" + root + a,
         "20 00 80 00 00 'x'" + root + a, "20 00 40 00 00 'x'" + root + a, "20 00 20 00 00 'x'" + root + a,
         "20 00 10 01 00 'x' 11 00 'y'" + root + a, "20 00 08 00 08 00 'ninechars'" + root + a,
         "20 00 04 00 30 00 FF" + root + a, "20 00 02 02 00 40 00 01 00 01 03 02 01 00" + root + a,
         "20 00 01 00 02 01 00" + root + a,
         "20 1F FF 00 'u' 00 00 'b' 00 00 'c' 00 00 'd' 00 00 'e' 00 00 'f' 00 00 'g' 00 00 'h' 00 00 'i' 00 "
         "00 'j' 00 00 'k' 00 00 00 00 00 00" +
             root + a,
         "20 00 10 00 FA 01" + kEndOfFile,
         // Nothing of it is applied.
         "20 00 82 00 00 'x' 00 00 00 00" + kBeyondTable,
         // notations, each with the identifiers it has
         "10 F0" + root + a, "10 C0 00 'n' C1 00 'n' 80 C2 00 'n' 00 's' C3 80 00 's' 00 'p' F0" + root + a,
         // unparsed-entities
         "08 F0" + root + a, "08 D0 00 'n' 00 's' 00 'o' D1 00 'n' 00 's' 00 'p' 80 F0" + root + a,
         "04 04 'utf-8'" + root + a, "02 01" + root + a, "01 02 '1.0'" + root + a, "01 85" + root + a,
         "7F 00 00 'i' 00 'd' 00 00 C0 80 F0 D0 80 80 80 F0 00 'u' 00 FF" + root + a},
        "E0 00 00 01 ");
}

TEST(CFastInfosetReader, FirstChildOfTheDocument) {
    ExpectReads({"3C 00 'a' FF 'anything'  => a", "3C 00 'a' F0 => a",
                 "E1 00 't' 00 'c' 3C 00 'a' FF" + kNoRoot, "E1 00 't'" + kEndOfFile, "E1 81 FF" + kNoRoot,
                 "E2 00 'c' 3C 00 'a' FF" + kNoRoot, "E2 85" + kNoRoot, "C4 3C 00 'a' FF" + kNoRoot,
                 "C5 00 'p'" + kNoRoot, "C5" + kEndOfFile, "C6 00 's'" + kNoRoot, "C6" + kEndOfFile,
                 "C7 00 's' 00 'p'" + kNoRoot, "C7 00 's'" + kEndOfFile, "F0" + kNoRoot, "FF" + kNoRoot,
                 "80 00 'x'" + kNoRoot, "C8" + kNoRoot});
}

TEST(CFastInfosetReader, Elements) {
    ExpectReads({
        "3C 00 'a' FF => a",
        "3C 00 'a'" + kEndOfFile,
        "3C" + kEndOfFile,
        // children, the terminator of one and of two
        "3C 00 'a' 3C 00 'b' F0 01 FF F0 => a(b b)",
        "3C 00 'a' 3C 00 'b' 3C 00 'c' FF 01 F0 02 FF F0 => a(b(c) b c)",
        "3C 00 'a' 3C 00 'b' FF 'rest' => a(b)",
        "3C 00 'a' 3C 00 'b' F0" + kEndOfFile,
        // names in full: with namespace, prefix, neither; parts by index
        "3D 00 'u' 00 'a' FF => {u}a",
        "3F 00 'p' 00 'u' 00 'a' 3F 81 81 80 F0 3F 80 80 00 'b' F0 01 FF => {u}a({u}a {http://www.w3.org/XML/1998/namespace}b {u}a)",
        "3E 00 'p' 00 'a' FF => ! Invalid QName type Prefix without Namespace.",
        "7C 00 'a' 7A 00 'p' 00 'k' FF => ! Invalid QName type Prefix without Namespace.",
        // A name in full makes an entry each time.
        "3C 00 'a' 3C 80 F0 3C 00 'b' F0 02 F0 01 FF => a(a b b a)",
        "00" + kBeyondTable,
        "3C 80 FF" + kBeyondTable,
        "3C 00 'a' 01" + kBeyondTable,
        "3D 81 00 'a' FF" + kBeyondTable,
        "3F 81 00 'u' 00 'a' FF" + kBeyondTable,
        "3C 00 'a' 30 FF FF FF" + kBeyondTable,
        "38 F0 38" + NoInteger("1", "third"),
        "38 F0 3B" + NoInteger("1", "third"),
        "3C 41 'a'" + NoLength("second"),
        "3C 7F 'a'" + NoLength("second"),
        "3C 60 FF FF FF FF 'a'" + kEndOfFile,
        // what is stepped over, and joins the texts on both sides
        "3C 00 'a' 90 'x' E1 00 't' 00 'c' 90 'y' E2 00 'c' E2 FF 90 'z' C8 00 'e' C9 80 00 'p' CA 00 'e' 00 's' CB 00 'e' 00 's' 00 'p' 90 'w' FF => a'xyzw'",
        "3C 00 'a' E2 3F" + kEndOfFile,
        "3C 00 'a' E2 08 FF '" + std::string(264, 'x') + "' 90 'y' FF => a'y'",
    });
    for (int octet = 0xC0; octet < 0x100; ++octet) {
        bool const isItem =
            (octet & 0xFC) == 0xC8 || octet == 0xE1 || octet == 0xE2 || octet == 0xF0 || octet == 0xFF;
        EXPECT_EQ(
            Read(OctetsOf(kHeader + "3C 00 'a'") + static_cast<char>(octet)) == kInvalidElement.substr(4),
            !isItem)
            << octet;
    }
}

TEST(CFastInfosetReader, Attributes) {
    ExpectReads({
        "7C 00 'a' 78 00 'k' 40 '1' F0 FF => a@k=1",
        "7C 00 'a' 78 00 'k' 40 '1' FF => a@k=1",
        "7C 00 'a' F0 F0 => a",
        "7C 00 'a' 78 00 'k' 00 '1' F0 3C 00 'b' FF => a@k=1(b)",
        // The list's second terminator ends the element alone.
        "3C 00 'r' 7C 00 'a' 78 00 'k' 40 '1' FF 41 00 80 FF 41 00 FF F0 90 'x' FF => r(a@k=1 a@k=1 a@k='x')",
        "7C 00 'a' 79 00 'u' 00 'k' FF 7B 00 'p' 81 80 FF F0 F0 => a@{u}k=@{u}a=",
        "7C 00 'a' 78 00 'k' 40 '1' 00 40 '2' 00 80 00 81 F0 F0 => a@k=1@k=2@k=1@k=2",
        "7C 00 'a' 78 00 'k' 00 '1' 00 80 F0 F0" + kBeyondTable,
        "7C 00 'a' 01 FF F0 F0" + kBeyondTable,
        // 127 is an index like any other, and so is the greatest.
        "7C 00 'a' 78 00 'k' " + Repeat("40 'v' 00 ", 126) + "40 'w' 00 C0 3E F0 F0 => a" +
            Repeat("@k=v", 126) + "@k=w@k=w",
        "7C 00 'a' 78 00 'k' FE FF FF F0 F0" + kBeyondTable,
        "7C 00 'a' 80" + kInvalidElement,
        "7C 00 'a' FE" + kInvalidElement,
        "7C 00 'a' 78 00 'k' 40 '1'" + kEndOfFile,
    });
}

TEST(CFastInfosetReader, AFailureLeavesWhatCameBefore) {
    struct Row {
        std::string octets, tree;
    };
    for (Row const& row :
         std::vector<Row>{{"3C", "nothing"},
                          {"7C 00 'a'", "a"},
                          {"7C 00 'a' 78 00 'k' 40 '1' 78 00 'l' 41", "a@k=1"},
                          {"7C 00 'a' 78 00 'k' 40 '1' 80", "a@k=1"},
                          {"3C 00 'a' 90 'x' 3C 00 'b' F0 90 'y' 7C 00 'c' 02", "a'xy'(b c)"},
                          {"3C 00 'a' 3C 00 'b' 90 'x' C0", "a(b'x')"}}) {
        CXmlDocument document;
        EXPECT_NE(Thrown([&] { Load(kOctets, document, OctetsOf(kHeader + row.octets)); }), "nothing");
        EXPECT_EQ(Dump(document.GetDocumentElement()), row.tree) << row.octets;
    }
}

TEST(CFastInfosetReader, CharacterChunks) {
    ExpectReads({
        "3C 00 'a' 91 'hi' FF => a'hi'",
        "3C 00 'a' 90 'x' A0 80 'y' 90 'z' A1 A0 F0 => a'xxyzzx'",
        "3C 00 'a' 90 'x' A1" + kBeyondTable,
        "3C 00 'a' 92 02 'chunk' 3C 00 'b' A0 F0 01 A0 A0 FF => a'chunk'(b'chunk' b'chunkchunk')",
        "3C 00 'a' 90 'x' 3C 00 'b' 90 'y' F0 90 'z' FF => a'xz'(b'y')",
        "3C 00 'a' 80 'x' A0" + kBeyondTable,
        "3C 00 'a' BC" + NoInteger("1", "fourth"),
        "3C 00 'a' BF" + NoInteger("1", "fourth"),
        // CR is no text, nor what follows a zero; in an attribute both are.
        "3C 00 'a' 92 01 0D 'x' 0D 0D A0 92 01 'yz' 00 'z' A1 FF => a'xxyzyz'",
        "7C 00 'a' 78 00 'k' 02 0D 'x' 0D F0 F0 => a@k=\rx\r",
    });
}

TEST(CFastInfosetReader, EncodedStrings) {
    // As an attribute's value and as a chunk: the octets, of which 'third' and 'fifth' are the first ones,
    // and the outcome.
    struct {
        std::string m_third, m_fifth, m_octets, m_text;
    } const rows[] = {
        {"00", "80", "'x'", "x"},
        {"01", "81", "C3 28", ""},
        {"02", "82 00", "'ab' C3", ""},
        {"08 00", "82 06", "'123456789'", "123456789"},
        {"0C 00 00 00 00", "83 00 00 00 06", "'" + std::string(265, 'x') + "'", std::string(265, 'x')},
        {"11", "85", "20 AC", "€"},
        {"10", "84", "00", "! Invalid UTF-16 string of an odd number of octets."},
        {"18 00", "86 06", "'123456789'", "! Invalid UTF-16 string of an odd number of octets."},
        // restricted alphabets: 15 ends the string in either half of an octet
        {"20 00", "88 00", "1F", "1"},
        {"20 02", "88 02 00", "0D E9 8F", "0E 98"},
        {"20 01", "88 01", "F1 23", ""},
        {"20 02", "88 02 00", "12 F3 45", "12"},
        {"20 10", "88 04", "1B", "1:"},
        {"20 12", "88 06 00", "A0 CD EF", "-0TZ "},
        {"20 20", "88 08", "1F", "! Invalid index beyond the end of its table."},
        {"2F F0", "8B FC", "1F", "! Invalid index beyond the end of its table."},
        // encoding algorithms
        {"30 01", "8C 01", "DE AD", "DEAD"},
        {"30 12", "8C 06 00", "'abc'", "YWJj"},
        {"30 23", "8C 0A 01", "00 01 FF FF", "1 -1"},
        {"30 33", "8C 0E 01", "FF FF FF FE", "-2"},
        {"30 47", "8C 12 05", "80 00 00 00 00 00 00 00", "-9223372036854775808"},
        {"30 50", "8C 14", "2A", "true false"},
        {"30 50", "8C 14", "50", "Invalid value [P] for BOOLEAN byte encoding."},
        {"30 63", "8C 1A 01", "3F C0 00 00", "1.5"},
        {"30 77", "8C 1E 05", "3F F8 00 00 00 00 00 00", "1.5"},
        {"30 88 07", "8C 22 0D", "00 11 22 33 44 55 66 77 88 99 AA BB CC DD EE FF",
         "00112233445566778899AABBCCDDEEFF"},
        {"30 91", "8C 25", "C3 A9", "é"},
        {"30 20", "8C 08", "01", "Invalid value [\x01] for SHORT byte encoding."},
        {"30 A0", "8C 28", "01", "! Invalid NonEmptyOctetEncryptedString."},
        {"38 01", "8E 01", "'ab'", "! Invalid NonEmptyOctetEncryptedString."},
        {"3F F0", "8F FC", "01", "! Invalid NonEmptyOctetEncryptedString."},
    };
    for (auto const& row : rows) {
        bool const fails = row.m_text.starts_with("!") || row.m_text.starts_with("Invalid");
        EXPECT_EQ(Read(OctetsOf(kHeader + "7C 00 'a' 78 00 'k' " + row.m_third + row.m_octets + " F0 F0")),
                  fails ? row.m_text : "a@k=" + row.m_text)
            << row.m_third;
        EXPECT_EQ(Read(OctetsOf(kHeader + "3C 00 'a' " + row.m_fifth + row.m_octets + " F0")),
                  fails                ? row.m_text
                  : row.m_text.empty() ? "a"
                                       : "a'" + row.m_text + "'")
            << row.m_fifth;
    }
    ExpectReads({"7C 00 'a' 78 00 'k' 09 00" + NoLength("fifth"),
                 "7C 00 'a' 78 00 'k' 0F 00" + NoLength("fifth"),
                 "7C 00 'a' 78 00 'k' 0C FF FF FF FF 'x'" + kEndOfFile,
                 "3C 00 'a' 83 FF FF FF FF 'x'" + kEndOfFile, "7C 00 'a' 78 00 'k' 20" + kEndOfFile});
}

TEST(CFastInfosetReader, NamespaceAttributes) {
    CXmlDocument document;
    Load(kOctets, document,
         OctetsOf(kHeader +
                  "78 CF 00 'p' 00 'u' CD 00 'v' CF 81 82 CE 00 'q' 'x' 3F 81 81 00 'a' 78 00 'k' FF F0 "
                  "38 CD 81 F0 3D 82 80 FF"));
    EXPECT_EQ(Dump(document.GetDocumentElement()), "{u}a@k=({v}a)");
    for (auto const& [alias, uri] : {std::pair{u"p", u"v"}, {u"", u"u"}, {u"q", u""}, {u"xml", u""}})
        EXPECT_EQ(document.LookupNamespaceFromAlias(alias), uri);
    EXPECT_TRUE(document.IsComplete());
    ExpectReads({"38 CC CC F0 3C 00 'a' FF => a", "38 CF 82" + kBeyondTable, "38 CD 82" + kBeyondTable,
                 "38 CF 00 'p'" + kEndOfFile, "38 D0 CD 3C 00 'a' FF" + kBeyondTable});
}

TEST(CFastInfosetReader, GivesTheTreeThatTextGives) {
    for (std::string const name : {"drawing", "envelope", "feed"}) {
        auto const outcome = [&name](std::string const& extension) {
            return Outcome([&](auto& document) {
                document.Load(FromUtf8(std::string(BX_TEST_DATA) + "/" + name + extension).c_str());
            });
        };
        EXPECT_EQ(outcome(".finf"), outcome(".xml"));
    }
}
