#include "BxXmlLib5/values/CBinaryData.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include "BxXmlLib5/core/FormatString.h"
#include "document/Inflate.h"
#include "support/Expect.h"
#include "support/Octets.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace BxXmlLib5;
using BxTest::AsText;
using namespace std::string_literals;
using namespace std::string_view_literals;

CBinaryData Of(std::string_view octets) {
    return CBinaryData(BxTest::AsOctets(octets));
}

CBinaryData FromHex(std::u16string_view text) {
    CBinaryData data = Of("replaced");
    data.SetAsHexString(text);
    return data;
}

CBinaryData FromBase64(std::u16string_view text) {
    CBinaryData data;
    data.SetAsBase64(text);
    return data;
}

CBinaryData const kNoOctets = Of("");

std::string Random(std::size_t length) {
    std::minstd_rand random;
    std::string octets(length, '\0');
    std::ranges::generate(octets, [&random] { return static_cast<char>(random() >> 8); });
    return octets;
}

struct Access : CBinaryData {
    using CBinaryData::operator=;
    using CBinaryData::GetAsHexString;
    using CBinaryData::GetExclusiveDataHolder;
};

TEST(CBinaryData, TellsNoHolderFromNoOctets) {
    CBinaryData cleared = Of("a"), moved = Of("a"), appended;
    cleared.Clear();
    CBinaryData const target = std::move(moved);
    appended.Append(CBinaryData());
    for (CBinaryData const& data : {CBinaryData(), cleared, moved}) {
        EXPECT_TRUE(data == CBinaryData() && CBinaryData() == data && !(data == kNoOctets));
        EXPECT_EQ(data.GetString() + data.GetAsString(be_Int), u"");
    }
    for (CBinaryData const& data : {CBinaryData(u""), CBinaryData(static_cast<char16_t*>(nullptr)), appended,
                                    CBinaryData(nullptr, 5, false), CBinaryData(nullptr, 5, true),
                                    CBinaryData(std::span<unsigned char const>())})
        EXPECT_TRUE(data == kNoOctets && !(data == CBinaryData()) && !(CBinaryData() == data));
    EXPECT_TRUE(Of("ab") == Of("ab") && Of("ab") != Of("aB") && Of("ab") != Of("abc"));
}

TEST(CBinaryData, SharesUntilOneChanges) {
    std::pair<std::function<void(Access&)>, std::string> const rows[] = {
        {[](auto& data) { data.Append(static_cast<unsigned char>('!')); }, "octets!"},
        {[](auto& data) { data.Append(data.GetData() + 1, 2); }, "octetsct"},
        {[](auto& data) { data.Append(data); }, "octetsoctets"},
        {[](auto& data) { data[0] = 'O'; }, "Octets"},
        {[](auto& data) { data.SetBuffer(data.GetData() + 2, 3); }, "tet"},
        {[](auto& data) { delete[] data.ReleaseData(); }, ""},
        {[](auto& data) { data.CompressData(cmp_None); }, "octets"},
        {[](auto& data) { data.GetExclusiveDataHolder(); }, "octets"}};
    for (auto const& [change, result] : rows) {
        CBinaryData const original = Of("octets");
        Access copy;
        copy = original;
        EXPECT_EQ(copy.GetData(), original.GetData());
        change(copy);
        EXPECT_EQ(AsText(copy), result);
        EXPECT_NE(copy.GetData(), original.GetData()) << result;
        EXPECT_EQ(AsText(original), "octets") << result;
    }
}

TEST(CBinaryData, ChangesInPlaceWhatItAloneHolds) {
    CBinaryData data = Of("octets");
    unsigned char const* const place = data.GetData();
    data[5] = '?';
    for (int const none : {0, 3, -1})
        EXPECT_EQ(data.CompressData(static_cast<CompressionType>(none)).GetData(), place);
    CBinaryData const copy = data;
    EXPECT_EQ(copy[5], '?');
    for (auto const& row : {std::pair{6ull, "6"}, {0x80000000, "-2147483648"}, {0x1FFFFFFFF, "-1"}})
        EXPECT_BX_THROW(data[row.first], CBxException,
                        std::string("Index Out of range [") + row.second + "]");
    EXPECT_EQ(data.GetData(), place);
}

TEST(CBinaryData, LetsThreadsShareAHolder) {
    CBinaryData const original = Of("octets");
    auto const work = [&original] {
        for (int i = 0; i < 20000; ++i) CBinaryData(original).Append(u"");
    };
    { std::jthread const one(work), other(work); }
    EXPECT_EQ(AsText(original), "octets");
}

TEST(CBinaryData, GrowsByDoubling) {
    CBinaryData data = Of("0");
    std::string expected = "0";
    std::vector<int> moves;
    for (int i = 1; i < 20000; ++i) {
        unsigned char const* const place = data.GetData();
        data.Append(static_cast<unsigned char>(i));
        expected += static_cast<char>(i);
        if (data.GetData() != place) moves.push_back(i);
    }
    EXPECT_EQ(moves, (std::vector{4096, 8194, 16390}));
    data.Append(data.GetData() + 7, 19000);
    EXPECT_EQ(AsText(data), expected + expected.substr(7, 19000));
    CBinaryData copied = Of(expected);
    unsigned char const* const place = copied.GetData();
    copied.Append(copied);
    EXPECT_EQ(copied.GetData(), place);
}

TEST(CBinaryData, TakesAndGivesBuffers) {
    auto* const buffer = new unsigned char[3]{'a', 'b', 'c'};
    CBinaryData data(buffer, 3, true);
    EXPECT_EQ(data.GetData(), buffer);
    EXPECT_EQ(Access::GetAsHexString(nullptr, 5) + Access::GetAsHexString(buffer, 1), u"61");
    data.Append(static_cast<unsigned char>('d'));
    EXPECT_EQ(AsText(data), "abcd");
    unsigned char* const given = data.GetData();
    EXPECT_EQ(std::unique_ptr<unsigned char[]>(data.ReleaseData()).get(), given);
    EXPECT_EQ(CBinaryData().ReleaseData(), nullptr);
    data.Append(u"x");
    EXPECT_EQ(data, CBinaryData(u"x"));
}

TEST(CBinaryData, HoldsTheUnitsOfText) {
    CBinaryData data(u"\x0141z");
    data.Append(u"\xFFFF");
    data.Append(static_cast<unsigned char>('!'));
    EXPECT_EQ(AsText(data), "\x41\x01z\0\xFF\xFF!"s);
    EXPECT_EQ(data.GetString(), u"\x0141z\xFFFF");
}

TEST(Hex, GoesBothWays) {
    for (int octet = 0; octet <= 0xFF; ++octet) {
        CBinaryData const data = Of(std::string{static_cast<char>(octet), 'o'});
        wstring const upper = FormatString(u"%02X6F", octet);
        EXPECT_EQ(data.GetAsHexString(), upper);
        EXPECT_EQ(FromHex(upper), data);
        EXPECT_EQ(FromHex(FormatString(u"%02x6f", octet)), data);
    }
}

TEST(Hex, RefusesAllButPairsOfDigits) {
    std::pair<std::u16string_view, std::string> const rows[] = {{u"0G", "G"},
                                                                {u"gH", "g"},
                                                                {u"0", "?"},
                                                                {u"G", "G"},
                                                                {u"0 00", " "},
                                                                {u"0\x130", "İ"},
                                                                {u"\xD800\xDC00", "?"},
                                                                {u"0\xDFFF", "?"},
                                                                {u"0\x1F", "\x1F"},
                                                                {u"0\x7F", "\x7F"},
                                                                {u"\2370", "\u009F"},
                                                                {u"0\uE000", "\uE000"}};
    CBinaryData data = Of("stays");
    for (auto const& row : rows)
        EXPECT_BX_THROW(data.SetAsHexString(row.first), CBxException,
                        "Invalid char in hex string [" + row.second + "]");
    EXPECT_EQ(AsText(data), "stays");
}

void ExpectBase64(CBinaryData const& data, wstring const& text) {
    EXPECT_EQ(data.GetAsBase64(), text);
    EXPECT_EQ(FromBase64(text), data);
}

TEST(Base64, GoesBothWays) {
    ExpectBase64(FromHex(u"00108310518720928B30D38F41149351559761969B71D79F"
                         u"8218A39259A7A29AABB2DBAFC31CB3D35DB7E39EBBF3DFBF"),
                 u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
    std::string_view const word = "foobar";  // of RFC 4648, 10
    char16_t const* const texts[] = {u"", u"Zg==", u"Zm8=", u"Zm9v", u"Zm9vYg==", u"Zm9vYmE=", u"Zm9vYmFy"};
    for (std::size_t i = 0; i <= word.size(); ++i) ExpectBase64(Of(word.substr(0, i)), texts[i]);
}

TEST(Base64, IsReadLeniently) {
    std::pair<std::string_view, std::vector<std::u16string_view>> const rows[] = {
        {"f", {u"Zg", u"=Z===g", u"Zh", u"\x00DA\x01E7\xFFBD\x00BD"}},
        {"foobar", {u"Zm9v=YmFy", u"Z=m9v=YmF=y="}},
        {"f\6f\366\366&\27", {u"Zg==Zm9vYmFy"}},
        {"", {u"Z", u" Zm9v", u"Zm9v ", u"Zm 9v", u"Zm9v\0"sv, u"Zm9v\x0120"}},
    };
    for (auto const& [octets, texts] : rows)
        for (auto const text : texts) EXPECT_EQ(FromBase64(text), Of(octets)) << ToUtf8(text);
}

TEST(ByteEncoding, RendersValues) {
    // By the indices of ITU-T X.891, clause 10
    std::tuple<int, wstring, wstring> const rows[] = {
        {0, u"0141FFFF", u"\x4101\xFFFF"},
        {1, u"0aff", u"0AFF"},
        {2, u"FBF0", u"+/A="},
        {3, u"0001FFFF7FFF8000", u"1 -1 32767 -32768"},
        {4, u"8000000000000102", u"-2147483648 258"},
        {5, u"01020304050607088000000000000000", u"72623859790382856 -9223372036854775808"},
        {7, u"3DCCCCCD40490FDBFFC00000", u"0.1 3.141593 NaN"},
        {8, u"400921FB54442D18FFF0000000000000", u"3.141592653589793 -INF"},
        {9, wstring(64, u'A'), wstring(32, u'A') + u' ' + wstring(32, u'A')},
        {6, u"20B0", u"false false false false true false true true false false"},
        {6, u"7A80", u"true false true false true"},
        {6, u"31", u"false"},
        {6, u"4F", u""}};
    for (auto const& [encoding, octets, text] : rows)
        EXPECT_EQ(FromHex(octets).GetAsString(static_cast<ByteEncoding>(encoding)), text);
}

TEST(ByteEncoding, RefusesPartsOfValues) {
    struct {
        ByteEncoding encoding;
        std::string octets, place;
    } const rows[] = {{be_Short, "xyA", "[A] for SHORT"},
                      {be_Int, "wxyzABC", "[A] for INT"},
                      {be_Long, "01234567ABCDEFG", "[A] for LONG"},
                      {be_Float, "wxyzABC", "[A] for FLOAT"},
                      {be_Double, "01234567ABCDEFG", "[A] for DOUBLE"},
                      {be_UUID, "0123456789abcdefA", "[A] for UUID"},
                      // More unused bits than the last octet has
                      {be_Boolean, "Q", "[Q] for BOOLEAN"},
                      {be_Boolean, "\x80\xFF", "[\u0080] for BOOLEAN"},
                      {be_Short, std::string(3, 0), "[?] for SHORT"}};
    for (auto const& row : rows)
        EXPECT_BX_THROW(Of(row.octets).GetAsString(row.encoding), CBxException,
                        "Invalid value " + row.place + " byte encoding.");
    EXPECT_BX_THROW(Of("ab").GetAsString(static_cast<ByteEncoding>(-1)), CBxException,
                    "Unknown byte encoding.");
}

TEST(Compression, GivesACompleteStream) {
    std::string const octets = Random(20000) + Random(20000);  // twice the same, at a distance for 15 bits
    // The starts of RFC 1952 and RFC 1950, at the fastest level.
    for (auto const& [number, start] : {std::pair{1, "\x1F\x8B\x08\0\0\0\0\0\x04"sv}, {2, "\x78\x01"sv}}) {
        auto const type = static_cast<CompressionType>(number);
        CBinaryData const original = Of(octets);
        CBinaryData data = original;
        std::string const result = AsText(data.CompressData(type));
        EXPECT_EQ(AsText(original), octets);
        EXPECT_LT(result.size(), 21000U);
        EXPECT_TRUE(result.starts_with(start));
        EXPECT_TRUE(std::ranges::equal(Inflate(data.GetOctets()).value(), original.GetOctets()));
        data.Append(original);
        EXPECT_EQ(AsText(data), result + octets);
    }
    EXPECT_EQ(CBinaryData().CompressData(cmp_GZip), CBinaryData());
}

TEST(Compression, RefusesWhatDoesNotShrink) {
    struct {
        CompressionType type;
        std::size_t length;
        std::string code;
    } const rows[] = {{cmp_GZip, 0, "-5"}, {cmp_GZip, 3, "-5"}, {cmp_ZLib, 3, "0"}, {cmp_GZip, 1000, "0"}};
    for (auto const& row : rows) {
        std::string const octets = Random(row.length);
        CBinaryData data = Of(octets);
        EXPECT_BX_THROW(data.CompressData(row.type), CBxException,
                        "Failed to compress data. [Error Code: " + row.code + "]");
        EXPECT_EQ(AsText(data), octets);
    }
}

TEST(CBinaryData, WritesFiles) {
    BxTest::TemporaryFolder const files;
    std::string const folder = files.m_path;
    wstring const path = FromUtf8(folder) + u"/\u00E9\U0001F600";
    auto const expect = [&path](std::string_view octets, XmlEncoding encoding, std::string_view content) {
        Of(octets).ToFile(path.c_str(), encoding);
        EXPECT_EQ(BxTest::Content(ToUtf8(path)), content);
    };
    expect("first, and longer", enc_UTF8, "first, and longer");
    expect("octets", enc_UTF16, "\xFF\xFEoctets");
    expect("", enc_UTF16NoDeclaration, "\xFF\xFE");
    for (auto const& row : {std::pair{folder, "15"}, {folder + "/missing/file", "02"}, {"/dev/full"s, "1C"}})
        EXPECT_BX_THROW(
            Of("octets").ToFile(FromUtf8(row.first).c_str(), enc_UTF16), CBxException,
            "Failed to write data to the file [" + row.first + "] error [0x000000" + row.second + "]");
}

}  // namespace
