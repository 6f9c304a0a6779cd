#include "BxXmlLib5/values/CDecimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"
#include "platform/TextView.h"
#include "values/DecimalText.h"
#include "values/DigitText.h"
#include "values/Magnitude.h"
#include "values/NumberText.h"

namespace BxXmlLib5 {

namespace {

/// Places behind the limit that a quotient keeps for its rounding.
constexpr int kGuardPlaces = 2;

/// The places of a double.
constexpr int kDoublePlaces = 13;

/// The most places of a number that is calculated with in 64 bits.
constexpr int kShortPlaces = 18;

constexpr std::uint64_t PowerOf10(int places) {
    return Magnitude::kPowersOf10[static_cast<std::size_t>(places)];
}

/// The product of a double and 10 to the power of its places, rounded half to even as std::to_chars rounds.
/// @param value at least 0
/// @return nothing for a value whose product has more than 63 bits, and for infinity and not-a-number
std::optional<std::int64_t> ScaledDouble(double value) {
    __extension__ typedef unsigned __int128 Wide;
    constexpr int kMantissaBits = 53;
    if (!(value < 1 << 19)) return std::nullopt;
    int exponent = 0;
    double const mantissa = std::ldexp(std::frexp(value, &exponent), kMantissaBits);
    int const shift = kMantissaBits - exponent;
    if (shift > 100) return 0;  // far below half a unit
    Wide const product = Wide{static_cast<std::uint64_t>(mantissa)} * PowerOf10(kDoublePlaces);
    Wide const half = Wide{1} << (shift - 1);
    Wide const rest = product % (2 * half);
    auto const scaled = static_cast<std::int64_t>(product >> shift);
    return rest > half || (rest == half && scaled % 2 != 0) ? scaled + 1 : scaled;
}

}  // namespace

constinit std::atomic<int> CDecimal::m_maxDivider = 30;

CDecimal::CDecimal(double value) {
    if (auto const scaled = ScaledDouble(std::fabs(value)); scaled && PlacesLimit() >= kDoublePlaces) {
        *this = FromShort(*scaled, kDoublePlaces);
        if (std::signbit(value)) Negate();
        return;
    }
    char digits[400];  // the greatest double has 309 before the point
    char* const end =
        std::to_chars(digits, std::end(digits), value, std::chars_format::fixed, kDoublePlaces).ptr;
    Parse(Widen({digits, end}));
}

CDecimal::CDecimal(CBigInteger const& value) : m_integerPart(value) {}

CDecimal::CDecimal(char16_t const* text) {
    Parse(TextOf(text));
}

CDecimal::CDecimal(std::u16string_view text) {
    Parse(text);
}

CDecimal::CDecimal(CBigInteger integerPart, CBigInteger fractionPart, int divider)
    : m_integerPart(std::move(integerPart)),
      m_fractionPart(std::move(fractionPart)),
      m_fractionalDivider(divider) {}

int CDecimal::GetMaxDecimalPlaces() {
    return m_maxDivider.load(std::memory_order_relaxed);
}

void CDecimal::SetMaxDecimalPlaces(int places) {
    m_maxDivider.store(places, std::memory_order_relaxed);
}

int CDecimal::PlacesLimit() {
    return std::clamp(m_maxDivider.load(std::memory_order_relaxed), 0, kMaxDecimalPlaces);
}

/// Reads the form that nearly all texts have: a sign, digits, and more of them behind a point.
/// @return false if the text has another form or more places than the limit
bool CDecimal::ParsePlain(std::u16string_view text, int limit) {
    std::size_t at = 0;
    bool const isNegative = TakeSign(text, at);
    std::size_t const point = SkipDigits(text, at);
    std::u16string_view fraction;
    if (point < text.size()) {
        if (text[point] != u'.' || SkipDigits(text, point + 1) < text.size()) return false;
        fraction = text.substr(point + 1);
        while (fraction.ends_with(u'0')) fraction.remove_suffix(1);
        if (std::ssize(fraction) > limit) return false;
    }
    m_integerPart.m_sign = isNegative ? -1 : 1;
    m_integerPart.m_digits = Magnitude::FromText(text.substr(at, point - at));
    if (fraction.empty()) return true;
    m_fractionPart.m_sign = m_integerPart.m_sign;
    m_fractionPart.m_digits = Magnitude::FromText(fraction);
    m_fractionalDivider = static_cast<int>(fraction.size());
    return true;
}

void CDecimal::Parse(std::u16string_view text) {
    int const limit = PlacesLimit();
    if (ParsePlain(text, limit)) return;
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

void CDecimal::Rationalise() {
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

void CDecimal::ChangeFractionalDivider(int divider) {
    Magnitude::Limbs& fraction = m_fractionPart.m_digits;
    if (divider >= m_fractionalDivider) {
        Magnitude::ScaleUp(fraction, static_cast<std::size_t>(divider - m_fractionalDivider));
        m_fractionalDivider = divider;
        return;
    }
    auto const dropped = static_cast<std::size_t>(m_fractionalDivider - divider);
    Magnitude::Limbs half = Magnitude::FromInteger(5);
    Magnitude::ScaleUp(half, dropped - 1);
    bool const isUp = Magnitude::Compare(Magnitude::LowDigits(fraction, dropped), half) > 0;
    Magnitude::ScaleDown(fraction, dropped);
    m_fractionalDivider = divider;
    if (!isUp) return;
    fraction = Magnitude::Add(fraction, Magnitude::FromInteger(1));
    if (Magnitude::CountDigits(fraction) > static_cast<std::size_t>(divider)) {
        fraction.Clear();
        m_integerPart += m_fractionPart.m_sign;
    }
}

void CDecimal::Cap(int limit) {
    Rationalise();
    if (m_fractionalDivider <= limit) return;
    ChangeFractionalDivider(limit);
    Rationalise();
}

CDecimal CDecimal::FromScaled(CBigInteger const& scaled, std::size_t places) {
    CDecimal result;
    if (scaled.IsZero()) return result;
    Magnitude::Limbs integer = scaled.m_digits;
    Magnitude::ScaleDown(integer, places);
    result.m_integerPart = CBigInteger(scaled.m_sign, std::move(integer));
    result.m_fractionPart = CBigInteger(scaled.m_sign, Magnitude::LowDigits(scaled.m_digits, places));
    result.m_fractionalDivider = static_cast<int>(places);
    result.Rationalise();
    return result;
}

CDecimal CDecimal::FromShort(std::int64_t scaled, int places) {
    int const sign = scaled < 0 ? -1 : 1;
    auto const bits = static_cast<std::uint64_t>(scaled);
    std::uint64_t const magnitude = scaled < 0 ? 0 - bits : bits;
    std::uint64_t const power = PowerOf10(places);
    CBigInteger integer(sign, Magnitude::FromInteger(magnitude / power));
    std::uint64_t fraction = magnitude % power;
    if (fraction == 0) return {std::move(integer), CBigInteger(), 1};
    for (; fraction % 10 == 0; fraction /= 10) --places;
    return {std::move(integer), CBigInteger(sign, Magnitude::FromInteger(fraction)), places};
}

std::optional<std::int64_t> CDecimal::Short(int places) const {
    constexpr std::size_t kMostLimbs = 2;
    Magnitude::Limbs const &integer = m_integerPart.m_digits, &fraction = m_fractionPart.m_digits;
    if (places > kShortPlaces || integer.size() > kMostLimbs || fraction.size() > kMostLimbs)
        return std::nullopt;
    std::uint64_t const rest = Magnitude::ToInteger(fraction) * PowerOf10(places - m_fractionalDivider);
    std::int64_t scaled = 0;
    if (__builtin_mul_overflow(Magnitude::ToInteger(integer), PowerOf10(places), &scaled) ||
        __builtin_add_overflow(scaled, rest, &scaled))
        return std::nullopt;
    return m_integerPart.m_sign < 0 ? -scaled : scaled;
}

CBigInteger CDecimal::ScaledFraction(int places) const {
    CBigInteger fraction = m_fractionPart;
    Magnitude::ScaleUp(fraction.m_digits, static_cast<std::size_t>(places - m_fractionalDivider));
    return fraction;
}

CBigInteger CDecimal::Scaled(int places) const {
    CBigInteger integer = m_integerPart;
    Magnitude::ScaleUp(integer.m_digits, static_cast<std::size_t>(places));
    return integer + ScaledFraction(places);
}

wstring CDecimal::ToString() const {
    wstring text;
    AppendTo(text);
    return text;
}

void CDecimal::AppendTo(wstring& text) const {
    Magnitude::Limbs const& integer = m_integerPart.m_digits;
    Magnitude::Limbs const& fraction = m_fractionPart.m_digits;
    auto const places = static_cast<std::size_t>(m_fractionalDivider);
    if (m_integerPart.m_sign < 0 && !(integer.empty() && fraction.empty())) text += u'-';
    if (integer.size() > 2 || fraction.size() > 2 || m_fractionalDivider > kShortPlaces) {
        Magnitude::AppendText(text, integer);
        if (fraction.empty()) return;
        text += u'.';
        return Magnitude::AppendText(text, fraction, places);
    }
    // Digits that 64 bits hold, as nearly all values have, in one piece.
    char16_t digits[2 * kShortPlaces + 1];
    char16_t* first = std::end(digits);
    if (!fraction.empty()) {
        first = PutDigits(first, Magnitude::ToInteger(fraction), places);
        *--first = u'.';
    }
    first = PutDigits(first, Magnitude::ToInteger(integer), 1);
    text.append(first, std::end(digits));
}

wstring CDecimal::ToString(int decimalPlaces) const {
    if (decimalPlaces < 0)
        throw CBxInvalidParamException(FormatString(u"Invalid number of decimal places [%d]", decimalPlaces));
    // Half a unit of the last place is a decimal too, and rounds to 0 where it goes beyond the limit.
    CDecimal half;
    if (decimalPlaces < PlacesLimit()) half = CDecimal(CBigInteger(), CBigInteger(5), decimalPlaces + 1);
    CDecimal const sum = m_integerPart.m_sign < 0 ? *this - half : *this + half;

    wstring text = sum.m_integerPart.m_sign < 0 ? u"-" : u"";
    Magnitude::AppendText(text, sum.m_integerPart.m_digits);
    text += u'.';
    wstring fraction;
    Magnitude::AppendText(fraction, sum.m_fractionPart.m_digits,
                          static_cast<std::size_t>(sum.m_fractionalDivider));
    return text.append(fraction, 0, static_cast<std::size_t>(decimalPlaces));
}

std::int64_t CDecimal::ToLongLong() const {
    CDecimal rounded = *this;
    rounded.ChangeFractionalDivider(1);
    CBigInteger const& integer = rounded.m_integerPart;
    if (integer < CBigInteger::MIN_LONGLONG || integer > CBigInteger::MAX_LONGLONG)
        throw CBxOverFlowException(u"The Decimal value if to large to fit into a LONGLONG");
    return static_cast<long long>(integer);
}

std::int32_t CDecimal::ToLong() const {
    CBigInteger const integer = ToBigInteger();
    if (integer < CBigInteger::MIN_LONG || integer > CBigInteger::MAX_LONG)
        throw CBxOverFlowException(u"The Decimal value if to large to fit into a LONG");
    return static_cast<int>(integer);
}

double CDecimal::ToDouble() const {
    if (m_integerPart < CBigInteger::MIN_DOUBLE || m_integerPart > CBigInteger::MAX_DOUBLE)
        throw CBxOverFlowException(u"The Decimal value if to large to fit into a Double");
    std::string const text = ToUtf8(ToString());
    double value = 0;  // which stays where the value is nearer to 0 than to any other
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

CBigInteger CDecimal::ToBigInteger() const {
    CDecimal rounded = *this;
    rounded.ChangeFractionalDivider(0);
    return std::move(rounded.m_integerPart);
}

CDecimal CDecimal::GetNegative() const {
    CDecimal negative = *this;
    negative.Negate();
    return negative;
}

void CDecimal::Negate() {
    m_integerPart.Negate();
    if (!m_fractionPart.IsZero()) m_fractionPart.Negate();
}

CDecimal CDecimal::Plus(CDecimal const& other, int otherSign) const {
    int const places = std::max(m_fractionalDivider, other.m_fractionalDivider);
    auto const a = Short(places), b = other.Short(places);
    std::int64_t sum = 0;
    if (a && b && !__builtin_add_overflow(*a, otherSign * *b, &sum)) return FromShort(sum, places);
    CBigInteger addend = other.Scaled(places);
    if (otherSign < 0) addend.Negate();
    return FromScaled(Scaled(places) + addend, static_cast<std::size_t>(places));
}

CDecimal CDecimal::operator+(CDecimal const& other) const {
    return Plus(other, 1);
}

CDecimal CDecimal::operator-(CDecimal const& other) const {
    return Plus(other, -1);
}

CDecimal CDecimal::operator*(CDecimal const& other) const {
    int const limit = PlacesLimit();
    int const places = m_fractionalDivider + other.m_fractionalDivider;
    if (places <= std::min(limit, kShortPlaces)) {
        auto const a = Short(m_fractionalDivider), b = other.Short(other.m_fractionalDivider);
        std::int64_t scaled = 0;
        if (a && b && !__builtin_mul_overflow(*a, *b, &scaled)) return FromShort(scaled, places);
    }
    CDecimal product = FromScaled(Scaled(m_fractionalDivider) * other.Scaled(other.m_fractionalDivider),
                                  static_cast<std::size_t>(places));
    product.Cap(limit);
    return product;
}

CDecimal CDecimal::operator/(CDecimal const& other) const {
    int const places = std::max(m_fractionalDivider, other.m_fractionalDivider);
    int const limit = PlacesLimit();
    std::size_t const kept = static_cast<std::size_t>(limit) + kGuardPlaces;
    CBigInteger dividend = Scaled(places);
    Magnitude::ScaleUp(dividend.m_digits, kept);
    CDecimal quotient = FromScaled(dividend / other.Scaled(places), kept);
    quotient.Cap(limit);
    return quotient;
}

CDecimal& CDecimal::operator+=(CDecimal const& other) {
    return *this = *this + other;
}

CDecimal& CDecimal::operator-=(CDecimal const& other) {
    return *this = *this - other;
}

CDecimal& CDecimal::operator*=(CDecimal const& other) {
    return *this = *this * other;
}

CDecimal& CDecimal::operator/=(CDecimal const& other) {
    return *this = *this / other;
}

CDecimal& CDecimal::operator++() {
    return *this += 1;
}

CDecimal& CDecimal::operator--() {
    return *this -= 1;
}

CDecimal CDecimal::operator++(int) const {
    return *this + 1;
}

CDecimal CDecimal::operator--(int) const {
    return *this - 1;
}

int CDecimal::Order(CDecimal const& other) const {
    int const integers = m_integerPart.Order(other.m_integerPart);
    if (integers != 0) return integers;
    int const places = std::max(m_fractionalDivider, other.m_fractionalDivider);
    return ScaledFraction(places).Order(other.ScaledFraction(places));
}

bool CDecimal::operator==(CDecimal const& other) const {
    return m_integerPart == other.m_integerPart && m_fractionPart == other.m_fractionPart &&
           m_fractionalDivider == other.m_fractionalDivider;
}

bool CDecimal::operator!=(CDecimal const& other) const {
    return !(*this == other);
}

bool CDecimal::operator<(CDecimal const& other) const {
    return Order(other) < 0;
}

bool CDecimal::operator>(CDecimal const& other) const {
    return Order(other) > 0;
}

bool CDecimal::operator<=(CDecimal const& other) const {
    return Order(other) <= 0;
}

bool CDecimal::operator>=(CDecimal const& other) const {
    return Order(other) >= 0;
}

}  // namespace BxXmlLib5
