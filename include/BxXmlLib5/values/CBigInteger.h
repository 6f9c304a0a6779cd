// Integers of unlimited size.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CLimbs.h"

namespace BxXmlLib5 {

class CDecimal;

/// An integer of unlimited size: a value of the type `integer` and of those derived from it (XML Schema Part
/// 2, 3.3.13).
///
/// Magnitude and sign are separate, and zero may carry a minus sign: the product of -5 and 0, the quotient of
/// 1 and -2, and the text "-0" do. ToString and == ignore the sign of zero; the four operators that order see
/// it, so that -0 is less than 0.
///
/// Failures are CBxInvalidValueException, unless Parse says otherwise, and leave the object as it was.
class BXXMLLIB5_API CBigInteger {
public:
    /// The limits of the conversions to native types. They are ready in any file that includes this header,
    /// constructors of its static objects included.
    static CBigInteger const MAX_LONG;      ///< 2147483647
    static CBigInteger const MIN_LONG;      ///< -2147483648
    static CBigInteger const MAX_LONGLONG;  ///< 9223372036854775807
    static CBigInteger const MIN_LONGLONG;  ///< -9223372036854775808
    static CBigInteger const MAX_DOUBLE;    ///< 17 and 307 zeros
    static CBigInteger const MIN_DOUBLE;    ///< its negative

    /// Zero.
    CBigInteger() = default;
    CBigInteger(int value);
    CBigInteger(long value);
    CBigInteger(long long value);
    /// Rounded to an integer, halves toward zero. @throws for infinity and not-a-number
    CBigInteger(double value);
    /// Rounded as CDecimal::ToBigInteger does.
    CBigInteger(CDecimal const& value);
    /// Parse.
    CBigInteger(char16_t const* text);
    explicit CBigInteger(std::u16string_view text);

    CBigInteger(CBigInteger const& other) = default;
    CBigInteger& operator=(CBigInteger const& other) = default;
    /// Leaves the other object zero.
    CBigInteger(CBigInteger&& other) noexcept
        : m_sign(std::exchange(other.m_sign, 1)), m_digits(std::move(other.m_digits)) {}
    CBigInteger& operator=(CBigInteger&& other) noexcept {
        if (this == &other) return *this;
        m_sign = std::exchange(other.m_sign, 1);
        m_digits = std::move(other.m_digits);
        return *this;
    }

    /// Replaces the value by that of a text.
    ///
    /// Text with anything but digits, signs, space, TAB, CR and LF is that of a decimal, rounded to an
    /// integer: "12.6" is 13 and "1e3" is 1000. In other text only the last run of digits counts, and the
    /// number is negative if "-" is the first character that is no space: "1-2" is 2, and "- 2" is -2.
    /// Without a digit the value is 0.
    ///
    /// @throws CBxInvalidValueException for a sign behind the last digit, and as CDecimal's constructor does
    void Parse(char16_t const* text);
    void Parse(std::u16string_view text);
    wstring ToString() const;

    CBigInteger GetAbs() const;
    void Abs();
    CBigInteger GetNegative() const;
    void Negate();
    /// Changes the sign of the object itself, of which it returns a reference: after `b = -a`, both have it.
    CBigInteger& operator-();

    CBigInteger operator+(CBigInteger const& other) const;
    CBigInteger operator-(CBigInteger const& other) const;
    CBigInteger operator*(CBigInteger const& other) const;
    /// Truncates toward zero. @throws if the right operand is 0
    CBigInteger operator/(CBigInteger const& other) const;
    /// The sign is that of the left operand. @throws if the right operand is 0 or negative
    CBigInteger operator%(CBigInteger const& other) const;

    CBigInteger& operator+=(CBigInteger const& other);
    CBigInteger& operator-=(CBigInteger const& other);
    CBigInteger& operator*=(CBigInteger const& other);
    /// Unlike `/`, for positive divisors only. @throws if the right operand is 0 or negative
    CBigInteger& operator/=(CBigInteger const& other);
    /// @throws if the right operand is 0 or negative
    CBigInteger& operator%=(CBigInteger const& other);

    bool operator==(CBigInteger const& other) const;
    bool operator!=(CBigInteger const& other) const;
    bool operator<(CBigInteger const& other) const;
    bool operator>(CBigInteger const& other) const;
    bool operator<=(CBigInteger const& other) const;
    bool operator>=(CBigInteger const& other) const;

    /// @throws outside MIN_LONG to MAX_LONG
    operator int() const;
    /// @throws outside MIN_LONGLONG to MAX_LONGLONG
    operator long() const;
    operator long long() const;

    /// The integer part of the square root. @throws for 0 and for negative values
    CBigInteger SquareRoot() const;

    /// 10 to the power n.
    static CBigInteger Pow10(unsigned int n);

protected:
    /// Work on magnitudes for derived code: numbers without sign as their decimal digits, 0 to 9, the least
    /// significant first, with no 0 at the top except for zero, which is the single digit 0. Whatever a
    /// result holds before is lost, and a result may be one of the operands.
    using Digits = std::vector<char16_t>;

    /// @param sign 1 or -1
    CBigInteger(int sign, Digits const& digits);

    static void Build(unsigned int value, Digits& result);
    static void BuildDWORDLONG(std::uint64_t value, Digits& result);
    /// The magnitude, rounded to an integer, halves toward zero. @throws if it is not finite
    static void BuildDouble(double value, Digits& result);
    /// The run of digits at the end of a text.
    static void Build(wstring const& text, Digits& result);
    /// Removes zeros at the top, and gives an empty vector the digit 0.
    static void Clean(Digits& digits);
    /// -1, 0 or 1 for a less than, equal to, greater than b.
    static int Compare(Digits const& a, Digits const& b);
    static void Add(Digits const& a, Digits const& b, Digits& result);
    /// a - b; a must not be smaller than b.
    static void Subtract(Digits const& a, Digits const& b, Digits& result);
    static void Multiply(Digits const& a, char16_t digit, Digits& result);
    static void Multiply(Digits const& a, Digits const& b, Digits& result);
    /// Inserts n zeros at the bottom; none for n below 1.
    static void ShiftLeft(Digits& digits, int n);
    /// The number of digits, at least 1.
    static int Position(Digits const& digits);
    static void Pow10(unsigned int n, Digits& result);
    /// @throws if the divisor is 0
    static void Divide(Digits const& dividend, Digits const& divisor, Digits& quotient, Digits& remainder);

private:
    friend class CDecimal;

    CBigInteger(int sign, CLimbs limbs);

    bool IsZero() const { return m_digits.empty(); }
    bool IsPositive() const { return m_sign > 0 && !IsZero(); }
    /// -1, 0 or 1, by sign first, so that -0 is less than 0.
    int Order(CBigInteger const& other) const;
    CBigInteger Plus(CBigInteger const& other, int otherSign) const;
    CBigInteger Quotient(CBigInteger const& other) const;
    CBigInteger Remainder(CBigInteger const& other) const;
    long long ToInteger(CBigInteger const& least, CBigInteger const& most) const;

    int m_sign = 1;
    /// Nine decimal digits in each limb; zero has none.
    CLimbs m_digits;
};

inline CBigInteger const CBigInteger::MAX_LONG(u"2147483647");
inline CBigInteger const CBigInteger::MIN_LONG(u"-2147483648");
inline CBigInteger const CBigInteger::MAX_LONGLONG(u"9223372036854775807");
inline CBigInteger const CBigInteger::MIN_LONGLONG(u"-9223372036854775808");
inline CBigInteger const CBigInteger::MAX_DOUBLE(u"1.7E+308");
inline CBigInteger const CBigInteger::MIN_DOUBLE(u"-1.7E+308");

}  // namespace BxXmlLib5
