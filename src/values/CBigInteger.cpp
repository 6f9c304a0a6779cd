#include "BxXmlLib5/values/CBigInteger.h"

#include <algorithm>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/values/CDecimal.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"
#include "platform/TextView.h"
#include "values/DecimalText.h"
#include "values/Magnitude.h"
#include "values/NumberText.h"

namespace BxXmlLib5 {

namespace {

constexpr std::u16string_view kDigits = u"0123456789";

bool IsPlain(char16_t c) {
    return IsDigit(c) || IsSign(c) || CWhitespaceUtils::IsWhiteSpace(c);
}

/// A minus sign counts behind spaces alone, not behind the other kinds of whitespace.
bool BeginsWithMinus(std::u16string_view text) {
    std::size_t const first = text.find_first_not_of(u' ');
    return first != text.npos && text[first] == u'-';
}

/// The last run of digits; empty if there is none.
std::u16string_view LastDigits(std::u16string_view text) {
    std::size_t const last = text.find_last_of(kDigits);
    if (last == text.npos) return {};
    auto const sign = std::find_if(text.begin() + static_cast<std::ptrdiff_t>(last), text.end(), IsSign);
    if (sign != text.end()) ThrowInvalidDecimal(text, static_cast<std::size_t>(sign - text.begin()));
    std::size_t const first = text.find_last_not_of(kDigits, last) + 1;
    return text.substr(first, last + 1 - first);
}

}  // namespace

CBigInteger::CBigInteger(int sign, CLimbs limbs) : m_sign(sign), m_digits(std::move(limbs)) {}

CBigInteger::CBigInteger(long long value)
    : m_sign(value < 0 ? -1 : 1),
      m_digits(Magnitude::FromInteger(value < 0 ? 0 - static_cast<std::uint64_t>(value)
                                                : static_cast<std::uint64_t>(value))) {}

CBigInteger::CBigInteger(unsigned long long value) : m_digits(Magnitude::FromInteger(value)) {}

CBigInteger::CBigInteger(CDecimal const& value) : CBigInteger(value.ToBigInteger()) {}

CBigInteger::CBigInteger(char16_t const* text) {
    Parse(TextOf(text));
}

CBigInteger::CBigInteger(std::u16string_view text) {
    Parse(text);
}

void CBigInteger::Parse(char16_t const* text) {
    Parse(TextOf(text));
}

void CBigInteger::Parse(std::u16string_view text) {
    if (std::all_of(text.begin(), text.end(), IsDigit)) {
        *this = CBigInteger(1, Magnitude::FromText(text));
        return;
    }
    bool const isPlain = std::all_of(text.begin(), text.end(), IsPlain);
    *this = isPlain ? CBigInteger(BeginsWithMinus(text) ? -1 : 1, Magnitude::FromText(LastDigits(text)))
                    : CDecimal(text).ToBigInteger();
}

wstring CBigInteger::ToString() const {
    wstring text;
    if (m_sign < 0 && !IsZero()) text += u'-';
    Magnitude::AppendText(text, m_digits);
    return text;
}

CBigInteger CBigInteger::GetAbs() const {
    return {1, m_digits};
}

void CBigInteger::Abs() {
    m_sign = 1;
}

CBigInteger CBigInteger::GetNegative() const {
    return {-m_sign, m_digits};
}

void CBigInteger::Negate() {
    m_sign = -m_sign;
}

CBigInteger& CBigInteger::operator-() {
    Negate();
    return *this;
}

CBigInteger CBigInteger::Plus(CBigInteger const& other, int otherSign) const {
    if (m_sign == otherSign) return {m_sign, Magnitude::Add(m_digits, other.m_digits)};
    int const order = Magnitude::Compare(m_digits, other.m_digits);
    if (order == 0) return {};
    return order > 0 ? CBigInteger(m_sign, Magnitude::Subtract(m_digits, other.m_digits))
                     : CBigInteger(otherSign, Magnitude::Subtract(other.m_digits, m_digits));
}

CBigInteger CBigInteger::Quotient(CBigInteger const& other) const {
    Magnitude::Limbs quotient = Magnitude::Divide(m_digits, other.m_digits).quotient;
    return {IsZero() || m_sign == other.m_sign ? 1 : -1, std::move(quotient)};
}

CBigInteger CBigInteger::Remainder(CBigInteger const& other) const {
    return {IsZero() ? 1 : m_sign, Magnitude::Divide(m_digits, other.m_digits).remainder};
}

CBigInteger CBigInteger::operator+(CBigInteger const& other) const {
    return Plus(other, other.m_sign);
}

CBigInteger CBigInteger::operator-(CBigInteger const& other) const {
    return Plus(other, -other.m_sign);
}

CBigInteger CBigInteger::operator*(CBigInteger const& other) const {
    return {m_sign * other.m_sign, Magnitude::Multiply(m_digits, other.m_digits)};
}

CBigInteger CBigInteger::operator/(CBigInteger const& other) const {
    return Quotient(other);
}

CBigInteger CBigInteger::operator%(CBigInteger const& other) const {
    if (!other.IsPositive()) throw CBxInvalidValueException(u"ERROR: Overflow in operator%!");
    return Remainder(other);
}

CBigInteger& CBigInteger::operator+=(CBigInteger const& other) {
    return *this = *this + other;
}

CBigInteger& CBigInteger::operator-=(CBigInteger const& other) {
    return *this = *this - other;
}

CBigInteger& CBigInteger::operator*=(CBigInteger const& other) {
    return *this = *this * other;
}

CBigInteger& CBigInteger::operator/=(CBigInteger const& other) {
    if (!other.IsPositive()) throw CBxInvalidValueException(u"ERROR: Overflow in operator /=!");
    return *this = Quotient(other);
}

CBigInteger& CBigInteger::operator%=(CBigInteger const& other) {
    if (!other.IsPositive()) throw CBxInvalidValueException(u"ERROR: Overflow in operator%=!");
    return *this = Remainder(other);
}

int CBigInteger::Order(CBigInteger const& other) const {
    if (m_sign != other.m_sign) return m_sign < other.m_sign ? -1 : 1;
    return m_sign * Magnitude::Compare(m_digits, other.m_digits);
}

bool CBigInteger::operator==(CBigInteger const& other) const {
    return m_digits == other.m_digits && (IsZero() || m_sign == other.m_sign);
}

bool CBigInteger::operator!=(CBigInteger const& other) const {
    return !(*this == other);
}

bool CBigInteger::operator<(CBigInteger const& other) const {
    return Order(other) < 0;
}

bool CBigInteger::operator>(CBigInteger const& other) const {
    return Order(other) > 0;
}

bool CBigInteger::operator<=(CBigInteger const& other) const {
    return Order(other) <= 0;
}

bool CBigInteger::operator>=(CBigInteger const& other) const {
    return Order(other) >= 0;
}

long long CBigInteger::ToInteger(CBigInteger const& least, CBigInteger const& most) const {
    if (*this < least || *this > most) throw CBxInvalidValueException(u"ERROR: Domain in operator int()!");
    return static_cast<long long>(m_sign < 0 ? 0 - Magnitude::ToInteger(m_digits)
                                             : Magnitude::ToInteger(m_digits));
}

CBigInteger::operator int() const {
    return static_cast<int>(ToInteger(MIN_LONG, MAX_LONG));
}

CBigInteger::operator long() const {
    return static_cast<long>(ToInteger(MIN_LONGLONG, MAX_LONGLONG));
}

CBigInteger::operator long long() const {
    return ToInteger(MIN_LONGLONG, MAX_LONGLONG);
}

CBigInteger CBigInteger::SquareRoot() const {
    if (m_sign < 0 && !IsZero())
        throw CBxInvalidValueException(u"ERROR: Negative Number in function SquareRoot()!");
    // Newton's iteration from above: from a power of 10 that is greater than the root, down to it.
    CBigInteger const two(2);
    std::size_t const digits = std::max<std::size_t>(Magnitude::CountDigits(m_digits), 1);
    CBigInteger previous;
    CBigInteger estimate = Pow10(static_cast<unsigned int>(1 + (digits - 1) / 2));
    do {
        previous = std::move(estimate);
        estimate = (previous + *this / previous) / two;
    } while (estimate < previous);
    return previous;
}

CBigInteger CBigInteger::Pow10(unsigned int n) {
    CBigInteger power(1);
    Magnitude::ScaleUp(power.m_digits, n);
    return power;
}

}  // namespace BxXmlLib5
