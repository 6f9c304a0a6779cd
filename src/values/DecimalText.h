// The lexical form of decimals.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace BxXmlLib5 {

/// A decimal's text without what carries no value.
struct DecimalText {
    std::string m_digits;             ///< those before the point, then those behind it
    std::size_t m_integerDigits = 0;  ///< how many stand before the point
    bool m_negative = false;
    std::optional<std::int64_t> m_exponent;  ///< its magnitude, at most INT32_MAX, if it has digits
    bool m_exponentNegative = false;
};

/// Reads a whole text.
/// @throws CBxInvalidValueException
DecimalText ScanDecimal(std::u16string_view text);

/// Refuses a text for its character at a position.
/// @throws CBxInvalidValueException always
[[noreturn]] void ThrowInvalidDecimal(std::u16string_view text, std::size_t at);

}  // namespace BxXmlLib5
