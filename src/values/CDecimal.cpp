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
#include "values/CLongDecimal.h"
#include "values/DigitText.h"
#include "values/Magnitude.h"
#include "values/NumberText.h"

namespace BxXmlLib5 {

namespace {

__extension__ typedef __int128 Wide;
__extension__ typedef unsigned __int128 UnsignedWide;

/// The places of a double.
constexpr int kDoublePlaces = 13;

constexpr std::uint64_t PowerOf10(int places) {
    return Magnitude::kPowersOf10[static_cast<std::size_t>(places)];
}

/// The product of a double and 10 to the power of its places, rounded half to even as std::to_chars rounds.
/// @param value at least 0
/// @return nothing for a value whose product has more than 63 bits, and for infinity and not-a-number
std::optional<std::int64_t> ScaledDouble(double value) {
    constexpr int kMantissaBits = 53;
    if (!(value < 1 << 19)) return std::nullopt;
    int exponent = 0;
    double const mantissa = std::ldexp(std::frexp(value, &exponent), kMantissaBits);
    int const shift = kMantissaBits - exponent;
    if (shift > 100) return 0;  // far below half a unit
    UnsignedWide const product =
        UnsignedWide{static_cast<std::uint64_t>(mantissa)} * PowerOf10(kDoublePlaces);
    UnsignedWide const half = UnsignedWide{1} << (shift - 1);
    UnsignedWide const rest = product % (2 * half);
    auto const scaled = static_cast<std::int64_t>(product >> shift);
    return rest > half || (rest == half && scaled % 2 != 0) ? scaled + 1 : scaled;
}

}  // namespace

constinit std::atomic<int> CDecimal::m_maxDivider = 30;

CDecimal::CDecimal(std::int64_t scaled, int places) {
    for (; places > 0 && scaled % 10 == 0; --places) scaled /= 10;
    m_number.m_scaled = scaled;
    m_places = static_cast<std::int8_t>(places);
}

CDecimal::CDecimal(CLongDecimal&& number) {
    if (auto const inShort = number.ToShort()) {
        m_number.m_scaled = inShort->m_scaled;
        m_places = static_cast<std::int8_t>(inShort->m_places);
        m_isMinusZero = inShort->m_isMinusZero;
    } else {
        m_number.m_long = new CLongDecimal(std::move(number));
        m_places = kIsLong;
    }
}

CDecimal::CDecimal(unsigned long value) : CDecimal(CBigInteger(value)) {}
CDecimal::CDecimal(unsigned long long value) : CDecimal(CBigInteger(value)) {}
CDecimal::CDecimal(CBigInteger const& value) : CDecimal(CLongDecimal(value)) {}

CDecimal::CDecimal(double value) {
    if (auto const scaled = ScaledDouble(std::fabs(value)); scaled && PlacesLimit() >= kDoublePlaces) {
        *this = CDecimal(*scaled, kDoublePlaces);
        if (std::signbit(value)) Negate();
        return;
    }
    char digits[400];  // the greatest double has 309 before the point
    char* const end =
        std::to_chars(digits, std::end(digits), value, std::chars_format::fixed, kDoublePlaces).ptr;
    Parse(Widen({digits, end}));
}

CDecimal::CDecimal(char16_t const* text) {
    Parse(TextOf(text));
}

CDecimal::CDecimal(std::u16string_view text) {
    Parse(text);
}

void CDecimal::CopyLong(CDecimal const& other) {
    m_number.m_long = new CLongDecimal(*other.m_number.m_long);
}

void CDecimal::DropLong() {
    delete m_number.m_long;
}

CLongDecimal CDecimal::Long() const {
    if (IsLong()) return *m_number.m_long;
    return CLongDecimal(CLongDecimal::Short{m_number.m_scaled, m_places, m_isMinusZero});
}

int CDecimal::GetMaxDecimalPlaces() {
    return m_maxDivider.load(std::memory_order_relaxed);
}

void CDecimal::SetMaxDecimalPlaces(int places) {
    m_maxDivider.store(places, std::memory_order_relaxed);
}

int CDecimal::PlacesLimit() {
    return std::clamp(m_maxDivider.load(std::memory_order_relaxed), 0, kMaxDecimalPlaces);
}

namespace {

/// Moves past digits and appends them to a number.
std::uint64_t TakeDigits(std::u16string_view text, std::size_t& at, std::uint64_t number) {
    for (; at < text.size() && IsDigit(text[at]); ++at) number = number * 10 + (text[at] - u'0');
    return number;
}

/// Whether a text is a sign and digits with a point among or beside them.
bool IsLiteral(std::u16string_view text) {
    std::size_t at = 0;
    TakeSign(text, at);
    text.remove_prefix(at);
    std::size_t const whole = SkipDigits(text, 0);
    if (whole == text.size()) return whole > 0;
    return text[whole] == u'.' && text.size() > 1 && SkipDigits(text, whole + 1) == text.size();
}

}  // namespace

/// Reads the form that nearly all texts have: a sign and few digits, with a point among or beside them.
/// @return false if the text has another form or more places than the limit
bool CDecimal::ParsePlain(std::u16string_view text, int limit) {
    constexpr std::size_t kMostUnits = 19;  // whose digits 64 bits hold
    std::size_t at = 0;
    bool const isNegative = TakeSign(text, at);
    std::size_t const units = text.size() - at;
    if (units > kMostUnits) return false;
    std::uint64_t scaled = TakeDigits(text, at, 0);
    std::size_t places = 0;
    if (at < text.size() && text[at] == u'.') {
        if (units == 1) return false;
        std::size_t const behindPoint = ++at;
        scaled = TakeDigits(text, at, scaled);
        places = at - behindPoint;
    }
    if (at < text.size() || units == 0 || scaled > INT64_MAX) return false;
    auto const value = static_cast<std::int64_t>(scaled);
    CDecimal number(isNegative ? -value : value, static_cast<int>(places));
    if (number.m_places > limit) return false;
    number.m_isMinusZero = isNegative && value == 0;
    Swap(number);
    return true;
}

void CDecimal::Parse(std::u16string_view text) {
    int const limit = PlacesLimit();
    if (!ParsePlain(text, limit)) *this = CDecimal(CLongDecimal(text, limit));
}

std::optional<CDecimal> CDecimal::FromLiteral(std::u16string_view text) {
    std::optional<CDecimal> value(std::in_place);
    int const limit = PlacesLimit();
    if (value->ParsePlain(text, limit)) return value;
    if (!IsLiteral(text)) return std::nullopt;
    return CDecimal(CLongDecimal(text, limit));
}

wstring CDecimal::ToString() const {
    wstring text;
    AppendTo(text);
    return text;
}

void CDecimal::AppendTo(wstring& text) const {
    if (IsLong()) return m_number.m_long->AppendTo(text);
    char16_t units[24];  // a sign, 19 digits or one ahead of 18, a point
    char16_t* const end = std::end(units);
    char16_t* first = end;
    auto const bits = static_cast<std::uint64_t>(m_number.m_scaled);
    std::uint64_t rest = m_number.m_scaled < 0 ? 0 - bits : bits;
    if (m_places > 0) {
        std::uint64_t const unit = PowerOf10(m_places);
        first = PutDigits(first, rest % unit, static_cast<std::size_t>(m_places));
        *--first = u'.';
        rest /= unit;
    }
    first = PutDigits(first, rest, 1);
    if (m_number.m_scaled < 0) *--first = u'-';
    text.append(first, end);
}

wstring CDecimal::ToString(int decimalPlaces) const {
    if (decimalPlaces < 0)
        throw CBxInvalidParamException(FormatString(u"Invalid number of decimal places [%d]", decimalPlaces));
    return Long().ToString(decimalPlaces, PlacesLimit());
}

std::int64_t CDecimal::ToLongLong() const {
    return Long().ToLongLong();
}

std::int32_t CDecimal::ToLong() const {
    CBigInteger const integer = ToBigInteger();
    if (integer < CBigInteger::MIN_LONG || integer > CBigInteger::MAX_LONG)
        throw CBxOverFlowException(u"The Decimal value if to large to fit into a LONG");
    return static_cast<int>(integer);
}

double CDecimal::ToDouble() const {
    if (IsLong() && m_number.m_long->IsBeyondDouble())
        throw CBxOverFlowException(u"The Decimal value if to large to fit into a Double");
    std::string const text = ToUtf8(ToString());
    double value = 0;  // which stays where the value is nearer to 0 than to any other
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

CBigInteger CDecimal::ToBigInteger() const {
    return Long().ToBigInteger();
}

CDecimal CDecimal::GetNegative() const {
    CDecimal negative = *this;
    negative.Negate();
    return negative;
}

void CDecimal::Negate() {
    std::int64_t negative = 0;
    if (IsLong() || __builtin_sub_overflow(0, m_number.m_scaled, &negative)) {
        CLongDecimal number = Long();
        number.Negate();
        *this = CDecimal(std::move(number));
    } else {
        m_isMinusZero = negative == 0 && !m_isMinusZero;
        m_number.m_scaled = negative;
    }
}

std::optional<std::int64_t> CDecimal::Scaled(int places) const {
    std::int64_t scaled = 0;
    bool const isShort =
        !IsLong() && !__builtin_mul_overflow(m_number.m_scaled, PowerOf10(places - m_places), &scaled);
    return isShort ? std::optional(scaled) : std::nullopt;
}

CDecimal CDecimal::Plus(CDecimal const& other, int otherSign) const {
    int const places = std::max(m_places, other.m_places);
    if (auto const a = Scaled(places), b = other.Scaled(places); a && b) {
        std::int64_t sum = 0;
        bool const overflows =
            otherSign < 0 ? __builtin_sub_overflow(*a, *b, &sum) : __builtin_add_overflow(*a, *b, &sum);
        if (!overflows) return {sum, places};
    }
    return Long().Plus(other.Long(), otherSign);
}

CDecimal CDecimal::operator+(CDecimal const& other) const {
    return Plus(other, 1);
}

CDecimal CDecimal::operator-(CDecimal const& other) const {
    return Plus(other, -1);
}

CDecimal CDecimal::operator*(CDecimal const& other) const {
    int const limit = PlacesLimit();
    int const places = m_places + other.m_places;
    std::int64_t product = 0;
    if (!IsLong() && !other.IsLong() && places <= std::min(limit, CLongDecimal::kShortPlaces) &&
        !__builtin_mul_overflow(m_number.m_scaled, other.m_number.m_scaled, &product))
        return {product, places};
    return Long().Times(other.Long(), limit);
}

CDecimal CDecimal::operator/(CDecimal const& other) const {
    return Long().DividedBy(other.Long(), PlacesLimit());
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
    if (IsLong() || other.IsLong()) return Long().Order(other.Long());
    int const places = std::max(m_places, other.m_places);
    Wide const a = Wide{m_number.m_scaled} * static_cast<std::int64_t>(PowerOf10(places - m_places));
    Wide const b =
        Wide{other.m_number.m_scaled} * static_cast<std::int64_t>(PowerOf10(places - other.m_places));
    if (a == b) return other.m_isMinusZero - m_isMinusZero;
    return a < b ? -1 : 1;
}

bool CDecimal::operator==(CDecimal const& other) const {
    // What 64 bits hold is never held as a long one.
    if (m_places != other.m_places) return false;
    return IsLong() ? *m_number.m_long == *other.m_number.m_long
                    : m_number.m_scaled == other.m_number.m_scaled;
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
