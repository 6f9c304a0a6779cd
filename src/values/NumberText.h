// Numbers in UTF-16 text, whatever the locale: the ways of strtol, strtod and std::to_chars.
#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string_view>
#include <type_traits>

#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

/// The number at the front of a text.
template <class T>
struct NumberAtFront {
    T value = 0;
    std::size_t length = 0;   ///< Units read; 0 if there is no number.
    bool outOfRange = false;  ///< The value of a signed integer is then the nearest that T has.
};

/// The position of the first unit, from at on, that is no XML whitespace.
inline std::size_t SkipWhitespace(std::u16string_view text, std::size_t at) {
    while (at < text.size() && CWhitespaceUtils::IsWhiteSpace(text[at])) ++at;
    return at;
}

inline std::size_t SkipDigits(std::u16string_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at;
}

constexpr bool IsSign(char16_t c) {
    return c == u'-' || c == u'+';
}

/// Moves past a sign.
/// @return it is a minus
inline bool TakeSign(std::u16string_view text, std::size_t& at) {
    if (at == text.size() || !IsSign(text[at])) return false;
    return text[at++] == u'-';
}

/// Reads whitespace, a sign and decimal digits. An unsigned number takes a minus too: its magnitude must fit,
/// and the value wraps.
template <std::integral T>
NumberAtFront<T> ReadInteger(std::u16string_view text) {
    using Magnitude = std::uint64_t;
    constexpr Magnitude kMost = std::numeric_limits<Magnitude>::max();

    std::size_t at = SkipWhitespace(text, 0);
    bool const negative = TakeSign(text, at);
    std::size_t const firstDigit = at;
    Magnitude magnitude = 0;
    bool outOfRange = false;
    for (; at < text.size() && IsDigit(text[at]); ++at) {
        Magnitude const digit = static_cast<Magnitude>(text[at] - u'0');
        outOfRange |= magnitude > kMost / 10 || (magnitude == kMost / 10 && digit > kMost % 10);
        magnitude = magnitude * 10 + digit;
    }
    if (at == firstDigit) return {};

    Magnitude limit = static_cast<Magnitude>(std::numeric_limits<T>::max());
    if (std::signed_integral<T> && negative) ++limit;
    if (outOfRange || magnitude > limit) return {static_cast<T>(negative ? 0 - limit : limit), at, true};
    return {static_cast<T>(negative ? 0 - magnitude : magnitude), at, false};
}

/// Reads whitespace, a sign, digits with a point among or beside them, and an exponent. The result is the
/// nearest number: an infinity past the range, 0 or a denormal number below it.
/// @tparam T float or double
template <std::floating_point T>
NumberAtFront<T> ReadFloating(std::u16string_view text);

/// ASCII as UTF-16.
inline wstring Widen(std::string_view ascii) {
    return wstring(ascii.begin(), ascii.end());
}

/// The decimal digits, behind a minus if need be.
template <std::integral T>
wstring IntegerText(T value) {
    std::array<char, std::numeric_limits<T>::digits10 + 3> buffer;  // a sign, and a digit beyond digits10
    char* const end = std::to_chars(buffer.begin(), buffer.end(), value).ptr;
    return Widen({buffer.begin(), end});
}

}  // namespace BxXmlLib5
