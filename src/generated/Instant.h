// Places on the time line, and how they compare.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5::Generated {

/// The numbers of literals have no more digits, so that sums of them stay within 64 bits.
inline constexpr std::size_t kMostDigits = 15;

/// @param digits decimal digits alone
/// @throws CBxInvalidValueException for more than 15 of them, zeros in front not counted
std::int64_t NumberOf(std::u16string_view digits, std::u16string_view literal);

/// Three digits of a fraction as a number.
/// @param from the index of the first
std::uint16_t Thousandths(std::u16string_view fraction, std::size_t from);

struct Instant {
    std::int64_t days = 0;
    std::int64_t seconds = 0;      ///< of the day, 0 to 86,399
    std::u16string_view fraction;  ///< digits, the last of them not 0

    auto operator<=>(Instant const&) const = default;
};

inline constexpr std::int64_t kSecondsOfDay = 86'400;

}  // namespace BxXmlLib5::Generated
