// Single code points of UTF-8 (RFC 3629) and UTF-16 (RFC 2781). What to do with malformed text is the
// caller's choice.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace BxXmlLib5::Utf {

inline constexpr char32_t kMalformed = 0xFFFFFFFF;

inline bool IsHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
inline bool IsLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

/// The code point at a position, which moves behind it; kMalformed for an unpaired surrogate, which is passed
/// over.
inline char32_t Next(std::u16string_view text, std::size_t& at) {
    char32_t const unit = text[at++];
    if (unit < 0xD800 || unit > 0xDFFF) return unit;
    if (!IsHighSurrogate(unit) || at == text.size() || !IsLowSurrogate(text[at])) return kMalformed;
    return 0x10000 + ((unit - 0xD800) << 10) + (static_cast<char32_t>(text[at++]) - 0xDC00);
}

/// The code point at a position, which moves behind it; kMalformed for what is no well-formed sequence, of
/// which the maximal part that could begin one is passed over.
inline char32_t Next(std::string_view octets, std::size_t& at) {
    auto const first = static_cast<unsigned char>(octets[at++]);
    if (first < 0x80) return first;
    if (first < 0xC2 || first > 0xF4) return kMalformed;
    int const more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    char32_t c = first & (0x3F >> more);
    // The second octet is bounded so that neither an overlong form, nor a surrogate, nor a value above 10FFFF
    // begins.
    unsigned low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    unsigned high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    for (int i = 0; i < more; ++i) {
        if (at == octets.size()) return kMalformed;
        auto const octet = static_cast<unsigned char>(octets[at]);
        if (octet < low || octet > high) return kMalformed;
        c = (c << 6) | (octet & 0x3F);
        low = 0x80;
        high = 0xBF;
        ++at;
    }
    return c;
}

/// Hands the octets of a code point, which is no surrogate, to a function, in order.
template <class Put>
void PutUtf8(char32_t c, Put&& put) {
    if (c < 0x80) return put(c);
    if (c < 0x800) {
        put(0xC0 | c >> 6);
    } else {
        if (c < 0x10000) {
            put(0xE0 | c >> 12);
        } else {
            put(0xF0 | c >> 18);
            put(0x80 | (c >> 12 & 0x3F));
        }
        put(0x80 | (c >> 6 & 0x3F));
    }
    put(0x80 | (c & 0x3F));
}

/// Hands the units of a code point, which is no surrogate, to a function, in order.
template <class Put>
void PutUtf16(char32_t c, Put&& put) {
    if (c >= 0x10000) {
        put(0xD800 + ((c - 0x10000) >> 10));
        c = 0xDC00 + ((c - 0x10000) & 0x3FF);
    }
    put(c);
}

/// @param c a code point, no surrogate
inline void Append(std::string& octets, char32_t c) {
    PutUtf8(c, [&octets](char32_t octet) { octets.push_back(static_cast<char>(octet)); });
}

/// @param c a code point, no surrogate
inline void Append(std::u16string& text, char32_t c) {
    PutUtf16(c, [&text](char32_t unit) { text.push_back(static_cast<char16_t>(unit)); });
}

}  // namespace BxXmlLib5::Utf
