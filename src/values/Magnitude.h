// Arithmetic on magnitudes: integers without a sign, in a base that needs no conversion from and to decimal
// text.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CBigInteger.h"

namespace BxXmlLib5 {

/// Names the class that is private to CBigInteger.
struct LimbsAccess {
    using Limbs = CBigInteger::CLimbs;
};

namespace Magnitude {

/// Limbs of nine decimal digits, the least significant first, the topmost not 0; zero has none.
using Limbs = LimbsAccess::Limbs;

inline constexpr std::size_t kLimbDigits = 9;
inline constexpr std::uint64_t kBase = 1'000'000'000;

/// All that 64 bits hold.
inline constexpr auto kPowersOf10 = [] {
    std::array<std::uint64_t, 20> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}();

/// @param digits as many decimal digits as a limb has at most
template <class Char>
std::uint32_t LimbOf(std::basic_string_view<Char> digits) {
    std::uint32_t limb = 0;
    for (Char const digit : digits) limb = limb * 10 + static_cast<std::uint32_t>(digit - Char('0'));
    return limb;
}

Limbs FromLongText(std::u16string_view digits);
Limbs FromLongText(std::string_view digits);

/// @param digits decimal digits only, leading zeros allowed
template <class Char>
Limbs FromText(std::basic_string_view<Char> digits) {
    return digits.size() <= kLimbDigits ? Limbs(LimbOf(digits)) : FromLongText(digits);
}
inline Limbs FromInteger(std::uint64_t value) {
    std::uint64_t const upper = value / kBase;
    Limbs limbs(static_cast<std::uint32_t>(value % kBase), static_cast<std::uint32_t>(upper % kBase));
    if (upper < kBase) return limbs;
    limbs.Resize(2);
    limbs.PushBack(static_cast<std::uint32_t>(upper / kBase));
    return limbs;
}
/// @param limbs of less than 2 to the power 64
inline std::uint64_t ToInteger(Limbs const& limbs) {
    std::uint64_t value = 0;
    for (std::size_t i = limbs.size(); i-- > 0;) value = value * kBase + limbs[i];
    return value;
}
/// Appends the decimal digits, filled with zeros in front to a width. Zero has one digit.
void AppendText(wstring& text, Limbs const& limbs, std::size_t width = 1);

/// Removes zeros at the top.
void Trim(Limbs& limbs);
/// The number of decimal digits, 0 for zero.
std::size_t CountDigits(Limbs const& limbs);
/// The number of decimal zeros at the bottom of a magnitude other than zero.
std::size_t CountTrailingZeros(Limbs const& limbs);
/// -1, 0 or 1.
int Compare(Limbs const& a, Limbs const& b);

Limbs Add(Limbs const& a, Limbs const& b);
/// a - b; a must not be smaller than b.
Limbs Subtract(Limbs const& a, Limbs const& b);
Limbs Multiply(Limbs const& a, Limbs const& b);

struct Division {
    Limbs quotient;
    Limbs remainder;
};
/// @throws CBxInvalidValueException if the divisor is zero
Division Divide(Limbs const& dividend, Limbs const& divisor);

/// Multiplies by 10 to the power of places.
void ScaleUp(Limbs& limbs, std::size_t places);
/// Divides by 10 to the power of places, toward zero.
void ScaleDown(Limbs& limbs, std::size_t places);
/// What ScaleDown drops.
Limbs LowDigits(Limbs const& limbs, std::size_t places);

}  // namespace Magnitude

}  // namespace BxXmlLib5
