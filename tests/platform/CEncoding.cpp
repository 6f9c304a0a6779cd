#include "platform/CEncoding.h"

#include <random>

#include "support/Expect.h"

using namespace BxTest;
using BxXmlLib5::CEncoding;

namespace {

/// The UTF-8 form, with ! for octets that are no text, from pieces of random size into rooms of random size.
std::string Convert(std::string const& name, std::string const& octets, std::mt19937& random) {
    CEncoding encoding(name);
    EXPECT_TRUE(encoding.IsKnown()) << name;
    std::string text;
    bool isAtEnd = false;
    for (std::size_t start = 0, end = 0; !isAtEnd;) {
        end = std::min(octets.size(), end + random() % 5);
        isAtEnd = end == octets.size() && start == end;
        std::vector<unsigned char> const piece(octets.begin() + static_cast<std::ptrdiff_t>(start),
                                               octets.begin() + static_cast<std::ptrdiff_t>(end));
        if (piece.empty() && !isAtEnd) continue;
        std::vector<unsigned char> room(16 + random() % 4);
        auto const [read, written, isMalformed] = encoding.Convert(piece, room);
        text.append(room.begin(), room.begin() + static_cast<std::ptrdiff_t>(written));
        start += read;
        if (isMalformed) return text + "!";
        if (end == octets.size() && read == 0 && !isAtEnd) return text + "...";
    }
    return text;
}

/// Some systems leave most encodings to a package of their own.
bool HasEncodings() {
    return CEncoding("Shift_JIS").IsKnown();
}

}  // namespace

TEST(CEncoding, Converts) {
    if (!HasEncodings()) GTEST_SKIP() << "the C library knows few encodings here";
    std::mt19937 random(3);
    for (auto const& [name, octets, text] : std::vector<std::array<std::string, 3>>{
             {"ASCII", "abc", "abc"},
             {"ascii", "ab\x80", "ab!"},
             {"windows-1252", "\x80\xE9", "€é"},
             {"KOI8-R", "\xF0\xD2\xC9", "При"},
             {"ISO-8859-15", "\xA4", "€"},
             {"Shift_JIS", "\x93\xFA\x96{a", "日本a"},
             {"Shift_JIS", "x\x93\xFA\x96", "x日..."},
             {"EUC-JP", "\xC6\xFC\xCB\xDC\xFF", "日本!"},
             {"GBK", "\xC4\xE3\xBA\xC3", "你好"},
             {"Big5", "\xA7\x41\xA6n", "你好"},
             {"ISO-2022-JP", "a\x1B$BF|K\\\x1B(Bb", "a日本b"},
             {"windows-1258", "a\xEC", "á"},
             {"windows-1258", "a", "a"},
             {"UTF-32LE", std::string("\x1E\xD1\x01\0a\0\0\0", 8), "\U0001D11Ea"}}) {
        for (int round = 0; round < 50; ++round) ASSERT_EQ(Convert(name, octets, random), text) << name;
    }
}

TEST(CEncoding, TellsWhatOctetsStandFor) {
    if (!HasEncodings()) GTEST_SKIP() << "the C library knows few encodings here";
    auto const octets = [](char const* name) { return CEncoding(name).Octets(); };
    auto const western = octets("CP1252").value();
    for (auto const& [octet, codePoint] : std::vector<std::pair<std::size_t, int>>{
             {'\n', '\n'}, {'A', 'A'}, {0x7F, 0x7F}, {0x80, 0x20AC}, {0x81, -1}, {0xFF, 0xFF}})
        EXPECT_EQ(western[octet], codePoint) << octet;
    EXPECT_EQ(octets("KOI8-R").value()[0xC1], u'а');
    EXPECT_EQ(octets("ASCII").value()[0x80], -1);
    for (char const* const name : {"Shift_JIS", "GBK", "UTF-8", "UTF-16", "UTF-7", "ISO-2022-JP", "IBM037",
                                   "windows-1258", "ISO646-GB", "WCHAR_T"})
        EXPECT_FALSE(CEncoding(name).Octets()) << name;
}

TEST(CEncoding, KnowsNoOddNames) {
    for (std::string const& name :
         {std::string(), std::string("nobody-knows"), std::string("UTF-8//TRANSLIT"), std::string("UTF-8//"),
          std::string("../../tmp/x"), std::string("latin1/"), std::string("latin1\0x", 8),
          std::string(" latin1"), std::string("8859_1"), std::string("ISO_8859-1:1987"), std::string(65, 'a'),
          std::string(100000, 'a')})
        EXPECT_FALSE(CEncoding(name).IsKnown()) << name.substr(0, 100);
}
