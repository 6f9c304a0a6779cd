#include "xml/XmlNames.h"

#include <algorithm>
#include <cstddef>

namespace BxGen {

namespace {

struct Range {
    char32_t m_first;
    char32_t m_last;
};

// clang-format off
/// Production [4] of XML 1.0, fifth edition.
constexpr Range kNameStart[] = {
    {':', ':'}, {'A', 'Z'}, {'_', '_'}, {'a', 'z'}, {0xC0, 0xD6}, {0xD8, 0xF6}, {0xF8, 0x2FF}, {0x370, 0x37D},
    {0x37F, 0x1FFF}, {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF},
    {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};

/// What production [4a] adds.
constexpr Range kNameMore[] = {{'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};
// clang-format on

template <std::size_t size>
constexpr bool Holds(Range const (&ranges)[size], char32_t c) {
    return std::ranges::any_of(ranges, [c](Range range) { return c >= range.m_first && c <= range.m_last; });
}

bool AreNameCharacters(std::string_view text) {
    while (!text.empty()) {
        if (!IsNameCharacter(TakeCharacter(text))) return false;
    }
    return true;
}

}  // namespace

char32_t TakeCharacter(std::string_view& text) {
    auto const first = static_cast<unsigned char>(text.front());
    std::size_t const size = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                             : first < 0xF5 ? 4
                                            : 0;
    if (size == 0 || size > text.size()) {
        text.remove_prefix(1);
        return 0xFFFFFFFF;
    }
    char32_t c = size == 1 ? first : first & (0x7Fu >> size);
    for (std::size_t i = 1; i < size; ++i) c = c << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    text.remove_prefix(size);
    return c;
}

bool IsNameStart(char32_t c) {
    return Holds(kNameStart, c);
}

bool IsNameCharacter(char32_t c) {
    return IsNameStart(c) || Holds(kNameMore, c);
}

bool IsName(std::string_view text) {
    std::string_view rest = text;
    return !text.empty() && IsNameStart(TakeCharacter(rest)) && AreNameCharacters(rest);
}

bool IsNmToken(std::string_view text) {
    return !text.empty() && AreNameCharacters(text);
}

bool IsNcName(std::string_view text) {
    return text.find(':') == text.npos && IsName(text);
}

bool IsQName(std::string_view text) {
    std::size_t const colon = text.find(':');
    if (colon == text.npos) return IsNcName(text);
    return IsNcName(text.substr(0, colon)) && IsNcName(text.substr(colon + 1));
}

}  // namespace BxGen
