#include "BxXmlLib5/values/CBinaryData.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <thread>
#include <vector>

#include "BxXmlLib5/binding/FormatString.h"
#include "document/Inflate.h"
#include "support/Expect.h"

namespace {

using namespace BxXmlLib5;
using namespace std::string_literals;
using namespace std::string_view_literals;

CBinaryData Of(std::string_view octets) {
    return {const_cast<unsigned char*>(reinterpret_cast<unsigned char const*>(octets.data())), octets.size(),
            false};
}

std::string TextOf(std::span<unsigned char const> octets) {
    return {octets.begin(), octets.end()};
}

std::string TextOf(CBinaryData const& data) {
    return TextOf(data.GetOctets());
}

CBinaryData FromHex(std::u16string_view text) {
    CBinaryData data;
    data.SetAsHexString(text);
    return data;
}

CBinaryData FromBase64(std::u16string_view text) {
    CBinaryData data;
    data.SetAsBase64(text);
    return data;
}

wstring AllTexts(CBinaryData const& data) {
    return data.GetString() + data.GetAsHexString() + data.GetAsBase64() + data.GetAsString(be_Double);
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
    CBinaryData cleared = Of("a");
    cleared.Clear();
    CBinaryData moved = Of("a");
    CBinaryData const target = std::move(moved);
    for (CBinaryData const& data : {CBinaryData(), cleared, moved}) {
        EXPECT_EQ(data, CBinaryData());
        EXPECT_NE(data, kNoOctets);
        EXPECT_EQ(data.GetData(), nullptr);
        EXPECT_EQ(AllTexts(data), u"");
    }
    CBinaryData appended;
    appended.Append(CBinaryData());
    for (CBinaryData const& data :
         {Of(""), CBinaryData(u""), CBinaryData(static_cast<char16_t*>(nullptr)), appended,
          CBinaryData(nullptr, 5, false), CBinaryData(nullptr, 5, true), FromHex(u""), FromBase64(u"")}) {
        EXPECT_EQ(data, kNoOctets);
        EXPECT_NE(CBinaryData(), data);
        EXPECT_EQ(AllTexts(data), u"");
    }
    EXPECT_EQ(Of("ab"), Of("ab"));
    EXPECT_NE(Of("ab"), Of("aB"));
    EXPECT_NE(Of("ab"), Of("abc"));
}

TEST(CBinaryData, SharesUntilOneChanges) {
    struct {
        char const* m_name;
        std::function<void(CBinaryData&)> m_change;
        std::string m_result;
    } const rows[] = {
        {"Append of an octet", [](auto& data) { data.Append(static_cast<unsigned char>('!')); }, "octets!"},
        {"Append of octets", [](auto& data) { data.Append(data.GetData() + 1, 2); }, "octetsct"},
        {"Append of itself", [](auto& data) { data.Append(data); }, "octetsoctets"},
        {"operator[]", [](auto& data) { data[0] = 'O'; }, "Octets"},
        {"SetBuffer", [](auto& data) { data.SetBuffer(data.GetData() + 2, 3); }, "tet"},
        {"SetAsHexString", [](auto& data) { data.SetAsHexString(u"41"); }, "A"},
        {"SetAsBase64", [](auto& data) { data.SetAsBase64(u"QQ"); }, "A"},
        {"ReleaseData", [](auto& data) { delete[] data.ReleaseData(); }, ""},
        {"Clear", [](auto& data) { data.Clear(); }, ""},
        {"CompressData", [](auto& data) { data.CompressData(cmp_None); }, "octets"},
        {"GetExclusiveDataHolder", [](auto& data) { static_cast<Access&>(data).GetExclusiveDataHolder(); },
         "octets"}};
    for (auto const& row : rows) {
        SCOPED_TRACE(row.m_name);
        CBinaryData const original = Of("octets");
        Access copy;
        copy = original;
        EXPECT_EQ(copy.GetData(), original.GetData());
        row.m_change(copy);
        EXPECT_EQ(TextOf(copy), row.m_result);
        EXPECT_NE(copy.GetData(), original.GetData());
        EXPECT_EQ(TextOf(original), "octets");
    }
}

TEST(CBinaryData, ChangesInPlaceWhatItAloneHolds) {
    CBinaryData data = Of("octets");
    unsigned char const* const place = data.GetData();
    { CBinaryData const copy = data; }
    data[5] = '?';
    std::as_const(data)[0];
    data.Append(u"");
    EXPECT_EQ(data.CompressData(cmp_None).GetData(), place);
    CBinaryData& same = data;
    data = same;
    data = std::move(same);
    EXPECT_EQ(TextOf(data), "octet?");
    EXPECT_EQ(data.GetData(), place);
    CBinaryData const copy = data;
    EXPECT_EQ(copy[5], '?');
    EXPECT_EQ(copy.GetData(), place);
}

TEST(CBinaryData, LetsThreadsShareAHolder) {
    CBinaryData const original = Of("octets");
    auto const work = [data = original] {
        for (int i = 0; i < 20000; ++i) {
            CBinaryData copy = data;
            if (i % 100 == 0) copy.Append(copy);
        }
    };
    std::thread one(work);
    std::thread other(work);
    one.join();
    other.join();
    CBinaryData alone = original;
    alone.Append(u"");
    EXPECT_EQ(TextOf(alone) + TextOf(original), "octetsoctets");
}

TEST(CBinaryData, GrowsByDoubling) {
    CBinaryData data = Of("0");
    std::string expected = "0";
    int moves = 0;
    for (int i = 1; i < 20000; ++i) {
        unsigned char const* const place = data.GetData();
        data.Append(static_cast<unsigned char>(i));
        expected += static_cast<char>(i);
        if (data.GetData() != place) {
            ++moves;
            EXPECT_GE(i, 4096);
        }
    }
    EXPECT_EQ(TextOf(data), expected);
    EXPECT_EQ(moves, 3);  // beyond 4096, 8194 and 16390

    for (int i = 0; i < 2; ++i) data.Append(data), expected += expected;
    data.Append(data.GetData() + 7, 50000);
    EXPECT_EQ(TextOf(data), expected + expected.substr(7, 50000));

    CBinaryData copied = Of(expected);
    unsigned char const* const place = copied.GetData();
    copied.Append(copied);
    EXPECT_EQ(copied.GetData(), place);
    EXPECT_EQ(TextOf(copied), expected + expected);
}

TEST(CBinaryData, TakesAndGivesBuffers) {
    auto* const buffer = new unsigned char[3]{'a', 'b', 'c'};
    CBinaryData data(buffer, 3, true);
    EXPECT_EQ(data.GetData(), buffer);
    CBinaryData const moved = std::move(data);
    data = moved;
    data.Append(static_cast<unsigned char>('d'));
    EXPECT_EQ(TextOf(data), "abcd");

    unsigned char* const given = data.GetData();
    EXPECT_EQ(std::unique_ptr<unsigned char[]>(data.ReleaseData()).get(), given);
    EXPECT_EQ(data.GetData(), nullptr);
    EXPECT_EQ(data, kNoOctets);
    EXPECT_EQ(data.ReleaseData(), nullptr);
    EXPECT_EQ(CBinaryData().ReleaseData(), nullptr);
    EXPECT_EQ(Access::GetAsHexString(nullptr, 5) + Access::GetAsHexString(buffer, 1), u"61");
    data.Append(u"x");
    EXPECT_EQ(data, CBinaryData(u"x"));
}

TEST(CBinaryData, HoldsTheUnitsOfText) {
    char16_t const units[] = u"\x0141z";
    CBinaryData data(units);
    EXPECT_EQ(TextOf(data), std::string(reinterpret_cast<char const*>(units), 4));
    EXPECT_EQ(data.GetString(), units);
    data.Append(static_cast<char16_t const*>(nullptr));
    data.Append(u"\xFFFF");
    data.Append(static_cast<unsigned char>('!'));
    EXPECT_EQ(data.GetString(), u"\x0141z\xFFFF");
    EXPECT_EQ(data.GetAsString(be_Text), data.GetString());
    data.SetBuffer(u"y");
    EXPECT_EQ(data.GetString(), u"y");
}

TEST(CBinaryData, RefusesAnIndexBeyondTheEnd) {
    CBinaryData data = Of("abc");
    CBinaryData const copy = data;
    EXPECT_BX_THROW(data[3], CBxException, "Index Out of range [3]");
    EXPECT_BX_THROW(copy[70000], CBxException, "Index Out of range [70000]");
    EXPECT_BX_THROW(CBinaryData()[0], CBxException, "Index Out of range [0]");
    EXPECT_EQ(data.GetData(), copy.GetData());
}

TEST(Hex, GoesBothWays) {
    for (int octet = 0; octet <= 0xFF; ++octet) {
        std::string const octets{static_cast<char>(octet), 'o'};
        wstring const upper = FormatString(u"%02X6F", octet);
        EXPECT_EQ(Of(octets).GetAsHexString(), upper);
        EXPECT_EQ(Of(octets).GetAsString(be_Hex), upper);
        EXPECT_EQ(FromHex(upper), Of(octets));
        EXPECT_EQ(FromHex(FormatString(u"%02x6f", octet)), Of(octets));
    }
}

TEST(Hex, RefusesAllButPairsOfDigits) {
    struct {
        std::u16string_view m_text;
        char const* m_character;
    } const rows[] = {{u"0G", "G"},  {u"G0", "G"},     {u"gH", "g"},           {u"0", "?"},
                      {u"G", "G"},   {u"000", "?"},    {u"000g", "g"},         {u"0 00", " "},
                      {u"00 ", " "}, {u"/0", "/"},     {u"0:", ":"},           {u"@0", "@"},
                      {u"`0", "`"},  {u"0\x130", "İ"}, {u"\xD800\xDC00", "?"}, {u"00\0G0"sv, "?"},
                      {u"0\n", "?"}, {u"0\x7F", "?"},  {u"\2370", "?"},        {u"0\u00E9", "é"}};
    for (auto const& row : rows) {
        CBinaryData data = Of("stays");
        EXPECT_BX_THROW(data.SetAsHexString(row.m_text), CBxException,
                        "Invalid char in hex string ["s + row.m_character + "]");
        EXPECT_EQ(TextOf(data), "stays");
    }
    CBinaryData data = Of("replaced");
    data.SetAsHexString(static_cast<char16_t const*>(nullptr));
    EXPECT_EQ(data, kNoOctets);
}

void ExpectBase64(CBinaryData const& data, wstring const& text) {
    EXPECT_EQ(data.GetAsBase64(), text);
    EXPECT_EQ(data.GetAsString(be_Base64), text);
    EXPECT_EQ(FromBase64(text), data);
}

TEST(Base64, GoesBothWays) {
    ExpectBase64(FromHex(u"FBF0"), u"+/A=");
    ExpectBase64(FromHex(u"FFFFFFFF"), u"/////w==");
    ExpectBase64(FromHex(u"00108310518720928B30D38F41149351559761969B71D79F"
                         u"8218A39259A7A29AABB2DBAFC31CB3D35DB7E39EBBF3DFBF"),
                 u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
    std::string_view const word = "foobar";  // of RFC 4648, 10
    char16_t const* const texts[] = {u"", u"Zg==", u"Zm8=", u"Zm9v", u"Zm9vYg==", u"Zm9vYmE=", u"Zm9vYmFy"};
    for (std::size_t i = 0; i <= word.size(); ++i) ExpectBase64(Of(word.substr(0, i)), texts[i]);
}

TEST(Base64, IsReadLeniently) {
    struct {
        std::string_view m_octets;
        std::vector<std::u16string_view> m_texts;
    } const rows[] = {
        {"f", {u"Zg", u"Zg=", u"=Z===g", u"Zh", u"\x00DA\x01E7\xFFBD\x00BD"}},
        {"fo", {u"Zm8", u"Zm8="}},
        {"foo", {u"Zm9v", u"Zm9vY"}},
        {"foobar", {u"Zm9v=YmFy", u"Z=m9v=YmF=y="}},
        {"fo\x19\x9B", {u"Zm8=Zm8="}},
        {"\0\0"sv, {u"AAA=", u"A=AA", u"=AAA"}},
        {"f\6f\366\366&\27", {u"Zg==Zm9vYmFy"}},
        {"", {u"Z", u"=", u" Zm9v", u"Zm9v ", u"Zm 9v", u"Zm9vY\n", u"Zm9v\0"sv, u"-_-_", u"Zm9v\x0120"}},
    };
    for (auto const& row : rows) {
        for (auto const text : row.m_texts) EXPECT_EQ(FromBase64(text), Of(row.m_octets)) << ToUtf8(text);
    }
    int accepted = 0;
    for (char16_t c = 0; c < 0x80; ++c) accepted += FromBase64(u"Zm9"s + c).GetLength() != 0;
    EXPECT_EQ(accepted, 64 + 1);
    CBinaryData data = Of("replaced");
    data.SetAsBase64(static_cast<char16_t const*>(nullptr));
    EXPECT_EQ(data, kNoOctets);
}

TEST(ByteEncoding, RendersValues) {
    struct {
        ByteEncoding m_encoding;
        char16_t const* m_octets;
        char16_t const* m_text;
    } const rows[] = {
        {be_Short, u"0001FFFF", u"1 -1"},
        {be_Short, u"7FFF80000100", u"32767 -32768 256"},
        {be_Int, u"7FFFFFFF8000000000000102", u"2147483647 -2147483648 258"},
        {be_Long, u"7FFFFFFFFFFFFFFF8000000000000000", u"9223372036854775807 -9223372036854775808"},
        {be_Long, u"0102030405060708", u"72623859790382856"},
        {be_Float, u"3F800000BF000000", u"1 -0.5"},
        {be_Float, u"3DCCCCCD40490FDB501502F9", u"0.1 3.141593 1e+10"},
        {be_Float, u"7F800000FF8000007FC00000FFC0000080000000", u"INF -INF NaN NaN -0"},
        {be_Double, u"3FB999999999999A400921FB54442D18", u"0.1 3.141592653589793"},
        {be_Double, u"3FD555555555555500000000000000014341C37937E08000",
         u"0.3333333333333333 4.940656458412465e-324 1e+16"},
        {be_Double, u"7FF0000000000000FFF00000000000007FF8000000000000", u"INF -INF NaN"},
        {be_UUID, u"00112233445566778899AABBCCDDEEFF", u"00112233445566778899AABBCCDDEEFF"},
        {be_UUID, u"00112233445566778899AABBCCDDEEFFFFEEDDCCBBAA99887766554433221100",
         u"00112233445566778899AABBCCDDEEFF FFEEDDCCBBAA99887766554433221100"},
        {be_Boolean, u"20B0", u"false false false false true false true true false false"},
        {be_Boolean, u"0A", u"true false true false"},
        {be_Boolean, u"31", u"false"},
        {be_Boolean, u"4F", u""},
        {be_Boolean, u"780180",
         u"true false false false false false false false false false false true true"}};
    for (auto const& row : rows) EXPECT_EQ(FromHex(row.m_octets).GetAsString(row.m_encoding), row.m_text);
}

TEST(ByteEncoding, RefusesPartsOfValues) {
    struct {
        ByteEncoding m_encoding;
        std::size_t m_size;
        char const* m_name;
    } const rows[] = {{be_Short, 2, "SHORT"}, {be_Int, 4, "INT"},       {be_Long, 8, "LONG"},
                      {be_Float, 4, "FLOAT"}, {be_Double, 8, "DOUBLE"}, {be_UUID, 16, "UUID"}};
    for (auto const& row : rows) {
        for (std::size_t length = 1; length < 2 * row.m_size; ++length) {
            if (length == row.m_size) continue;
            std::string octets(length, 'x');
            octets[length / row.m_size * row.m_size] = 'A';
            EXPECT_BX_THROW(Of(octets).GetAsString(row.m_encoding), CBxException,
                            "Invalid value [A] for "s + row.m_name + " byte encoding.");
        }
    }
    EXPECT_BX_THROW(Of("\x01").GetAsString(be_Short), CBxException,
                    "Invalid value [?] for SHORT byte encoding.");
    // more unused bits than the last octet has
    struct {
        std::string_view m_octets;
        char const* m_character;
    } const bits[] = {{"Q", "Q"}, {"\x80\xFF", "?"}, {"\xF0\xFF\xFF", "\u00F0"}};
    for (auto const& row : bits) {
        EXPECT_BX_THROW(Of(row.m_octets).GetAsString(be_Boolean), CBxException,
                        "Invalid value ["s + row.m_character + "] for BOOLEAN byte encoding.");
    }
    for (int const encoding : {-1, 10, 1000}) {
        EXPECT_BX_THROW(Of("ab").GetAsString(static_cast<ByteEncoding>(encoding)), CBxException,
                        "Unknown byte encoding.");
        EXPECT_EQ(kNoOctets.GetAsString(static_cast<ByteEncoding>(encoding)), u"");
    }
}

TEST(Compression, GivesACompleteStream) {
    std::string const octets = Random(20000) + Random(20000);  // twice the same, at a distance for 15 bits
    struct {
        CompressionType m_type;
        std::string_view m_start;  // of RFC 1952 and RFC 1950, at the fastest level
    } const rows[] = {{cmp_GZip, "\x1F\x8B\x08\0\0\0\0\0\x04"sv}, {cmp_ZLib, "\x78\x01"sv}};
    for (auto const& row : rows) {
        CBinaryData const original = Of(octets);
        CBinaryData data = original;
        CBinaryData const result = data.CompressData(row.m_type);
        EXPECT_EQ(result.GetData(), data.GetData());
        EXPECT_LT(data.GetLength(), 21000U);
        EXPECT_EQ(TextOf(data).substr(0, row.m_start.size()), row.m_start);
        EXPECT_EQ(TextOf(Inflate(data.GetOctets()).value()), octets);
        EXPECT_EQ(TextOf(original), octets);
        data.Append(static_cast<unsigned char>('!'));
        EXPECT_EQ(TextOf(data), TextOf(result) + "!");
        CBinaryData alone = Of(octets);
        alone.CompressData(row.m_type);
        alone.Append(Of(octets));
        EXPECT_EQ(TextOf(alone), TextOf(result) + octets);
    }
    for (int const type : {0, 3, -1}) {
        CBinaryData data = Of(octets);
        EXPECT_EQ(TextOf(data.CompressData(static_cast<CompressionType>(type))), octets);
    }
    EXPECT_EQ(CBinaryData().CompressData(cmp_GZip), CBinaryData());
}

TEST(Compression, RefusesWhatDoesNotShrink) {
    struct {
        CompressionType m_type;
        std::string m_octets;
        int m_code;
    } const rows[] = {{cmp_GZip, "", -5},           {cmp_ZLib, "", -5},          {cmp_GZip, "few", -5},
                      {cmp_ZLib, "few", 0},         {cmp_GZip, Random(1000), 0}, {cmp_ZLib, Random(1000), 0},
                      {cmp_ZLib, Random(100000), 0}};
    for (auto const& row : rows) {
        CBinaryData data = Of(row.m_octets);
        unsigned char const* const place = data.GetData();
        EXPECT_BX_THROW(data.CompressData(row.m_type), CBxException,
                        "Failed to compress data. [Error Code: " + std::to_string(row.m_code) + "]");
        EXPECT_EQ(TextOf(data), row.m_octets);
        EXPECT_EQ(data.GetData(), place);
    }
}

class BinaryFile : public testing::Test {
protected:
    BinaryFile() {
        std::string folder = (std::filesystem::temp_directory_path() / "bxXXXXXX").string();
        m_folder = mkdtemp(folder.data());
    }
    ~BinaryFile() override { std::filesystem::remove_all(m_folder); }

    static std::string Read(std::filesystem::path const& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static void Write(CBinaryData const& data, std::filesystem::path const& path, int encoding) {
        data.ToFile(path.u16string().c_str(), static_cast<XmlEncoding>(encoding));
    }

    std::filesystem::path m_folder;
};

TEST_F(BinaryFile, IsReplaced) {
    struct {
        CBinaryData m_data;
        int m_encoding;
        std::string m_content;
    } const rows[] = {{Of(std::string(5000, 'x')), enc_UTF8, std::string(5000, 'x')},
                      {Of("octets"), enc_Unspecified, "octets"},
                      {Of("octets"), enc_UTF16, "\xFF\xFEoctets"},
                      {Of("octets"), enc_UTF16NoDeclaration, "\xFF\xFEoctets"},
                      {Of("octets"), 4, "octets"},
                      {CBinaryData(), enc_UTF16, "\xFF\xFE"},
                      {CBinaryData(), enc_UTF8, ""},
                      {kNoOctets, enc_UTF8, ""}};
    std::filesystem::path const path = m_folder / u"\u00E9\U0001F600";
    for (auto const& row : rows) {
        Write(row.m_data, path, row.m_encoding);
        EXPECT_EQ(Read(path), row.m_content);
    }
}

TEST_F(BinaryFile, FailsWithTheNumberOfTheError) {
    struct {
        std::string m_path;
        char const* m_error;
    } const rows[] = {{m_folder / "missing" / "file", "00000002"},
                      {m_folder, "00000015"},
                      {"", "00000002"},
                      {"/dev/full", "0000001C"}};
    for (auto const& row : rows) {
        EXPECT_BX_THROW(
            Write(Of("octets"), row.m_path, enc_UTF16), CBxException,
            "Failed to write data to the file [" + row.m_path + "] error [0x" + row.m_error + "]");
    }
    EXPECT_BX_THROW(Of("octets").ToFile(nullptr, enc_UTF8), CBxException,
                    "Failed to write data to the file [] error [0x00000002]");
}

}  // namespace
