// The characters of XML 1.0, fifth edition.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace BxXmlLib5 {

/// XML 1.0, production [3].
inline constexpr std::u16string_view kXmlSpace = u" \t\r\n";

namespace XmlCharacters {

struct Range {
    char32_t m_first;
    char32_t m_last;
};

// clang-format off
/// Production [4]: NameStartChar, beyond ASCII.
inline constexpr Range kNameStart[] = {
    {0xC0, 0xD6}, {0xD8, 0xF6}, {0xF8, 0x2FF}, {0x370, 0x37D}, {0x37F, 0x1FFF}, {0x200C, 0x200D},
    {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};

/// Production [4a]: what NameChar adds there.
inline constexpr Range kNameMore[] = {{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};
// clang-format on

template <std::size_t size>
constexpr bool Holds(Range const (&ranges)[size], char32_t c) {
    for (Range const range : ranges) {
        if (c <= range.m_last) return c >= range.m_first;
    }
    return false;
}

enum : std::uint8_t { kStarts = 1, kContinues = 2 };

inline constexpr auto kAscii = [] {
    std::array<std::uint8_t, 0x80> flags{};
    for (char c = 'a'; c <= 'z'; ++c) flags[static_cast<std::size_t>(c)] = kStarts | kContinues;
    for (char c = 'A'; c <= 'Z'; ++c) flags[static_cast<std::size_t>(c)] = kStarts | kContinues;
    for (char c = '0'; c <= '9'; ++c) flags[static_cast<std::size_t>(c)] = kContinues;
    flags['_'] = flags[':'] = kStarts | kContinues;
    flags['-'] = flags['.'] = kContinues;
    return flags;
}();

}  // namespace XmlCharacters

/// Production [4], in which the colon is one.
constexpr bool IsNameStart(char32_t c) {
    using namespace XmlCharacters;
    return c < kAscii.size() ? (kAscii[c] & kStarts) != 0 : Holds(kNameStart, c);
}

/// Production [4a].
constexpr bool IsNameCharacter(char32_t c) {
    using namespace XmlCharacters;
    return c < kAscii.size() ? (kAscii[c] & kContinues) != 0 : Holds(kNameStart, c) || Holds(kNameMore, c);
}

/// Whether a text is a name without a colon, of ASCII alone. Most names are.
constexpr bool IsAsciiNCName(std::u16string_view text) {
    using namespace XmlCharacters;
    bool accepted = !text.empty() && IsNameStart(text[0]);
    for (char16_t const c : text)
        accepted &= c < kAscii.size() && kAscii[c % kAscii.size()] != 0 && c != u':';
    return accepted;
}

/// Production [2]. No surrogate is one.
constexpr bool IsXmlCharacter(char32_t c) {
    if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
    return c < 0xD800 || (c >= 0xE000 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0x10FFFF);
}

}  // namespace BxXmlLib5
