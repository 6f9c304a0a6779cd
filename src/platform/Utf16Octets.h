// UTF-16 as octets, low octet first (RFC 2781, 4.2).
#pragma once

#include <string_view>

namespace BxXmlLib5 {

inline constexpr unsigned char kByteOrderMark[] = {0xFF, 0xFE};

/// Writes the units of a text.
/// @param out room for two octets for each unit
inline void WriteUtf16(std::u16string_view text, unsigned char* out) {
    for (char16_t const unit : text) {
        *out++ = static_cast<unsigned char>(unit & 0xFF);
        *out++ = static_cast<unsigned char>(unit >> 8);
    }
}

}  // namespace BxXmlLib5
