// Octets that were made to do harm: a tree or an exception, in no more memory than they are worth.
#include <gmock/gmock.h>

#include <random>

#include "BxXmlLib5/document/CXmlAttribute.h"
#include "fastinfoset/Reading.h"

using namespace BxTest;

namespace {

/// All that the format has, with lengths and indices in several forms.
std::string const kDocument = OctetsOf(
    "E0 00 00 01 7F 00 00 'i' 00 'd' 1F FF 00 'u' 00 00 'b' 00 00 'c' 00 00 'd' 00 00 'e' 00 00 'f' 00 00 "
    "'g' 00 00 'h' 00 00 'i' 00 08 00 'ninechars' 00 11 00 'y' 00 03 80 81 40 00 00 00 81 C3 00 'n' 00 's' "
    "00 'p' F0 D1 00 'n' 00 's' 00 'p' 80 F0 04 'utf-8' 00 02 '1.0' 78 CD 01 'u1' CF 00 'q' 01 'u2' F0 3F 81 "
    "81 03 'root' 7B 00 'p' 00 'u' 00 'k' 45 'value1' 00 80 78 00 'm' FF 01 20 02 1A BC DF 01 30 23 00 01 FF "
    "FF 01 11 20 AC F0 92 08 'indentation' 7D 81 00 'c' 01 40 'v' FF A0 E1 00 't' 00 'c' A0 3C 00 'd' E2 02 "
    "'...' 8C 14 2A F0 C8 00 'e' 86 01 D8 34 DD 1E 02 88 01 1A BC FF");

std::string const kTooDeep = "Elements are nested more than 1024 levels deep, which is the limit";
std::string const kTooMuch = "! The indices repeat more text than a document of this size may have.";

}  // namespace

TEST(HostileInput, Prefixes) {
    ASSERT_EQ(Read(kDocument),
              "{u1}root@{u}k=value1@{u}k=value1@m=@m=1-+.E@m=1 -1@m=€'indentationindentationindentation𝄞'"
              "({u1}c@m=v d'true false' d'1-+.')");
    for (std::size_t size = 5; size < kDocument.size(); ++size)
        EXPECT_EQ(Read(kDocument.substr(0, size)), "! Unexpected End of File.") << size;
}

TEST(HostileInput, EveryOctetReplaced) {
    for (std::size_t at = 0; at < kDocument.size(); ++at) {
        std::string document = kDocument;
        for (int octet = 0; octet < 256; ++octet) {
            document[at] = static_cast<char>(octet);
            EXPECT_NE(Read(document), "") << at << ' ' << octet;
        }
    }
}

TEST(HostileInput, RandomOctets) {
    std::mt19937 random(42);
    for (int i = 0; i < 20000; ++i) {
        std::string document = OctetsOf(kHeader + "7C 00 'a' 78 00 'k' ");
        for (std::size_t size = 1 + random() % 200; size > 0; --size) document += static_cast<char>(random());
        EXPECT_NE(Read(document), "");
    }
}

TEST(HostileInput, Depth) {
    std::string const start = OctetsOf(kHeader + "3C 00 'a' ");
    EXPECT_EQ(Read(start + std::string(1023, '\0') + std::string(512, '\xFF')),
              Repeat("a(", 1023) + "a" + Repeat(")", 1023));
    EXPECT_EQ(Read(start + std::string(1024, '\0')), kTooDeep);
}

TEST(HostileInput, WhatIndicesRepeat) {
    // 4,096 units behind a length of five octets
    std::string const onSecondBit = "60 00 00 0E BF '" + std::string(4096, 'x') + "' ";
    std::string const onFifthBit = "4C 00 00 0E F7 '" + std::string(4096, 'x') + "' ";
    std::string const onSeventhBit = "93 00 00 0E FD '" + std::string(4096, 'x') + "' ";
    struct {
        std::string m_once, m_often;
        int m_most = 2048;
    } const rows[] = {
        {"3C 00 'a' " + onSeventhBit, "00 A0 F0"},
        {"3C 00 'a' " + onSeventhBit, "A0", 682},  // joined text counts three times, the first chunk twice
        {"3C " + onSecondBit, "00 F0", 2113},      // 128 units of a name count for nothing
        {"7C 00 'a' 78 00 'k' " + onFifthBit, "78 00 'k' 80"},
        {"7C 00 'a' 78 60 00 00 03 3F '" + std::string(128 + 1024, 'x') + "' FF", "00 FF", 8191},
        {"3C 00 'a' 3C " + onSecondBit + "F0", "3C 81 F0", 2113},
    };
    for (auto const& row : rows) {
        std::string const most = OctetsOf(kHeader + row.m_once) + Repeat(OctetsOf(row.m_often), row.m_most);
        EXPECT_EQ(Read(most), "! Unexpected End of File.") << row.m_often;
        EXPECT_EQ(Read(most + OctetsOf(row.m_often)), kTooMuch) << row.m_often;
    }
    // A long document may repeat more.
    std::string const longer =
        OctetsOf(kHeader + "3C 00 'a' 93 00 01 85 9D '" + std::string(100000, 'x') + "'");
    EXPECT_EQ(Read(longer + std::string(32, '\xA0')), "! Unexpected End of File.");
    EXPECT_EQ(Read(longer + std::string(33, '\xA0')), kTooMuch);
}

TEST(HostileInput, NamesMayRepeat) {
    std::string const uri = "40 C7 '" + std::string(264, 'u') + "' ", long60 = LiteralOf(wstring(60, u'k'));
    struct {
        std::string m_once, m_often;
    } const rows[] = {
        {"3D " + uri + "00 'a' 3F 00 'p' 81 " + long60 + "F0 ", "01 F0"},                // an element
        {"3D " + uri + "00 'a' 7C 80 79 81 " + long60 + "FF FF ", "40 00 FF FF"},        // an attribute
        {"3D " + uri + "00 'a' ", "3D 81 80 F0"},                                        // parts of a name
        {"3C 00 'a' 38 CF 00 'p' " + uri + "F0 3C 00 'b' F0 ", "38 CF 81 81 F0 01 F0"},  // a declaration
    };
    for (auto const& row : rows) {
        EXPECT_EQ(Read(OctetsOf(kHeader + row.m_once) + Repeat(OctetsOf(row.m_often), 100'000)),
                  "! Unexpected End of File.")
            << row.m_often;
    }
}

TEST(HostileInput, WhatIndicesRepeatIsStoredOnce) {
    CXmlDocument document;
    Load(kOctets, document,
         OctetsOf(kHeader + "7C 00 'a' 78 00 'k' 40 'v' 00 80 F0 91 'xy' 3C 00 'b' A0 FF"));
    CXmlElement const* const root = document.GetDocumentElement();
    EXPECT_EQ(root->GetTextView().data(), root->GetFirstElement()->GetTextView().data());
    EXPECT_EQ(root->GetAttributes()[0]->GetValueView().data(),
              root->GetAttributes()[1]->GetValueView().data());
}

TEST(HostileInput, TablesEndAt2To20) {
    std::string const chunks = OctetsOf(kHeader + "3C 00 'a' ") + Repeat("\x80x", 5) +
                               Repeat("\x90v", 1048575) + OctetsOf("90 'w' 90 'x' 3C 00 'b' B8 0B FB EF F0");
    std::string const tree = Read(chunks + OctetsOf("F0"));
    EXPECT_THAT(tree, testing::EndsWith("vwx'(b'w')"));
    EXPECT_EQ(tree.size(), 5 + 1048577 + std::string("a''(b'w')").size());
    EXPECT_EQ(Read(chunks + OctetsOf("B8 0B FB F0")), "! Invalid index beyond the end of its table.");
    // A name gets no index if one of its parts has none.
    std::string const root = OctetsOf(kHeader + "38 ") + Repeat(OctetsOf("CE 00 'p'"), 1048574);
    EXPECT_EQ(Read(root + OctetsOf("CE 00 'p' F0 3F 00 'q' 00 'u' 00 'a' 00 FF")),
              "! Invalid index beyond the end of its table.");
    EXPECT_EQ(Read(root + OctetsOf("F0 3F 00 'q' 00 'u' 00 'a' 00 FF")), "{u}a({u}a)");
}

TEST(HostileInput, Namespaces) {
    std::string const name(4096, 'u');
    for (std::string const start : {"3D", "38 CD"}) {
        EXPECT_EQ(Read(OctetsOf(kHeader + start + " 60 00 00 0E BF '" + name + "'")),
                  "! Unexpected End of File.");
        EXPECT_EQ(Read(OctetsOf(kHeader + start + " 60 00 00 0E C0 '" + name + "u' ")),
                  "A namespace has more than 4096 characters, which is the limit");
    }
}
