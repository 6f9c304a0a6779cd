#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <random>

#include "document/Trees.h"

using namespace BxTest;
using namespace std::string_literals;

namespace {

std::vector<Way> const kStreams = {kOctets, kFile};
std::string const kNoRoot = " => Invalid or empty XML document";
std::string const kInvalidToken = " => not well-formed (invalid token) at line 1";
std::string const kWrongEncoding = " => encoding specified in XML declaration is incorrect at line 1";
constexpr char const* kTooLarge = "The document has more than 2147483647 octets, which is the limit";

std::string Declared(std::string const& encoding, std::string const& text) {
    return "<?xml version='1.0' encoding='" + encoding + "'?><a>" + text + "</a>";
}

/// UTF-16 octets behind a byte order mark.
std::string Utf16(std::string const& text, bool lowOctetFirst) {
    std::string octets;
    wstring const units = FromUtf8("\uFEFF" + text);
    for (char16_t const unit : units) {
        octets += static_cast<char>(lowOctetFirst ? unit & 0xFF : unit >> 8);
        octets += static_cast<char>(lowOctetFirst ? unit >> 8 : unit & 0xFF);
    }
    return octets;
}

struct CountingDocument : CXmlDocument {
    void Cleanup() override {
        ++m_cleanups;
        CXmlDocument::Cleanup();
    }
    int m_cleanups = 0;
};

}  // namespace

TEST(Input, Malformed) {
    ExpectLoads({"\r\n\t " + kNoRoot, "<?xml version='1.0'?>\n<!-- nothing --><?p?>" + kNoRoot,
                 "<a" + kNoRoot, "<a><b>\n</a> => mismatched tag at line 2",
                 "<a/>\n<b/> => junk after document element at line 2", "<p:a/> => unbound prefix at line 1",
                 "<a xmlns='u|v'/> => syntax error at line 1", "<a>\n&e;</a> => undefined entity at line 2"});
}

TEST(Input, Encodings) {
    std::string const text = "<a>é€𝄞</a>", tree = " => a'é€𝄞'";
    ExpectLoads({"\xEF\xBB\xBF" + text + tree, Utf16(text, true) + tree, Utf16(text, false) + tree,
                 Utf16(Declared("UTF-8", "e"), true) + kWrongEncoding,
                 Utf16(Declared("UTF-16BE", "𝄞"), true) + kWrongEncoding,
                 Utf16(Declared("x", "𝄞"), false) + " => unknown encoding at line 1",
                 Utf16("<aª/>", true) + kInvalidToken, Utf16("<µ/>", false) + kInvalidToken,
                 Utf16("<aº/>", true) + kInvalidToken, Utf16("<a>ªµº</a>", false) + " => a'ªµº'",
                 Utf16(text, true).substr(2) + tree, Utf16(text, false).substr(2) + tree,
                 "<a>\0</a>"s + kInvalidToken},
                kStreams);
    ExpectLoads({Declared("ISO-8859-1", "\xE9\xC3") + " => a'éÃ'", "<a>\xED\xA0\x80</a>" + kInvalidToken},
                {kOctets, kFile, kNarrow});
    // A wide string is UTF-16, whatever it declares.
    ExpectLoads({text + tree, Declared("UTF-16", "é€𝄞") + tree, Declared("UTF-8", "𝄞") + kWrongEncoding},
                {kWide});
}

TEST(Input, PairsInLongTexts) {
    std::mt19937 random(1);
    char const* const pieces[] = {"x", "é", "€", "𝄞", "\U0001F600"};
    for (unsigned i = 0; i < 100; ++i) {
        // The first ones end with a pair around the size in which Expat hands texts over.
        std::string text(i < 50 ? 1000 + i : random() % 3000, 'x');
        for (auto n = i < 50 ? 0 : random() % 3000; n > 0; --n) text += pieces[random() % std::size(pieces)];
        text += "\U0001F600";
        std::string const document = "<a k='" + text + "'>" + text + "<b><![CDATA[" + text + "]]></b></a>";
        std::string const tree = "a@k=" + text + "'" + text + "'(b'" + text + "')";
        for (std::string const& octets : {document, Utf16(document, true), Utf16(document, false)})
            EXPECT_TRUE(Outcome([&](auto& d) { Load(kOctets, d, octets); }) == tree) << i;
    }
}

TEST(Input, Compression) {
    for (int const wrapper : {kGZip, kZLib}) {
        std::string const whole = Deflate("<a k='1'>é</a>", wrapper), tree = " => a@k=1'é'";
        ExpectLoads({whole + tree, whole + "what follows the stream" + tree,
                     Deflate("<a><b></a>", wrapper) + " => mismatched tag at line 1",
                     Deflate("", wrapper) + kNoRoot, Deflate(whole, wrapper) + kInvalidToken},
                    kStreams);
    }
    // The size of a block of output, and its neighbours.
    for (std::size_t const size : std::initializer_list<std::size_t>{65535, 65536, 65537, 131072}) {
        std::string const text(size - 7, 'x');
        ExpectLoads({Deflate("<a>" + text + "</a>", kZLib) + " => a'" + text + "'"}, {kOctets});
    }
}

TEST(Input, MembersOfAGZipStreamAreJoined) {
    std::string const first = Deflate("<a>x", kGZip), second = Deflate("y<b/>", kGZip),
                      third = Deflate("</a>", kGZip), all = first + second + third, tree = " => a'xy'(b)";
    ExpectLoads(
        {all + tree, first + Deflate("", kGZip) + second + third + "\x1F" + tree,
         Deflate("<a/>", kGZip) + Deflate("</a>", kZLib) + " => a", Deflate("<a/>", kZLib) + third + " => a",
         // A member that is cut off is not left out.
         all.substr(0, all.size() - 1) + kInvalidToken, first + "\x1F\x8B" + kInvalidToken},
        kStreams);
}

TEST(Input, AStringIsAlwaysText) {
    // A zlib stream without an octet of 0, which would end the string.
    std::string const stream =
        "\x78\x01\xB3\x49\xB4\x3B\xBC\xF2\xF0\x82\xC3\x7B\x6C\xF4\x13\xED\x38\x01\x33\x4E\x06\x3D";
    ExpectLoads({stream + " => a'éàü'"}, kStreams);
    ExpectLoads({stream + kInvalidToken}, {kNarrow});
}

TEST(Input, CompressedOctetsThatAreIncompleteOrDamagedAreNotInflated) {
    std::string const whole = Deflate("<a><b>some text</b></a>", kZLib);
    std::vector<std::string> rows = {Deflate("<a><a/></a>", kZLib, "<a>"), whole};
    rows.back().back() ^= 0x55;
    for (std::size_t size = 1; size < whole.size(); ++size) rows.push_back(whole.substr(0, size));
    for (std::string const& octets : rows) {
        EXPECT_THAT(" => " + Outcome([&](auto& d) { Load(kOctets, d, octets); }),
                    testing::AnyOf(kNoRoot, kInvalidToken, " => syntax error at line 1"));
    }
}

TEST(Input, Files) {
    TemporaryFolder const folder;
    std::string const file = folder.Write("tästé𝄞 %s.xml", "<a/>"), sparse = folder.Write("sparse", "<a/>"),
                      fifo = folder.Path("fifo"), none = folder.Path("%s€ %n"),
                      // Claims a page and holds a line; not every kernel has it.
        brief = "/sys/kernel/mm/transparent_hugepage/enabled",
                      unread = "Failed to read the contents of the file [" + brief + "] Error [0x0";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    std::filesystem::resize_file(sparse, std::size_t{INT_MAX} + 1);
    auto const outcome = [](std::string const& path) {
        return Outcome([&](auto& d) { d.Load(FromUtf8(path).c_str()); });
    };
    auto const unopened = [](std::string const& path) {
        return "Failed to open the file [" + path + "] Error [0x000000";
    };
    EXPECT_EQ(outcome(file), "a");
    EXPECT_EQ(Reported([&] { return CXmlDocument().Load(FromUtf8(none).c_str()), ""s; }),
              unopened(none) + "02]\nNo such file or directory");
    EXPECT_EQ(outcome(file + "/x"), unopened(file + "/x") + "14]");
    EXPECT_EQ(Outcome([](auto& d) { d.Load(nullptr); }), unopened("") + "02]");
    EXPECT_EQ(outcome(folder.Path("")), unopened(folder.Path("")) + "15]");
    for (std::string const& path : {fifo, "/dev/null"s}) EXPECT_EQ(outcome(path), unopened(path) + "16]");
    EXPECT_EQ(outcome(sparse), kTooLarge);
    if (access(brief.c_str(), R_OK) == 0) {
        EXPECT_THAT(outcome(brief), testing::StartsWith(unread));
    }
}

TEST(Input, EveryLoadReplacesWhatWasThere) {
    unsigned char const octet = '<';
    struct {
        std::function<void(CXmlDocument&)> m_load;
        char const* m_outcome;
        char const* m_tree = "nothing";
        int m_cleanups = 1;
    } const rows[] = {
        {[](auto& d) { Load(kOctets, d, "<a>x</a>"); }, "a'x'", "a'x'"},
        {[](auto& d) { Load(kFile, d, "<a>x</a>"); }, "a'x'", "a'x'"},
        {[](auto& d) { Load(kNarrow, d, "<a>x</a>"); }, "a'x'", "a'x'"},
        {[](auto& d) { Load(kWide, d, "<a>x</a>"); }, "a'x'", "a'x'"},
        {[](auto& d) { d.LoadXmlStream(nullptr, 0); }, "XML Stream is empty!"},
        {[&](auto& d) { d.LoadXmlStream(&octet, std::size_t{INT_MAX} + 1); }, kTooLarge},
        {[](auto& d) { d.LoadXml(""); }, "XML String is empty!"},
        {[](auto& d) { d.LoadXml(u""); }, "XML String is empty!"},
        {[](auto& d) { d.LoadXml(static_cast<char const*>(nullptr)); }, "XML String is empty!"},
        {[](auto& d) { d.LoadXml(static_cast<char16_t const*>(nullptr)); }, "XML String is empty!"},
        {[](auto& d) { d.Load(u"/none"); }, "Failed to open the file [/none] Error [0x00000002]"},
        {[](auto& d) { Load(kFile, d, ""); }, "Invalid or empty XML document", "nothing", 2},
        {[](auto& d) { d.LoadXml("<a>x<b></a>"); }, "mismatched tag at line 1", "a'x'(b)"},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(Outcome(row.m_load), row.m_outcome);
        CountingDocument document;
        document.LoadXml("<old xmlns:p='u' xmlns='v'><child/></old>");
        Thrown([&] { row.m_load(document); });
        EXPECT_EQ(Dump(document.GetDocumentElement()), row.m_tree);
        EXPECT_EQ(document.LookupNamespaceFromAlias(u"p") + document.LookupNamespaceFromAlias(u""), u"");
        EXPECT_EQ(document.m_cleanups, 1 + row.m_cleanups);
        document.LoadXml("<new xmlns='v'>y</new>");
        EXPECT_EQ(Dump(document.GetDocumentElement()), "{v}new'y'");
    }
}

TEST(Input, RefusesWhatIsNotWhole) {
    CXmlDocument document;
    document.SetRequireWholeDocument(true);
    for (auto const& [text, path, line] : std::vector<std::array<std::string, 3>>{
             {"<a", "", ""},
             {"<a>", "/a", "1"},
             {"<a><b/>\n<c/><b>\n</b>\n<b k='1'\n><d>\n<", "/a/b[3]/d", "5"},
             {"<a><b/>\n<x:c xmlns:x='u'>t", "/a/c", "2"}}) {
        std::string const open =
            line + ": The document ends inside the element [" + path + "], which begins on line " + line;
        for (Way const way : {kOctets, kFile, kNarrow, kWide}) {
            EXPECT_EQ(Report(document, way, text), path.empty() ? "Invalid or empty XML document" : open);
            EXPECT_FALSE(document.IsComplete());
            std::size_t const levels = static_cast<std::size_t>(std::ranges::count(path, '/'));
            ASSERT_EQ(document.GetOpenElements().size(), levels);
            EXPECT_TRUE(levels == 0 || document.GetOpenElements().front() == document.GetDocumentElement());
        }
    }
    EXPECT_EQ(Thrown([&] { document.LoadXml("<a/><!-- cut"); }), "nothing");
    EXPECT_TRUE(document.IsComplete() && document.GetOpenElements().empty());
}

TEST(Input, TellsOfSkippedEntities) {
    struct Row {
        std::string m_text;
        std::string m_tree;
        std::size_t m_count;
        std::string m_first;
        int m_line;
    };
    for (
        Row const& row : std::vector<Row>{
            {"<!DOCTYPE a SYSTEM 'x'>\n<a>5&euro;\n&nbsp;&euro;</a>", "a'5\n'", 3, "euro", 2},
            {"<!DOCTYPE a SYSTEM 'x' [<!ENTITY e 'E'>]><a\nk='1&e;&amp;&#65;&u;2' l='&v;'>&e;</a>",
             "a@k=1E&A2@l='E'", 2, "u", 1},
            {"<!DOCTYPE a [<!ENTITY e SYSTEM 'x'>]><a>1&e;2</a>", "a'12'", 1, "e", 1},
            {"<!DOCTYPE a [<!ENTITY f '<b/>&é;'>\n<!ENTITY é SYSTEM 'x'>]>\n<a xmlns:p='u'>&f;&f;</a>",
             "a(b b)", 2, "é", 3},
            {"<!DOCTYPE a [<!ENTITY % p SYSTEM 'x'>%p;<!ENTITY e 'E'>]>\n<a k='&e;'>&e;</a>", "a@k=", 2, "e",
             2},
            {"<!DOCTYPE a SYSTEM 'x' [<!ENTITY f '1&e;&g;2'><!ENTITY g '&u;&v;'>\n"
             "<!ENTITY e ''>]>\n<a k='&f;&e;' l='&f;&g;'/>",
             "a@k=12@l=12", 3, "u", 3},
            {"<!DOCTYPE a SYSTEM 'x' [<!ENTITY e 'E&#38;lt;'>]><a k='&e;&gt;'>&e;&lt;</a>", "a@k=E<>'E<<'", 0,
             "", 0},
            // In default values, where an element takes them
            {"<!DOCTYPE a SYSTEM 'x' [<!ENTITY e '&u;'><!ATTLIST a k CDATA '1&u;2' l (x|y) 'x' m NMTOKEN #IMPLIED>\n"
             "<!ATTLIST a l CDATA '&w;' m CDATA '&w;'\nn CDATA #FIXED \">&e;&v;\" o NOTATION (x|y) #REQUIRED>\n"
             "<!ATTLIST a p CDATA '&w;' q CDATA ''><!ATTLIST b k CDATA '&w;'>]>\n<a p = ''><b k=''/></a>",
             "a@p=@k=12@l=x@n=>@q=(b@k=)", 3, "u", 5},
            {"<!DOCTYPE a SYSTEM 'x' [<!ATTLIST a k CDATA '&e;'><!ENTITY e '<b/>'><!ATTLIST b k CDATA '&u;'>%p;\n"
             "<!ATTLIST a l CDATA '&v;'>]><a\n>&e;<b/></a>",
             "a@k=(b@k= b@k=)", 3, "e", 2},
            {"<!DOCTYPE p:a SYSTEM 'x' [<!ATTLIST p:a xmlns:p CDATA 'u&u;' p:k CDATA '1&v;'>]><p:a/>",
             "{u}a@{u}k=1", 2, "v", 1}}) {
        for (Way const way : {kOctets, kNarrow, kWide}) {
            CXmlDocument document;
            Load(way, document, row.m_text);
            EXPECT_EQ(Dump(document.GetDocumentElement()), row.m_tree);
            EXPECT_EQ(document.GetSkippedEntityCount(), row.m_count) << row.m_text;
            EXPECT_EQ(document.GetFirstSkippedEntity(), FromUtf8(row.m_first));
            document.SetRequireWholeDocument(true);
            std::string const refused = "CBxException: The entity [" + row.m_first + "], to which line " +
                                        std::to_string(row.m_line) +
                                        " refers, is not declared in the document itself";
            EXPECT_EQ(Thrown([&] { Load(way, document, row.m_text); }),
                      row.m_count == 0 ? "nothing" : refused);
        }
    }
}

TEST(Input, TellsWhatItWas) {
    std::string const binary = "\xE0\0\0\1\0\x3C\0a\xFF"s;
    CXmlDocument document;
    EXPECT_FALSE(document.IsComplete());
    // Compressed, Fast Infoset, complete.
    for (auto const& [octets, flags] : {std::pair{Deflate(binary, kGZip), "111"},
                                        {binary, "011"},
                                        {Deflate("<a/>", kZLib), "101"},
                                        {"<a><b/></a", "000"},
                                        {"<a><b/></a><!-- cut", "001"}}) {
        Load(kOctets, document, octets);
        EXPECT_EQ(document.IsCompressed(), flags[0] == '1');
        EXPECT_EQ(document.IsFastInfoset(), flags[1] == '1');
        EXPECT_EQ(document.IsComplete(), flags[2] == '1') << octets;
    }
    EXPECT_THROW(Load(kNarrow, document, "<a/></b>"), CBxException);
    EXPECT_FALSE(document.IsComplete());
    Load(kOctets, document, Deflate(binary, kGZip));
    EXPECT_THROW(document.LoadXml(""), CBxException);
    EXPECT_FALSE(document.IsCompressed() || document.IsFastInfoset() || document.IsComplete());
}
