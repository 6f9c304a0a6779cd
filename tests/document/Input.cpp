#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <functional>

#include "document/Trees.h"

using namespace BxTest;
using namespace std::string_literals;
using testing::MatchesRegex;
using testing::StartsWith;

namespace {

constexpr char const* kNoRoot = "Invalid or empty XML document";
constexpr char const* kInvalidToken = "not well-formed (invalid token) at line 1";
constexpr char const* kWrongEncoding = "encoding specified in XML declaration is incorrect at line 1";
constexpr char const* kTooLarge = "The document has more than 2147483647 octets, which is the limit";

struct Row {
    std::string m_input;
    char const* m_outcome;
};

using LoadStep = std::function<void(CXmlDocument&)>;

/// The message of the CBxException that a load throws, or the tree that it makes.
std::string Outcome(LoadStep const& load) {
    CXmlDocument document;
    std::string const thrown = Thrown([&] { load(document); });
    if (thrown == "nothing") return Dump(document.GetDocumentElement());
    return thrown.starts_with("CBxException: ") ? thrown.substr(14) : thrown;
}

/// A file is taken for what it is just like a stream.
std::string OutcomeOfOctets(std::string const& octets) {
    std::string const outcome = Outcome([&](auto& d) { LoadOctets(d, octets); });
    EXPECT_EQ(Outcome([&](auto& d) { LoadFile(d, TemporaryFolder().Write("x", octets)); }), outcome);
    return outcome;
}

/// UTF-16 octets behind a byte order mark.
std::string Utf16(std::string_view text, bool lowOctetFirst) {
    std::string octets;
    wstring const units = FromUtf8("\uFEFF" + std::string(text));
    for (char16_t const unit : units) {
        octets += static_cast<char>(lowOctetFirst ? unit & 0xFF : unit >> 8);
        octets += static_cast<char>(lowOctetFirst ? unit >> 8 : unit & 0xFF);
    }
    return octets;
}

std::string Declared(std::string const& encoding, std::string const& text) {
    return "<?xml version='1.0' encoding='" + encoding + "'?><a>" + text + "</a>";
}

}  // namespace

TEST(Input, Empty) {
    struct {
        LoadStep m_load;
        char const* m_message;
    } const rows[] = {
        {[](auto& d) { d.LoadXmlStream(nullptr, 0); }, "XML Stream is empty!"},
        {[](auto& d) { LoadOctets(d, ""); }, "XML Stream is empty!"},
        {[](auto& d) { d.LoadXml(""); }, "XML String is empty!"},
        {[](auto& d) { d.LoadXml(u""); }, "XML String is empty!"},
        {[](auto& d) { d.LoadXml(static_cast<char const*>(nullptr)); }, "XML String is empty!"},
        {[](auto& d) { d.LoadXml(static_cast<char16_t const*>(nullptr)); }, "XML String is empty!"},
        {[](auto& d) { Load(kFile, d, ""); }, kNoRoot},
        {[](auto& d) { d.Load(u""); }, "Failed to open the file [] Error [0x00000002]"},
        {[](auto& d) { d.Load(nullptr); }, "Failed to open the file [] Error [0x00000002]"},
    };
    for (auto const& row : rows) EXPECT_EQ(Outcome(row.m_load), row.m_message);
}

TEST(Input, Malformed) {
    Row const rows[] = {
        {"\r\n\t ", kNoRoot},
        {"<?xml version='1.0'?>\n<!-- nothing --><?p?>", kNoRoot},
        {"<!DOCTYPE a>", kNoRoot},
        {"<a", kNoRoot},
        {"<a><b>\n</a>", "mismatched tag at line 2"},
        {"<a/>\n<b/>", "junk after document element at line 2"},
        {"<a/>text", "junk after document element at line 1"},
        {"text <a/>", "syntax error at line 1"},
        {"<a>\n&e;</a>", "undefined entity at line 2"},
        {"<a>&#0;</a>", "reference to invalid character number at line 1"},
        {"<a k='1'\n k='2'/>", "duplicate attribute at line 2"},
        {"<a xmlns:p='u' xmlns:q='u' p:k='1' q:k='2'/>", "duplicate attribute at line 1"},
        {"<p:a/>", "unbound prefix at line 1"},
        {"<a xmlns='u|v'/>", "syntax error at line 1"},
        {"<a k=1/>", kInvalidToken},
        {"<a><1/></a>", kInvalidToken},
        {"<a>\x01</a>", kInvalidToken},
        {"<a>]]></a>", kInvalidToken},
        {"<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a>&e;</a>",
         "recursive entity reference at line 1"},
    };
    for (auto const& row : rows) {
        for (Way const way : kEveryWay)
            EXPECT_EQ(Outcome([&](auto& d) { Load(way, d, row.m_input); }), row.m_outcome)
                << row.m_input << way;
    }
}

TEST(Input, EncodingsOfOctets) {
    Row const rows[] = {
        {"<a>é€𝄞</a>", "a'é€𝄞'"},
        {"\xEF\xBB\xBF<a>é€𝄞</a>", "a'é€𝄞'"},
        {Declared("utf-8", "é€𝄞"), "a'é€𝄞'"},
        {Utf16("<a>é€𝄞</a>", true), "a'é€𝄞'"},
        {Utf16("<a>é€𝄞</a>", false), "a'é€𝄞'"},
        {Utf16(Declared("UTF-16", "é€𝄞"), true), "a'é€𝄞'"},
        {Utf16(Declared("UTF-16", "é€𝄞"), false), "a'é€𝄞'"},
        {Declared("ISO-8859-1", "\xE9\xC3"), "a'éÃ'"},
        {Declared("US-ASCII", "e"), "a'e'"},
        {Declared("US-ASCII", "é"), kInvalidToken},
        {Declared("UTF-8", "\xE9t\xE9"), kInvalidToken},
        {"<a>\xE9t\xE9</a>", kInvalidToken},
        {"<a>\xC0\x80</a>", kInvalidToken},
        {"<a>\xED\xA0\x80</a>", kInvalidToken},
        {"<a>\0</a>"s, kInvalidToken},
        {Declared("UTF-16", "e"), kWrongEncoding},
        {Utf16(Declared("UTF-8", "e"), true), kWrongEncoding},
        {Declared("windows-1252", "e"), "unknown encoding at line 1"},
    };
    for (auto const& row : rows) EXPECT_EQ(OutcomeOfOctets(row.m_input), row.m_outcome) << row.m_input;
    // A string of octets takes the encoding that it declares, too.
    EXPECT_EQ(Outcome([](auto& d) { d.LoadXml(Declared("ISO-8859-1", "\xE9").c_str()); }), "a'é'");
    EXPECT_EQ(Outcome([](auto& d) { d.LoadXml("<a>\xE9</a>"); }), kInvalidToken);
}

TEST(Input, WideStringsAreUtf16WhateverTheyDeclare) {
    Row const rows[] = {
        {"<?xml version='1.0'?><a>é€𝄞</a>", "a'é€𝄞'"}, {Declared("UTF-16", "é"), "a'é'"},
        {Declared("UTF-8", ""), kWrongEncoding},       {Declared("ISO-8859-1", ""), kWrongEncoding},
        {Declared("US-ASCII", ""), kWrongEncoding},    {Declared("KOI8-R", ""), "unknown encoding at line 1"},
    };
    for (auto const& row : rows)
        EXPECT_EQ(Outcome([&](auto& d) { Load(kWide, d, row.m_input); }), row.m_outcome) << row.m_input;
    EXPECT_EQ(Outcome([](auto& d) { d.LoadXml(u"<a>\xDC00\xD800</a>"); }), kInvalidToken);
}

TEST(Input, CompressedOctets) {
    for (int const wrapper : {kGZip, kZLib}) {
        std::string const compressed = Deflate("<a k='1'>é</a>", wrapper);
        Row const rows[] = {
            {compressed, "a@k=1'é'"},
            {compressed + "what follows the stream", "a@k=1'é'"},
            {compressed + Deflate("<b/>", wrapper), "a@k=1'é'"},
            {Deflate(Utf16("<a>é</a>", false), wrapper), "a'é'"},
            {Deflate("<a><b></a>", wrapper), "mismatched tag at line 1"},
            {Deflate("", wrapper), kNoRoot},
        };
        for (auto const& row : rows) EXPECT_EQ(OutcomeOfOctets(row.m_input), row.m_outcome);
        EXPECT_THAT(OutcomeOfOctets(Deflate(compressed, wrapper)), testing::EndsWith(" at line 1"));
        // A string is always text.
        EXPECT_THAT(Outcome([&](auto& d) { d.LoadXml(compressed.c_str()); }),
                    testing::EndsWith(" at line 1"));

        // The size of a block of output, and its neighbours.
        for (std::size_t const size : {65535, 65536, 65537, 131072, 196608}) {
            CXmlDocument document;
            LoadOctets(document, Deflate("<a>" + std::string(size - 7, 'x') + "</a>", wrapper));
            EXPECT_EQ(document.GetDocumentElement()->GetText(), wstring(size - 7, u'x'));
        }
    }
}

TEST(Input, CompressedOctetsThatAreIncompleteOrDamagedAreNotInflated) {
    CXmlDocument document;
    auto const outcome = [&](std::string_view octets) {
        return Thrown([&] { LoadOctets(document, octets); });
    };
    for (int const wrapper : {kGZip, kZLib}) {
        std::string const whole = Deflate("<a><b>some text</b><b>some more</b></a>", wrapper);
        for (std::size_t size = 1; size < whole.size(); ++size)
            EXPECT_THAT(outcome(std::string_view(whole).substr(0, size)), StartsWith("CBxException: "))
                << size;
        for (std::size_t at = wrapper == kGZip ? 10 : 2; at < whole.size(); ++at) {
            std::string damaged = whole;
            damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
            EXPECT_THAT(outcome(damaged), StartsWith("CBxException: ")) << at;
        }
        EXPECT_EQ(outcome(whole), "nothing");
        EXPECT_EQ(Dump(document.GetDocumentElement()), "a(b'some text' b'some more')");
    }
    EXPECT_THAT(outcome(Deflate("<a><a/></a>", kZLib, "<a>")), StartsWith("CBxException: "));
}

TEST(Input, FilesThatCannotBeRead) {
    TemporaryFolder const folder;
    std::string const file = folder.Write("file", "<a/>"), fifo = folder.Path("fifo"),
                      link = folder.Path("link"), locked = folder.Write("locked", "<a/>"),
                      none = folder.Path("%s€ %n");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    ASSERT_EQ(chmod(locked.c_str(), 0), 0);
    std::filesystem::create_symlink(folder.Path("nowhere"), link);
    auto const outcome = [](std::string const& path) { return Outcome([&](auto& d) { LoadFile(d, path); }); };

    for (std::string const& path : {none, folder.Path("none/file"), link})
        EXPECT_EQ(outcome(path), "Failed to open the file [" + path + "] Error [0x00000002]");
    EXPECT_EQ(outcome(file + "/x"), "Failed to open the file [" + file + "/x] Error [0x00000014]");
    if (access(locked.c_str(), R_OK) != 0) {  // the superuser may
        EXPECT_EQ(outcome(locked), "Failed to open the file [" + locked + "] Error [0x0000000d]");
    }
    for (std::string const& path : {folder.Path(""), fifo, "/dev/null"s})
        EXPECT_THAT(outcome(path),
                    MatchesRegex("Failed to open the file \\[" + path + "\\] Error \\[0x0{6}[0-9a-f]+\\]"));

    // A file of the kernel that claims a page and holds a line.
    std::string const brief = "/sys/kernel/mm/transparent_hugepage/enabled";
    if (access(brief.c_str(), R_OK) != 0) GTEST_SKIP() << brief << " is not there";
    EXPECT_THAT(outcome(brief),
                StartsWith("Failed to read the contents of the file [" + brief + "] Error [0x0"));
}

TEST(Input, FilesByNamesOfTheSystem) {
    TemporaryFolder const folder;
    std::string const target = folder.Write("tästé𝄞 %s.xml", "<a/>"), link = folder.Path("link");
    std::filesystem::create_symlink(target, link);
    for (std::string const& path : {target, link})
        EXPECT_EQ(Outcome([&](auto& d) { LoadFile(d, path); }), "a");
}

TEST(Input, TooLarge) {
    unsigned char const octet = '<';
    EXPECT_EQ(Outcome([&](auto& d) { d.LoadXmlStream(&octet, std::size_t{INT_MAX} + 1); }), kTooLarge);
    EXPECT_EQ(Outcome([&](auto& d) { d.LoadXmlStream(&octet, (std::size_t{1} << 32) + 1); }), kTooLarge);
    TemporaryFolder const folder;
    std::string const path = folder.Write("sparse", "<a/>");
    std::filesystem::resize_file(path, std::size_t{INT_MAX} + 1);
    EXPECT_EQ(Outcome([&](auto& d) { LoadFile(d, path); }), kTooLarge);
}

namespace {

class CountingDocument : public CXmlDocument {
public:
    int m_cleanups = 0;

protected:
    void Cleanup() override {
        ++m_cleanups;
        CXmlDocument::Cleanup();
    }
};

}  // namespace

TEST(Reload, ReplacesTreeAndAliases) {
    struct {
        LoadStep m_load;
        char const* m_tree;
        int m_cleanups = 1;
        bool m_fails = true;
    } const rows[] = {
        {[](auto& d) { Load(kOctets, d, "<a>x</a>"); }, "a'x'", 1, false},
        {[](auto& d) { Load(kNarrow, d, "<a>x</a>"); }, "a'x'", 1, false},
        {[](auto& d) { Load(kWide, d, "<a>x</a>"); }, "a'x'", 1, false},
        {[](auto& d) { Load(kFile, d, "<a>x</a>"); }, "a'x'", 1, false},
        {[](auto& d) { d.LoadXml(""); }, "nothing"},
        {[](auto& d) { d.LoadXml(u""); }, "nothing"},
        {[](auto& d) { d.LoadXmlStream(nullptr, 0); }, "nothing"},
        {[](auto& d) { d.Load(u"/no/such/file"); }, "nothing"},
        {[](auto& d) { d.LoadXml(" "); }, "nothing", 2},
        {[](auto& d) { d.LoadXml("<a>x<b></a>"); }, "a'x'(b)"},
        {[](auto& d) { d.LoadXml("<a><b/></a><c/>"); }, "a(b)"},
    };
    for (auto const& row : rows) {
        CountingDocument document;
        document.LoadXml("<old xmlns:p='u' xmlns='v'><child/></old>");
        EXPECT_EQ(Thrown([&] { row.m_load(document); }) != "nothing", row.m_fails);
        EXPECT_EQ(Dump(document.GetDocumentElement()), row.m_tree);
        EXPECT_EQ(document.LookupNamespaceFromAlias(u"p") + document.LookupNamespaceFromAlias(u""), u"");
        EXPECT_EQ(document.m_cleanups, 1 + row.m_cleanups);
        document.LoadXml("<new>y</new>");
        EXPECT_EQ(Dump(document.GetDocumentElement()), "new'y'");
    }
}
