// The part of CBigInteger that works on vectors of digits.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string_view>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/values/CBigInteger.h"
#include "platform/TextView.h"
#include "values/Magnitude.h"

namespace BxXmlLib5 {

namespace {

using Digits = std::vector<char16_t>;

Magnitude::Limbs FromDigits(Digits const& digits) {
    wstring text;
    text.reserve(digits.size());
    std::transform(digits.rbegin(), digits.rend(), std::back_inserter(text),
                   [](char16_t digit) { return static_cast<char16_t>(u'0' + digit); });
    return Magnitude::FromText(std::u16string_view(text));
}

Digits ToDigits(Magnitude::Limbs const& limbs) {
    wstring text;
    Magnitude::AppendText(text, limbs);
    Digits digits(text.rbegin(), text.rend());
    for (char16_t& digit : digits) digit = static_cast<char16_t>(digit - u'0');
    return digits;
}

/// The magnitude of a value to an integer, halves toward zero.
Magnitude::Limbs FromDouble(double value) {
    if (!std::isfinite(value)) throw CBxInvalidValueException(u"ERROR: Domain in function BuildDouble()!");
    value = std::fabs(value);
    double whole = std::floor(value);
    if (value - whole > 0.5) whole += 1;
    char digits[320];  // the greatest double has 309
    char* const end = std::to_chars(digits, std::end(digits), whole, std::chars_format::fixed, 0).ptr;
    return Magnitude::FromText(std::string_view(digits, end));
}

}  // namespace

CBigInteger::CBigInteger(double value) : m_sign(value < 0 ? -1 : 1), m_digits(FromDouble(value)) {}

CBigInteger::CBigInteger(int sign, Digits const& digits) : m_sign(sign), m_digits(FromDigits(digits)) {}

void CBigInteger::Build(unsigned int value, Digits& result) {
    BuildDWORDLONG(value, result);
}

void CBigInteger::BuildDWORDLONG(std::uint64_t value, Digits& result) {
    result = ToDigits(Magnitude::FromInteger(value));
}

void CBigInteger::BuildDouble(double value, Digits& result) {
    result = ToDigits(FromDouble(value));
}

void CBigInteger::Build(wstring const& text, Digits& result) {
    auto const end = std::find_if_not(text.rbegin(), text.rend(), IsDigit);
    result.assign(text.rbegin(), end);
    for (char16_t& digit : result) digit = static_cast<char16_t>(digit - u'0');
    Clean(result);
}

void CBigInteger::Clean(Digits& digits) {
    while (!digits.empty() && digits.back() == 0) digits.pop_back();
    if (digits.empty()) digits.push_back(0);
}

int CBigInteger::Compare(Digits const& a, Digits const& b) {
    return Magnitude::Compare(FromDigits(a), FromDigits(b));
}

void CBigInteger::Add(Digits const& a, Digits const& b, Digits& result) {
    result = ToDigits(Magnitude::Add(FromDigits(a), FromDigits(b)));
}

void CBigInteger::Subtract(Digits const& a, Digits const& b, Digits& result) {
    result = ToDigits(Magnitude::Subtract(FromDigits(a), FromDigits(b)));
}

void CBigInteger::Multiply(Digits const& a, char16_t digit, Digits& result) {
    Multiply(a, Digits(1, digit), result);
}

void CBigInteger::Multiply(Digits const& a, Digits const& b, Digits& result) {
    result = ToDigits(Magnitude::Multiply(FromDigits(a), FromDigits(b)));
}

void CBigInteger::ShiftLeft(Digits& digits, int n) {
    if (n > 0) digits.insert(digits.begin(), static_cast<std::size_t>(n), 0);
}

int CBigInteger::Position(Digits const& digits) {
    return std::max(static_cast<int>(digits.size()), 1);
}

void CBigInteger::Pow10(unsigned int n, Digits& result) {
    result.assign(n, 0);
    result.push_back(1);
}

void CBigInteger::Divide(Digits const& dividend, Digits const& divisor, Digits& quotient, Digits& remainder) {
    Magnitude::Division const division = Magnitude::Divide(FromDigits(dividend), FromDigits(divisor));
    quotient = ToDigits(division.quotient);
    remainder = ToDigits(division.remainder);
}

}  // namespace BxXmlLib5
