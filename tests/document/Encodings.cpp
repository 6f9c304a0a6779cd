#include <random>

#include "document/CDocumentStream.h"
#include "document/Trees.h"
#include "platform/CEncoding.h"
#include "platform/Utf.h"
#include "support/Octets.h"

using namespace BxTest;
using namespace std::string_literals;

namespace {

std::string Declared(std::string const& encoding, std::string const& text) {
    return "<?xml version='1.0' encoding='" + encoding + "'?>\n<a k='" + text + "'>" + text + "</a>";
}

/// The tree, or the report of the failure.
std::string Read(std::string const& octets, bool systemEncodings = true) {
    CXmlDocument document;
    document.SetSystemEncodings(systemEncodings);
    return Report(document, kOctets, octets);
}

/// The texts of a document that comes in slices.
struct Texts : CDocumentReceiver {
    void DeclareNamespace(wstring const&, wstring const&) override {}
    void StartElement(DocumentElement const&) override {}
    void AddText(std::u16string_view text) override { m_text += text; }
    void EndElement() override {}
    wstring m_text;
};

std::string ReadInSlices(std::string const& octets) {
    CMemorySource source(AsOctets(octets));
    Texts texts;
    CNameTable names;
    return Reported([&] {
        CDocumentStream(source, texts, names, {.m_details = {.m_systemEncodings = true}}).Read();
        return ToUtf8(texts.m_text);
    });
}

class Encodings : public testing::Test {
    void SetUp() override {
        if (!CEncoding("Shift_JIS").IsKnown()) GTEST_SKIP() << "the C library knows few encodings here";
    }
};

}  // namespace

TEST(CEncoding, ThatIsUnknownHasNoText) {
    unsigned char const octet = 'a';
    unsigned char room[64];
    CEncoding encoding("no-encoding");
    EXPECT_FALSE(encoding.IsKnown());
    EXPECT_TRUE(encoding.Convert({&octet, 1}, room).m_isMalformed);
}

TEST_F(Encodings, OfTheSystem) {
    for (auto const& [encoding, octets, text] :
         std::vector<std::array<std::string, 3>>{{"ASCII", "x", "x"},
                                                 {"latin1", "\xE9", "é"},
                                                 {"windows-1252", "\x80\xE9", "€é"},
                                                 {"ISO-8859-5", "\xBF", "П"},
                                                 {"ISO-8859-15", "\xA4", "€"},
                                                 {"KOI8-R", "\xF0\xD2\xC9", "При"},
                                                 {"Shift_JIS", "\x93\xFA\x96{", "日本"},
                                                 {"GBK", "\xC4\xE3\xBA\xC3", "你好"},
                                                 {"GB18030", "\x94\x32\xBE\x34", "𝄞"},
                                                 {"Big5", "\xA7\x41\xA6n", "你好"},
                                                 {"EUC-JP", "\xC6\xFC\xCB\xDC", "日本"},
                                                 {"EUC-KR", "\xC7\xD1", "한"},
                                                 {"ISO-2022-JP", "\x1B$BF|K\\\x1B(B", "日本"},
                                                 {"windows-1258", "a\xEC", "á"}}) {
        std::string const document = Declared(encoding, octets);
        EXPECT_EQ(Read(document), "a@k=" + text + "'" + text + "'") << encoding;
        EXPECT_EQ(ReadInSlices(document), text) << encoding;
        EXPECT_EQ(Read(document, false), "1:31: unknown encoding at line 1\nThe encoding [" + encoding +
                                             "] is read only where those of the system are allowed");
        // Beyond a slice, and cut anywhere.
        std::string const much = Declared(encoding, Repeat(octets + "\n", 30000));
        EXPECT_EQ(ReadInSlices(much), Repeat(text + "\n", 30000)) << encoding;
        CXmlDocument cut;
        cut.SetSystemEncodings(true);
        for (std::size_t size = 0; size <= document.size(); ++size)
            Thrown([&] { Load(kOctets, cut, document.substr(0, size)); });
    }
}

TEST_F(Encodings, Utf32) {
    for (std::string const& text : {std::string("<a>𝄞é</a>"), Declared("UTF-32", "𝄞é")}) {
        std::size_t at = 0;
        std::string low, high;
        while (at < text.size()) {
            char32_t const c = BxXmlLib5::Utf::Next(text, at);
            for (int shift = 0; shift < 32; shift += 8) {
                low += static_cast<char>(c >> shift);
                high += static_cast<char>(c >> (24 - shift));
            }
        }
        for (std::string const& octets : {low, high, "\xFF\xFE\0\0"s + low, "\0\0\xFE\xFF"s + high}) {
            EXPECT_TRUE(Read(octets).ends_with("'𝄞é'")) << Read(octets);
            EXPECT_EQ(ReadInSlices(octets), "𝄞é");
        }
        EXPECT_EQ(Read(low + "\xFF\xFF\xFF\xFF"s), Read(low + "\0\xD8\0\0"s));
        EXPECT_TRUE(Read(low + "\xFF\xFF\xFF\xFF"s).find("not well-formed") != std::string::npos);
    }
}

TEST_F(Encodings, Refused) {
    std::string const unknown = "1:31: unknown encoding at line 1\nThe system does not know the encoding [";
    std::string const wrong = "encoding specified in XML declaration is incorrect at line 1";
    for (auto const& [octets, report] : std::vector<std::pair<std::string, std::string>>{
             {Declared("nobody", "x"), unknown + "nobody]"},
             {Declared(std::string(200, 'a'), "x"), unknown + std::string(100, 'a') + "]"},
             {Declared("UTF-8//TRANSLIT", "x"), "1:36: XML declaration not well-formed at line 1"},
             {Declared("../../tmp/x", "x"), "1:33: XML declaration not well-formed at line 1"},
             {Declared("IBM037", "x"), wrong},
             {Declared("UCS-2", "x"), wrong},
             {Declared("INTERNAL", "x"), unknown + "INTERNAL]"},
             {"\uFEFF" + Declared("windows-1252", "\u00E9"),
              "1:31: unknown encoding at line 1\n"
              "The text is UTF-8 by its byte order mark, but declares the encoding [windows-1252]"},
             {Declared("ASCII", "x\n\x80"), "3:1: not well-formed (invalid token) at line 3"},
             {Declared("Shift_JIS", "x\n\x93\xFA\n\xFF"),
              "4:1: not well-formed (invalid token) at line 4"}}) {
        EXPECT_EQ(Read(octets), report);
        std::string const inSlices = ReadInSlices(octets);
        EXPECT_TRUE(inSlices == report || inSlices.find("not well-formed") != std::string::npos) << inSlices;
    }
    std::string const longOne = "<?xml version='1.0'" + std::string(4096, ' ') + "encoding='Shift_JIS'?><a/>";
    EXPECT_EQ(Read(longOne), "a");
    EXPECT_EQ(ReadInSlices(longOne),
              "1:4126: unknown encoding at line 1\n"
              "The XML declaration, with the encoding [Shift_JIS], exceeds 4096 octets");
    CXmlDocument document;
    document.SetSystemEncodings(true);
    EXPECT_BX_THROW(document.LoadXml(FromUtf8(Declared("KOI8-R", "x")).c_str()), CBxException,
                    "unknown encoding at line 1");
}

/// Whatever octets an encoding is given.
TEST_F(Encodings, OfRandomOctets) {
    std::mt19937 random(5);
    for (std::size_t round = 0; round < 400; ++round) {
        static constexpr char const* kNames[] = {"ASCII", "Shift_JIS",    "GBK",    "EUC-JP", "ISO-2022-JP",
                                                 "Big5",  "windows-1258", "KOI8-R", "EUC-TW", "UTF-7"};
        std::string octets;
        for (std::size_t left = random() % 100; left > 0; --left) octets += static_cast<char>(random());
        std::string const document = Declared(kNames[round % std::size(kNames)], octets);
        Read(document);
        ReadInSlices(document);
    }
}
