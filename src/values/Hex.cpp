#include "values/Hex.h"

#include <array>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "values/MessageCharacter.h"

namespace BxXmlLib5 {

namespace {

constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
constexpr std::u16string_view kLowerDigits = u"0123456789abcdef";

constexpr unsigned kNoDigit = 0x10;

consteval std::array<unsigned char, 128> MakeValues() {
    std::array<unsigned char, 128> values{};
    values.fill(kNoDigit);
    for (unsigned char value = 0; value < kDigits.size(); ++value) {
        values[kDigits[value]] = values[kLowerDigits[value]] = value;
    }
    return values;
}

constexpr auto kValues = MakeValues();

unsigned ValueOf(char16_t c) {
    return c < kValues.size() ? kValues[c] : kNoDigit;
}

[[noreturn]] void ThrowNoDigit(char16_t c) {
    throw CBxException(FormatString(u"Invalid char in hex string [%c]", MessageCharacter(c)));
}

}  // namespace

wstring EncodeHex(std::span<unsigned char const> octets) {
    wstring text(octets.size() * 2, u'\0');
    char16_t* out = text.data();
    for (unsigned char const octet : octets) {
        *out++ = kDigits[octet >> 4];
        *out++ = kDigits[octet & 0xF];
    }
    return text;
}

CBinaryData DecodeHex(std::u16string_view text) {
    std::size_t const length = text.size() / 2;
    auto octets = std::make_unique_for_overwrite<unsigned char[]>(length);
    for (std::size_t i = 0; i < length; ++i) {
        unsigned const high = ValueOf(text[2 * i]);
        unsigned const low = ValueOf(text[2 * i + 1]);
        if ((high | low) >= kNoDigit) ThrowNoDigit(text[2 * i + (high == kNoDigit ? 0 : 1)]);
        octets[i] = static_cast<unsigned char>(high << 4 | low);
    }
    if (text.size() % 2 != 0) ThrowNoDigit(ValueOf(text.back()) == kNoDigit ? text.back() : u'\0');
    return {std::move(octets), length};
}

}  // namespace BxXmlLib5
