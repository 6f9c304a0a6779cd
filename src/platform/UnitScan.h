// Searches of short texts, four 16-bit units at a time.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace BxXmlLib5 {

/// Times a number below 2 to the power 16, that number in each of four units.
inline constexpr std::uint64_t kEachUnit = 0x0001'0001'0001'0001;

/// Whether the units, in lanes of 16 bits, have one below a bound of at most 0x8000. Not 0 if so.
constexpr std::uint64_t UnitsBelow(std::uint64_t units, char16_t bound) {
    return (units - kEachUnit * bound) & ~units & (kEachUnit * 0x8000);
}

/// Whether one is at a bound of at least 0x8000, or above. Not 0 if so.
constexpr std::uint64_t UnitsFrom(std::uint64_t units, char16_t bound) {
    std::uint64_t const rest = units & (kEachUnit * 0x7FFF);
    return (rest + kEachUnit * (0x10000u - bound)) & units & (kEachUnit * 0x8000);
}

/// Whether a search finds something in a text.
/// @param find given four units, gives 0 if it finds nothing; and finds nothing in units of 0x30
template <class Find>
bool HasUnit(std::u16string_view text, Find find) {
    auto const four = [text](std::size_t at) {
        std::uint64_t units;
        std::memcpy(&units, text.data() + at, sizeof units);
        return units;
    };
    if (text.size() < 4) {
        std::uint64_t units = kEachUnit * 0x30;
        for (char16_t const unit : text) units = units << 16 | unit;
        return find(units) != 0;
    }
    std::uint64_t found = find(four(text.size() - 4));
    for (std::size_t at = 0; at + 4 < text.size(); at += 4) found |= find(four(at));
    return found != 0;
}

}  // namespace BxXmlLib5
