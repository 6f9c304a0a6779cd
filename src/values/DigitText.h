// The small pieces of text that dates and durations have in common.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// A fraction of a second: digits 1 to 3, 4 to 6 and 7 to 9, each as a number of 0 to 999.
struct Fraction {
    std::uint16_t milli = 0;
    std::uint16_t micro = 0;
    std::uint16_t nano = 0;
};

/// Takes up to nine digits from the front of a text; a tenth stays there.
Fraction TakeFraction(std::u16string_view& text);

/// The numbers of two digits, "00" to "99", in one text.
inline constexpr auto kTwoDigits = [] {
    std::array<char16_t, 200> digits{};
    for (std::size_t i = 0; i < 100; ++i) {
        digits[2 * i] = static_cast<char16_t>(u'0' + i / 10);
        digits[2 * i + 1] = static_cast<char16_t>(u'0' + i % 10);
    }
    return digits;
}();

/// Writes decimal digits so that they end at a place, filled with zeros to the width.
/// @param number 0 has no digits of its own
/// @return the first of them
inline char16_t* PutDigits(char16_t* end, std::uint64_t number, std::size_t width) {
    char16_t* first = end;
    for (; number >= 10; number /= 100) {
        first -= 2;
        std::memcpy(first, &kTwoDigits[2 * (number % 100)], 2 * sizeof(char16_t));
    }
    if (number > 0) *--first = static_cast<char16_t>(u'0' + number);
    while (static_cast<std::size_t>(end - first) < width) *--first = u'0';
    return first;
}

/// A short text of numbers, built on the stack. Its size is enough for the longest duration: a sign, six
/// designators or more, and numbers of 16, 32 and 64 bits.
class CDigitText {
public:
    void Put(char16_t unit) { m_units[m_length++] = unit; }

    /// Decimal digits, filled with zeros to the width.
    void PutNumber(std::uint64_t number, std::size_t width = 1);

    /// A point and the digits without trailing zeros; nothing for a fraction of 0.
    void PutFraction(Fraction const& fraction);

    wstring Text() const { return wstring(m_units, m_length); }

private:
    char16_t m_units[128];
    std::size_t m_length = 0;
};

}  // namespace BxXmlLib5
