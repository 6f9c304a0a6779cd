#include "document/CDocumentStream.h"

#include <fstream>
#include <random>
#include <sstream>

#include "document/CDocumentBuilder.h"
#include "document/Trees.h"
#include "fastinfoset/Reading.h"

using namespace BxTest;
using namespace std::string_literals;

namespace {

/// Octets that come in slices of one size.
class CSlices : public COctetSource {
public:
    CSlices(std::string octets, std::size_t slice) : m_octets(std::move(octets)), m_slice(slice) {}
    std::size_t Read(std::span<unsigned char> room) override {
        std::string const slice = m_octets.substr(m_at, std::min(room.size(), m_slice));
        std::ranges::copy(slice, room.begin());
        m_at += slice.size();
        return slice.size();
    }

private:
    std::string m_octets;
    std::size_t m_slice;
    std::size_t m_at = 0;
};

/// Stops after each piece.
class CPausing : public CDocumentReceiver {
public:
    explicit CPausing(CDocumentReceiver& receiver) : m_receiver(receiver) {}
    void DeclareNamespace(wstring const& prefix, wstring const& uri) override {
        m_receiver.DeclareNamespace(prefix, uri);
        m_stream->Pause();
    }
    void StartElement(DocumentElement const& element) override {
        m_receiver.StartElement(element);
        m_stream->Pause();
        m_stream->Pause();
    }
    void AddText(std::u16string_view text) override {
        m_receiver.AddText(text);
        m_stream->Pause();
    }
    void EndElement() override {
        m_receiver.EndElement();
        m_stream->Pause();
    }
    CDocumentReceiver& m_receiver;
    CDocumentStream* m_stream = nullptr;
};

/// The tree that comes by slices, or the message of what is thrown.
std::string Streamed(std::string const& octets, std::size_t slice = 65536, bool pauses = false,
                     SchemaType schemaType = st_Default) {
    CXmlDocument const document;
    CDocumentNodes nodes;
    CDocumentBuilder builder(document, nodes, CDocumentBuilder::kTextsPass);
    CPausing pausing(builder);
    CSlices source(octets, slice);
    std::size_t rounds = 0;
    std::string const thrown = Thrown([&] {
        CDocumentStream stream(source, pauses ? static_cast<CDocumentReceiver&>(pausing) : builder,
                               nodes.m_names, {.m_schemaType = schemaType});
        pausing.m_stream = &stream;
        while (stream.Read()) ++rounds;
        EXPECT_FALSE(stream.Read());
    });
    EXPECT_EQ(pauses && thrown == "nothing", rounds > 0);
    if (thrown == "nothing") return Dump(builder.CloseAllElements());
    return thrown.substr(thrown.find(": ") + 2);
}

std::string Loaded(std::string const& octets) {
    return Outcome([&](auto& document) { Load(kOctets, document, octets); });
}

std::string FileOctets(std::filesystem::path const& path) {
    std::ostringstream octets;
    octets << std::ifstream(path, std::ios::binary).rdbuf();
    return octets.str();
}

std::vector<std::string> Documents() {
    std::vector<std::string> documents = {
        "<a>\n<p:b xmlns:p='u' p:x='1'>x&#13;<![CDATA[<y>]]>&amp;\xC3\xA9\xF0\x9D\x84\x9E</p:b>\r\n<c/></a>\n",
        "<!DOCTYPE a [<!ATTLIST a k CDATA 'd'><!ENTITY e 'x<b/>y'>]><a l=' 1'>1&e;2</a>",
        "\xFF\xFE<\0a\0>\0\x3D\xD8\x00\xDE\xE9\0<\0/\0a\0>\0"s,
        OctetsOf("E0 00 00 01 00 7C 00 'a' 78 00 'k' 40 'v' 00 80 F0 91 'xy' 3C 00 'b' A0 FF"),
        OctetsOf("E0 00 00 01 00 3C 00 'a' 92 01 0D 'x' 0D 0D A0 92 01 'yz' 00 'z' A1 FF"),
        "<a>" + std::string(100'000, 'x') + "<b k='" + std::string(100'000, 'v') + "'/></a>"};
    for (std::string const folder :
         {BX_TEST_DATA, BX_SEEDS "/xml", BX_SEEDS "/fastinfoset", BX_SEEDS "/gpx"}) {
        for (auto const& file : std::filesystem::directory_iterator(folder))
            documents.push_back(FileOctets(file.path()));
    }
    return documents;
}

}  // namespace

TEST(CDocumentStream, GivesTheTreeOfTheWholeDocument) {
    for (std::string const& document : Documents()) {
        std::string const tree = Loaded(document), start = document.substr(0, 100);
        EXPECT_NE(tree, "nothing");
        for (std::size_t const slice : {1U, 2U, 3U, 7U, 100U, 4095U, 4097U, 1U << 20})
            EXPECT_EQ(Streamed(document, slice), tree) << slice << ' ' << start;
        EXPECT_EQ(Streamed(document, 5, true), tree) << start;
        EXPECT_EQ(Streamed(document, 1 << 20, true), tree) << start;
        if (document[0] != '\x1F' && document[0] != 'x') {
            EXPECT_EQ(Streamed(Deflate(document), 11), tree) << start;
        }
    }
}

TEST(CDocumentStream, JoinsMembersWhereverASliceEnds) {
    std::mt19937 random(1);
    std::string document = "<a>";
    while (document.size() < 20'000) document += static_cast<char>('a' + random() % 26);
    EXPECT_EQ(Streamed(Deflate(document) + Deflate("</a>"), 1), Loaded(document + "</a>"));
}

// Of UTF-16 what ends a slice may be half of a pair, and a slice for a long token has little room left at its
// end.
TEST(CDocumentStream, PairsInLongTokens) {
    for (std::size_t letters = 0; letters < 8; ++letters) {
        wstring text = u"\xFEFF<a k='" + wstring(letters, u'x');
        for (int i = 0; i < 50'000; ++i) text += u"\xD83D\xDE00";
        text += u"'/>";
        std::string const octets(reinterpret_cast<char const*>(text.data()), 2 * text.size());
        std::string const tree = Loaded(octets);
        for (std::size_t const slice : {4097U, 1U << 20})
            EXPECT_TRUE(Streamed(octets, slice) == tree) << letters << ' ' << slice;
    }
}

TEST(CDocumentStream, RefusesWhatBreaksOff) {
    for (std::string const& document : Documents()) {
        if (document.size() > 3000) continue;
        std::string const whole = Streamed(document);
        std::size_t refused = 0;
        for (std::size_t size = 0; size < document.size(); ++size) {
            std::string const cut = document.substr(0, size), outcome = Streamed(cut);
            ASSERT_EQ(Streamed(cut, 1), outcome) << size << ' ' << document;
            refused += outcome != whole;
        }
        EXPECT_GE(refused + 2, document.size()) << document;  // all but a line's end, or a terminator
    }
}

TEST(CDocumentStream, Refusals) {
    std::string const packed = Deflate("<a>" + std::string(100'000, 'x') + "</a>");
    std::string damaged = packed;
    damaged[damaged.size() - 8] ^= 0x55;  // of the checksum
    std::string const depth = Repeat("<a>", 1024);
    for (auto const& [octets, message] : std::vector<std::pair<std::string, std::string>>{
             {"", "Invalid or empty XML document"},
             {" <!-- no root -->", "Invalid or empty XML document"},
             {"<a", "Invalid or empty XML document"},
             {"<a><b/>", "The document ends inside an element"},
             {"<a><b k='", "The document ends inside an element"},
             {"<a/><!-- cut", "unclosed token at line 1"},
             {"<a>\n</b>", "mismatched tag at line 2"},
             {"<a>\xED\xA0\x80</a>", "not well-formed (invalid token) at line 1"},
             {depth + "<a>", "Elements are nested more than 1024 levels deep, which is the limit"},
             {"\xFF\xFE<\0a\0>\0\x3D\xD8<\0/\0a\0>\0"s, "A text has half of a surrogate pair"},
             {"\xFF\xFE<\0a\0>\0\x3D\xD8"s, "A text has half of a surrogate pair"},
             {packed.substr(0, packed.size() - 1), "The compressed data breaks off"},
             {damaged, "The compressed data is damaged"},
             {"\x88\x1C no zlib stream, which has no such window",
              "not well-formed (invalid token) at line 1"},
             {OctetsOf("E0 00 00 01 00 3C 00 'a'"), "Failed to parse FastInfoset. Unexpected End of File."},
             {OctetsOf("E0 00 00 01 00 3C 60 FF FF FF FF 'a'"),
              "Failed to parse FastInfoset. A string has more than 67108864 octets, which is the limit."},
             {OctetsOf("E0 00 00 01 00 3C 60 03 FF 00 00 'a'"),
              "Failed to parse FastInfoset. Unexpected End of File."}}) {
        for (std::size_t const slice : {1U, 1U << 20}) EXPECT_EQ(Streamed(octets, slice), message);
    }
    EXPECT_EQ(Streamed(std::string(66 << 20, '\n')),
              "The root does not come within 67108864 octets, which is the limit");
    // A tag that does not end.
    EXPECT_EQ(Streamed("<r><a k='" + std::string(66 << 20, 'x')),
              "A tag, a comment or the like has more than 67108864 octets, which is the limit");
}

TEST(CDocumentStream, LimitsTheSizeBehindDecompression) {
    auto const read = [](std::string const& octets, std::uint64_t most, std::uint64_t mostInflated) {
        CXmlDocument const document;
        CDocumentNodes nodes;
        CDocumentBuilder builder(document, nodes, CDocumentBuilder::kTextsPass);
        CSlices source(octets, 1000);
        return Thrown([&] {
            CDocumentStream stream(source, builder, nodes.m_names,
                                   {.m_maxSize = most, .m_maxInflatedSize = mostInflated});
            EXPECT_EQ(stream.IsCompressed(), octets[0] != '<');
            stream.Read();
        });
    };
    std::string const document = "<a>" + std::string(100'000, ' ') + "</a>";
    std::string const refused = "CBxException: The document has more than 100006 octets, which is the limit";
    std::size_t const size = document.size();
    EXPECT_EQ(read(document, size, 0), "nothing");
    EXPECT_EQ(read(document, size - 1, size), refused);
    EXPECT_EQ(read(Deflate(document), 0, size), "nothing");
    EXPECT_EQ(read(Deflate(document), size, size - 1), refused);
}

TEST(CDocumentStream, BoundsWhatADocumentMakesItKeep) {
    // Names that do not repeat; text that indices repeat; attributes that the document type adds.
    std::string names = "<a>";
    for (int i = 0; i < 500'000; ++i) names += "<n" + std::to_string(i) + "/>";
    EXPECT_EQ(Streamed(names),
              "The names of the document take more than 67108864 octets, which is the limit");
    std::string const chunk = OctetsOf("E0 00 00 01 00 3C 00 'a' 93 00 00 3E E4") + std::string(16'359, 'x');
    EXPECT_EQ(
        Streamed(chunk + std::string(600, '\xA0')),
        "Failed to parse FastInfoset. The indices repeat more text than a document of this size may have.");
    EXPECT_EQ(Streamed("<!DOCTYPE r [<!ATTLIST e a CDATA '" + std::string(4088, 'v') + "'>]><r>" +
                       Repeat("<e/>", 3000)),
              "The document type adds more attributes to the elements than a document of this size may have");
}

namespace {

/// All that comes, as text.
struct CRecorder : CDocumentReceiver {
    static std::string Utf8(std::u16string_view text) { return ToUtf8(text); }
    void DeclareNamespace(wstring const& prefix, wstring const& uri) override {
        m_events += "xmlns:" + Utf8(prefix) + "=" + Utf8(uri) + " ";
    }
    void StartElement(DocumentElement const& element) override {
        DocumentPlace const place = m_stream->Place();
        EXPECT_EQ(place.m_line, element.m_line);
        m_events += std::to_string(place.m_line) + ":" + std::to_string(place.m_column) + "@" +
                    std::to_string(place.m_octet) + "<" + Utf8(element.m_prefix) + ":" +
                    Name(element.m_name.m_namespaceUri, element.m_name.m_localName);
        for (auto const& attribute : element.m_attributes) {
            m_events += " " + Utf8(attribute.m_prefix) + ":" +
                        Name(attribute.m_name->m_namespaceUri, attribute.m_name->m_localName) +
                        (attribute.m_isSpecified ? "=" : "~") + Utf8(attribute.m_value);
        }
        m_events += ">";
    }
    void AddText(std::u16string_view text) override { m_events += Utf8(text); }
    void EndElement() override { m_events += "/"; }
    void AddComment(std::u16string_view text) override { m_events += "!" + Utf8(text) + "!"; }
    void AddInstruction(std::u16string_view target, std::u16string_view content) override {
        m_events += "?" + Utf8(target) + " " + Utf8(content) + "?";
    }
    void AddDocumentType(std::u16string_view text) override { m_events += Utf8(text); }
    void AddEntityReference(std::u16string_view name) override { m_events += "&" + Utf8(name) + ";"; }

    std::string m_events;
    CDocumentStream* m_stream = nullptr;
};

std::string Events(std::string const& octets) {
    CNameTable names;
    CRecorder recorder;
    CSlices source(octets, 10);
    CDocumentStream stream(source, recorder, names,
                           {.m_details = {.m_prefixes = true, .m_lines = true, .m_markup = true}});
    recorder.m_stream = &stream;
    EXPECT_FALSE(stream.Read());
    return recorder.m_events;
}

}  // namespace

TEST(CDocumentStream, TellsPrefixesMarkupAndPlaces) {
    std::string const documentType = "<!DOCTYPE a SYSTEM 'x' [<!ATTLIST a k CDATA 'd'>]>";
    EXPECT_EQ(Events("<!--c--><?p q?>" + documentType +
                     "\n"
                     "<a xmlns='u' xmlns:p='v' xml:lang='e' p:k='1'>x&#13;\n <p:b/>&e;<!--d--></a><?r?>"),
              "!c!?p q?" + documentType +
                  "xmlns:=u xmlns:p=v 2:1@66<:{u}a xml:{http://www.w3.org/XML/1998/namespace}lang=e "
                  "p:{v}k=1 :k~d>x\r\n 3:2@120<p:{v}b>/&e;!d!/?r ?");
    std::string const declared = "<?xml version='1.0' encoding='UTF-16'?>" + documentType + "\n<a/>";
    wstring const units = u"\xFEFF" + FromUtf8(declared);
    EXPECT_EQ(Events({reinterpret_cast<char const*>(units.data()), 2 * units.size()}),
              documentType + "2:1@93<:a :k~d>/");
    EXPECT_EQ(Events(OctetsOf("E0 00 00 01 00 E1 00 'p' 40 'q' E2 40 'c' C4 E1 80 80 F0"
                              "78 CF 00 'p' 00 'v' F0 3F 81 81 00 'a' 7F 81 81 00 'k' 40 '1' F0"
                              "90 'x' C8 00 'e' E2 81 A0 F0 E2 00 'd' F0")),
              "?p q?!c!xmlns:p=v 0:0@38<p:{v}a p:{v}k=1>x&e;!c!x/!d!");
}

TEST(CDocumentStream, BoundsWhatIndicesRepeatOfPrefixesAndMarkup) {
    std::string const header = "E0 00 00 01 00 ", name = "60 00 00 0E BF '" + std::string(4096, 'n') + "' ";
    struct {
        std::string m_once, m_often;
    } const rows[] = {
        {"3F " + name + "00 'u' 00 'a'", "00 F0"},
        {"38 CF " + name + "00 'u' F0 3C 00 'a'", "38 CF 81 81 F0 00 F0"},
        {"38 CF 00 'p' " + name + "F0 3C 00 'a'", "38 CF 81 81 F0 00 F0"},
        {"3C 00 'a' E1 " + name + "FF", "E1 80 FF"},
        {"3C 00 'a' C8 " + name, "C8 80"},
    };
    auto const read = [](std::string const& octets) {
        CXmlDocument const document;
        CDocumentNodes nodes;
        CDocumentBuilder builder(document, nodes, CDocumentBuilder::kTextsPass);
        CSlices source(octets, 1000);
        CDocumentStream stream(source, builder, nodes.m_names,
                               {.m_details = {.m_prefixes = true, .m_markup = true}});
        return Thrown([&] { stream.Read(); });
    };
    std::string const failed = "CBxException: Failed to parse FastInfoset. ";
    for (auto const& row : rows) {
        // 128 units of a name count for nothing.
        std::string const most = OctetsOf(header + row.m_once) + Repeat(OctetsOf(row.m_often), 2113);
        EXPECT_EQ(read(most), failed + "Unexpected End of File.") << row.m_often;
        EXPECT_EQ(read(most + OctetsOf(row.m_often)),
                  failed + "The indices repeat more text than a document of this size may have.")
            << row.m_often;
    }
}
