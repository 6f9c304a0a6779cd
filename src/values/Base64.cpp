#include "values/Base64.h"

#include <array>
#include <utility>

namespace BxXmlLib5 {

namespace {

constexpr std::u16string_view kAlphabet =
    u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"
    u"abcdefghijklmnopqrstuvwxyz"
    u"0123456789+/";
static_assert(kAlphabet.size() == 64);

constexpr char16_t kPad = u'=';

// What a character is that has no value of six bits.
constexpr unsigned kPadding = 64;
constexpr unsigned kForeign = 65;

consteval std::array<unsigned char, 128> MakeValues() {
    std::array<unsigned char, 128> values{};
    values.fill(kForeign);
    for (unsigned char value = 0; value < kAlphabet.size(); ++value) values[kAlphabet[value]] = value;
    values[kPad] = kPadding;
    return values;
}

constexpr auto kValues = MakeValues();

unsigned ValueOf(char16_t c) {
    return kValues[c & 0x7F];
}

/// Four characters for 24 bits, or the first of them for fewer.
void PutGroup(char16_t*& out, unsigned bits, int characters = 4) {
    for (int i = 0; i < characters; ++i) *out++ = kAlphabet[bits >> (18 - 6 * i) & 0x3F];
}

/// Decodes as long as four characters of the alphabet follow each other.
void TakeGroups(std::u16string_view& text, unsigned char*& out) {
    std::size_t at = 0;
    for (; text.size() - at >= 4; at += 4) {
        unsigned const a = ValueOf(text[at]);
        unsigned const b = ValueOf(text[at + 1]);
        unsigned const c = ValueOf(text[at + 2]);
        unsigned const d = ValueOf(text[at + 3]);
        if ((a | b | c | d) >= kPadding) break;
        *out++ = static_cast<unsigned char>(a << 2 | b >> 4);
        *out++ = static_cast<unsigned char>(b << 4 | c >> 2);
        *out++ = static_cast<unsigned char>(c << 6 | d);
    }
    text.remove_prefix(at);
}

}  // namespace

wstring EncodeBase64(std::span<unsigned char const> octets) {
    wstring text((octets.size() + 2) / 3 * 4, kPad);
    char16_t* out = text.data();
    for (; octets.size() >= 3; octets = octets.subspan(3)) {
        PutGroup(out, static_cast<unsigned>(octets[0] << 16 | octets[1] << 8 | octets[2]));
    }
    if (octets.size() == 1) PutGroup(out, static_cast<unsigned>(octets[0] << 16), 2);
    if (octets.size() == 2) PutGroup(out, static_cast<unsigned>(octets[0] << 16 | octets[1] << 8), 3);
    return text;
}

CBinaryData DecodeBase64(std::u16string_view text) {
    auto octets = std::make_unique_for_overwrite<unsigned char[]>(text.size() / 4 * 3 + 3);
    unsigned char* out = octets.get();
    unsigned bits = 0;
    int count = 0;  // of bits that fill no octet yet
    for (;;) {
        if (count == 0) TakeGroups(text, out);
        if (text.empty()) break;
        unsigned const value = ValueOf(text.front());
        text.remove_prefix(1);
        if (value == kPadding) continue;
        if (value == kForeign) return {std::move(octets), 0};
        bits = bits << 6 | value;
        count += 6;
        if (count >= 8) {
            count -= 8;
            *out++ = static_cast<unsigned char>(bits >> count);
        }
    }
    auto const length = static_cast<std::size_t>(out - octets.get());
    return {std::move(octets), length};
}

}  // namespace BxXmlLib5
