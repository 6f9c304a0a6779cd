#include "values/CLongDecimal.h"

#include <algorithm>
#include <string>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"
#include "values/DecimalText.h"
#include "values/Magnitude.h"

namespace BxXmlLib5 {

namespace {

/// Places behind the limit that a quotient keeps for its rounding.
constexpr int kGuardPlaces = 2;

__extension__ typedef unsigned __int128 Wide;

/// Nothing for a magnitude that 64 bits do not hold.
std::optional<std::uint64_t> ToInteger(Magnitude::Limbs const& limbs) {
    constexpr std::size_t kMostLimbs = 3;
    if (limbs.size() > kMostLimbs) return std::nullopt;
    Wide value = 0;
    for (std::size_t i = limbs.size(); i-- > 0;) value = value * Magnitude::kBase + limbs[i];
    return value > UINT64_MAX ? std::nullopt : std::optional(static_cast<std::uint64_t>(value));
}

}  // namespace

CLongDecimal::CLongDecimal(Short const& number) {
    bool const isNegative = number.m_scaled < 0 || number.m_isMinusZero;
    auto const bits = static_cast<std::uint64_t>(number.m_scaled);
    std::uint64_t const magnitude = number.m_scaled < 0 ? 0 - bits : bits;
    std::uint64_t const power = Magnitude::kPowersOf10[static_cast<std::size_t>(number.m_places)];
    m_integerPart = CBigInteger(isNegative ? -1 : 1, Magnitude::FromInteger(magnitude / power));
    if (number.m_places == 0) return;
    m_fractionPart = CBigInteger(m_integerPart.m_sign, Magnitude::FromInteger(magnitude % power));
    m_fractionalDivider = number.m_places;
}

std::optional<CLongDecimal::Short> CLongDecimal::ToShort() const {
    int const places = m_fractionPart.IsZero() ? 0 : m_fractionalDivider;
    if (places > kShortPlaces) return std::nullopt;
    auto const integer = ToInteger(m_integerPart.m_digits);
    if (!integer) return std::nullopt;
    bool const isNegative = m_integerPart.m_sign < 0;
    Wide const magnitude = Wide{*integer} * Magnitude::kPowersOf10[static_cast<std::size_t>(places)] +
                           Magnitude::ToInteger(m_fractionPart.m_digits);
    if (magnitude > Wide{INT64_MAX} + (isNegative ? 1 : 0)) return std::nullopt;
    auto const bits = static_cast<std::uint64_t>(magnitude);
    return Short{static_cast<std::int64_t>(isNegative ? 0 - bits : bits), places,
                 isNegative && magnitude == 0};
}

CLongDecimal::CLongDecimal(std::u16string_view text, int limit) {
    DecimalText source = ScanDecimal(text);
    std::string& digits = source.m_digits;
    std::int64_t const exponent = source.m_exponent.value_or(0);
    bool const divides = source.m_exponent && source.m_exponentNegative;
    auto const point = static_cast<std::int64_t>(source.m_integerDigits) + (divides ? -exponent : exponent);
    if (divides) {
        auto const kept = std::clamp<std::int64_t>(point + limit + kGuardPlaces, 0, std::ssize(digits));
        digits.resize(static_cast<std::size_t>(kept));
    }
    auto const integerDigits =
        static_cast<std::size_t>(std::clamp<std::int64_t>(point, 0, std::ssize(digits)));
    m_integerPart.m_digits = Magnitude::FromText(std::string_view(digits).substr(0, integerDigits));
    m_fractionPart.m_digits = Magnitude::FromText(std::string_view(digits).substr(integerDigits));

    // What an exponent makes of -0 is 0, as with any product or quotient.
    bool const isZero = m_integerPart.IsZero() && m_fractionPart.IsZero();
    m_integerPart.m_sign = source.m_negative && !(isZero && source.m_exponent) ? -1 : 1;
    if (isZero) return;
    m_fractionPart.m_sign = m_integerPart.m_sign;
    std::int64_t const places = std::ssize(digits) - point;
    if (-places > kMaxExponentZeros)
        throw CBxOverFlowException(
            FormatString(u"The exponent of the Decimal [%s] is too large", wstring(text).c_str()));
    Magnitude::ScaleUp(m_integerPart.m_digits, static_cast<std::size_t>(std::max<std::int64_t>(-places, 0)));
    m_fractionalDivider = static_cast<int>(std::max<std::int64_t>(places, 1));
    Cap(limit);
}

void CLongDecimal::Rationalise() {
    if (m_fractionPart.IsZero()) {
        m_fractionPart = CBigInteger();
        m_fractionalDivider = 1;
        return;
    }
    std::size_t const zeros = Magnitude::CountTrailingZeros(m_fractionPart.m_digits);
    if (zeros == 0) return;
    Magnitude::ScaleDown(m_fractionPart.m_digits, zeros);
    m_fractionalDivider -= static_cast<int>(zeros);
}

void CLongDecimal::RoundTo(int places) {
    if (m_fractionalDivider <= places) return;
    Magnitude::Limbs& fraction = m_fractionPart.m_digits;
    auto const dropped = static_cast<std::size_t>(m_fractionalDivider - places);
    Magnitude::Limbs half = Magnitude::FromInteger(5);
    Magnitude::ScaleUp(half, dropped - 1);
    bool const isUp = Magnitude::Compare(Magnitude::LowDigits(fraction, dropped), half) > 0;
    Magnitude::ScaleDown(fraction, dropped);
    m_fractionalDivider = places;
    if (!isUp) return;
    fraction = Magnitude::Add(fraction, Magnitude::FromInteger(1));
    if (Magnitude::CountDigits(fraction) > static_cast<std::size_t>(places)) {
        fraction.Clear();
        m_integerPart += m_fractionPart.m_sign;
    }
}

void CLongDecimal::Cap(int limit) {
    RoundTo(limit);
    Rationalise();
}

CLongDecimal::CLongDecimal(CBigInteger const& scaled, std::size_t places) {
    if (scaled.IsZero()) return;
    Magnitude::Limbs integer = scaled.m_digits;
    Magnitude::ScaleDown(integer, places);
    m_integerPart = CBigInteger(scaled.m_sign, std::move(integer));
    m_fractionPart = CBigInteger(scaled.m_sign, Magnitude::LowDigits(scaled.m_digits, places));
    m_fractionalDivider = static_cast<int>(places);
    Rationalise();
}

CBigInteger CLongDecimal::ScaledFraction(int places) const {
    CBigInteger fraction = m_fractionPart;
    Magnitude::ScaleUp(fraction.m_digits, static_cast<std::size_t>(places - m_fractionalDivider));
    return fraction;
}

CBigInteger CLongDecimal::Scaled(int places) const {
    CBigInteger integer = m_integerPart;
    Magnitude::ScaleUp(integer.m_digits, static_cast<std::size_t>(places));
    return integer + ScaledFraction(places);
}

void CLongDecimal::AppendTo(wstring& text) const {
    bool const hasFraction = !m_fractionPart.IsZero();
    if (m_integerPart.m_sign < 0 && (hasFraction || !m_integerPart.IsZero())) text += u'-';
    Magnitude::AppendText(text, m_integerPart.m_digits);
    if (!hasFraction) return;
    text += u'.';
    Magnitude::AppendText(text, m_fractionPart.m_digits, static_cast<std::size_t>(m_fractionalDivider));
}

wstring CLongDecimal::ToString(int decimalPlaces, int limit) const {
    // Half a unit of the last place is a decimal too, and rounds to 0 where it goes beyond the limit.
    CLongDecimal half{CBigInteger()};
    if (decimalPlaces < limit) {
        half.m_fractionPart = CBigInteger(5);
        half.m_fractionalDivider = decimalPlaces + 1;
    }
    CLongDecimal const sum = Plus(half, m_integerPart.m_sign);

    wstring text = sum.m_integerPart.m_sign < 0 ? u"-" : u"";
    Magnitude::AppendText(text, sum.m_integerPart.m_digits);
    text += u'.';
    wstring fraction;
    Magnitude::AppendText(fraction, sum.m_fractionPart.m_digits,
                          static_cast<std::size_t>(sum.m_fractionalDivider));
    return text.append(fraction, 0, static_cast<std::size_t>(decimalPlaces));
}

std::int64_t CLongDecimal::ToLongLong() const {
    CLongDecimal rounded = *this;
    rounded.RoundTo(1);
    CBigInteger const& integer = rounded.m_integerPart;
    if (integer < CBigInteger::MIN_LONGLONG || integer > CBigInteger::MAX_LONGLONG)
        throw CBxOverFlowException(u"The Decimal value if to large to fit into a LONGLONG");
    return static_cast<long long>(integer);
}

CBigInteger CLongDecimal::ToBigInteger() const {
    CLongDecimal rounded = *this;
    rounded.RoundTo(0);
    return std::move(rounded.m_integerPart);
}

void CLongDecimal::Negate() {
    m_integerPart.Negate();
    if (!m_fractionPart.IsZero()) m_fractionPart.Negate();
}

CLongDecimal CLongDecimal::Plus(CLongDecimal const& other, int otherSign) const {
    int const places = std::max(m_fractionalDivider, other.m_fractionalDivider);
    CBigInteger addend = other.Scaled(places);
    if (otherSign < 0) addend.Negate();
    return {Scaled(places) + addend, static_cast<std::size_t>(places)};
}

CLongDecimal CLongDecimal::Times(CLongDecimal const& other, int limit) const {
    CLongDecimal product(Scaled(m_fractionalDivider) * other.Scaled(other.m_fractionalDivider),
                         static_cast<std::size_t>(m_fractionalDivider + other.m_fractionalDivider));
    product.Cap(limit);
    return product;
}

CLongDecimal CLongDecimal::DividedBy(CLongDecimal const& other, int limit) const {
    int const places = std::max(m_fractionalDivider, other.m_fractionalDivider);
    std::size_t const kept = static_cast<std::size_t>(limit) + kGuardPlaces;
    CBigInteger dividend = Scaled(places);
    Magnitude::ScaleUp(dividend.m_digits, kept);
    CLongDecimal quotient(dividend / other.Scaled(places), kept);
    quotient.Cap(limit);
    return quotient;
}

int CLongDecimal::Order(CLongDecimal const& other) const {
    int const integers = m_integerPart.Order(other.m_integerPart);
    if (integers != 0) return integers;
    int const places = std::max(m_fractionalDivider, other.m_fractionalDivider);
    return ScaledFraction(places).Order(other.ScaledFraction(places));
}

bool CLongDecimal::operator==(CLongDecimal const& other) const {
    return m_integerPart == other.m_integerPart && m_fractionPart == other.m_fractionPart &&
           m_fractionalDivider == other.m_fractionalDivider;
}

bool CLongDecimal::IsBeyondDouble() const {
    return m_integerPart < CBigInteger::MIN_DOUBLE || m_integerPart > CBigInteger::MAX_DOUBLE;
}

}  // namespace BxXmlLib5
