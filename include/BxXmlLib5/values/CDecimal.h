// Decimal numbers.
#pragma once

#include <atomic>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CBigInteger.h"

namespace BxXmlLib5 {

class CLongDecimal;

/// A value of the type `decimal` (XML Schema Part 2, 3.2.3): an integer part of unlimited size and a fraction
/// whose decimal places are limited for the whole process, to 30 unless SetMaxDecimalPlaces says otherwise.
///
/// Text, products and quotients with more places are rounded to the limit, a half toward zero; sums keep all
/// places. 1.50 and 1.5 are held alike.
///
/// As with CBigInteger, zero may carry a minus sign, as from the text "-0": ToString and == ignore it, and by
/// the operators that order, -0 is less than 0.
class BXXMLLIB5_API CDecimal {
public:
    /// Zero.
    CDecimal() = default;
    /// @{
    /// Any integer of a native type.
    CDecimal(int value) : m_number{value} {}
    CDecimal(long value) : m_number{value} {}
    CDecimal(long long value) : m_number{value} {}
    CDecimal(unsigned value) : m_number{value} {}
    CDecimal(unsigned long value);
    CDecimal(unsigned long long value);
    /// @}
    /// The double to 13 decimal places.
    /// @throws CBxInvalidValueException for infinity and not-a-number
    CDecimal(double value);
    /// The integer, of any size.
    CDecimal(CBigInteger const& value);

    /// @{
    /// The value of a text: digits, with a point and an exponent if need be.
    ///
    /// Among the digits before the point, and between the letter of the exponent and its digits, stand signs,
    /// of which the last holds, and space, TAB, CR and LF; among the digits behind the point, spaces of these
    /// four kinds alone. No digits are 0, and no digits behind the letter are no exponent, so the empty text
    /// is 0. A negative exponent divides: the quotient is cut two places behind the limit, and then rounded.
    ///
    /// @throws CBxInvalidValueException for any other text, a unit of value 0 in a view included
    /// @throws CBxOverFlowException if the exponent adds more than 10,000 zeros to the digits
    CDecimal(char16_t const* text);
    explicit CDecimal(std::u16string_view text);
    /// @}

    /// The value of a literal of the type: a sign, and digits with a point among or beside them.
    /// @return none for any other text
    static std::optional<CDecimal> FromLiteral(std::u16string_view text);

    /// Copies the value.
    CDecimal(CDecimal const& other)
        : m_number(other.m_number), m_places(other.m_places), m_isMinusZero(other.m_isMinusZero) {
        if (IsLong()) CopyLong(other);
    }
    /// Leaves the other object zero.
    CDecimal(CDecimal&& other) noexcept { Swap(other); }
    /// Copies the value; if that fails, the object keeps its own.
    CDecimal& operator=(CDecimal const& other) {
        CDecimal copy = other;
        Swap(copy);
        return *this;
    }
    /// Leaves the other object zero.
    CDecimal& operator=(CDecimal&& other) noexcept {
        CDecimal taken = std::move(other);
        Swap(taken);
        return *this;
    }
    ~CDecimal() {
        if (IsLong()) DropLong();
    }

    /// @{
    /// The limit of decimal places. It is not tested; below 0 it works like 0, for integers, and above
    /// 5,000,000 like that. It may be changed while other threads calculate: each operation keeps to one
    /// limit, that before or that after.
    static int GetMaxDecimalPlaces();
    static void SetMaxDecimalPlaces(int places);
    /// @}

    /// The shortest text of the value, without an exponent.
    wstring ToString() const;
    /// Appends what ToString() gives.
    void AppendTo(wstring& text) const;
    /// The value with so many decimal places, rounded half away from zero. The point always stands: 12.6 to
    /// no place is "13.". There can be fewer places for a value that lies on a half, as 1.9995 to three
    /// places is "2.0", and from the limit of decimal places on, where nothing is rounded and no zeros are
    /// filled in.
    /// @throws CBxInvalidParamException for a negative number of places
    wstring ToString(int decimalPlaces) const;

    /// Rounded to one decimal place, a half toward zero, then cut to an integer: 1.6 is 1.
    /// @throws CBxOverFlowException if it does not fit
    std::int64_t ToLongLong() const;
    /// Rounded to an integer, a half toward zero: 1.6 is 2.
    /// @throws CBxOverFlowException if it does not fit
    std::int32_t ToLong() const;
    /// @throws CBxOverFlowException beyond CBigInteger::MIN_DOUBLE and MAX_DOUBLE
    double ToDouble() const;
    /// Rounded to an integer, a half toward zero.
    CBigInteger ToBigInteger() const;

    /// The value with the other sign; that of 0 is -0.
    CDecimal GetNegative() const;
    /// Changes the sign, that of 0 too.
    void Negate();

    /// @{
    /// Sums and differences are exact; products are rounded to the limit of decimal places, a half toward
    /// zero.
    CDecimal operator+(CDecimal const& other) const;
    CDecimal operator-(CDecimal const& other) const;
    CDecimal operator*(CDecimal const& other) const;
    /// @}
    /// Cut two places behind the limit of decimal places, then rounded.
    /// @throws CBxInvalidValueException if the right operand is 0
    CDecimal operator/(CDecimal const& other) const;

    /// @{
    /// As the operators without assignment.
    CDecimal& operator+=(CDecimal const& other);
    CDecimal& operator-=(CDecimal const& other);
    CDecimal& operator*=(CDecimal const& other);
    /// @}
    /// @throws CBxInvalidValueException if the right operand is 0
    CDecimal& operator/=(CDecimal const& other);

    /// @{
    /// Adds or subtracts 1.
    CDecimal& operator++();
    CDecimal& operator--();
    /// @}
    /// The value plus 1. The object keeps its value, unlike that of a native type.
    CDecimal operator++(int) const;
    /// The value minus 1. The object keeps its value, unlike that of a native type.
    CDecimal operator--(int) const;

    /// @{
    /// By value: 1.50 equals 1.5. `==` takes -0 and 0 for equal, `<` has -0 first.
    bool operator==(CDecimal const& other) const;
    bool operator!=(CDecimal const& other) const;
    bool operator<(CDecimal const& other) const;
    bool operator>(CDecimal const& other) const;
    bool operator<=(CDecimal const& other) const;
    bool operator>=(CDecimal const& other) const;
    /// @}
    /// The order of `<`, so that -0 comes before 0, although == takes them for equal. Converts neither operand.
    template <std::same_as<CDecimal> T>
    friend std::strong_ordering operator<=>(T const& a, T const& b) {
        return a.Order(b) <=> 0;
    }

private:
    /// A number that is short enough, as nearly all are, is an integer divided by 10 to the power of its places,
    /// of which there are as few as possible. What is not is a long one.
    union Number {
        std::int64_t m_scaled;
        CLongDecimal* m_long;
    };

    static constexpr std::int8_t kIsLong = -1;

    CDecimal(std::int64_t scaled, int places);
    CDecimal(CLongDecimal&& number);

    bool IsLong() const { return m_places == kIsLong; }
    void CopyLong(CDecimal const& other);
    void DropLong();
    void Swap(CDecimal& other) noexcept {
        std::swap(m_number, other.m_number);
        std::swap(m_places, other.m_places);
        std::swap(m_isMinusZero, other.m_isMinusZero);
    }

    CLongDecimal Long() const;
    /// The value times 10 to a power, if it is short.
    /// @param places at least those of the number
    std::optional<std::int64_t> Scaled(int places) const;

    /// The limit of decimal places that is in effect, whatever has been set. An operation reads it once.
    static int PlacesLimit();

    void Parse(std::u16string_view text);
    bool ParsePlain(std::u16string_view text, int limit);
    CDecimal Plus(CDecimal const& other, int otherSign) const;
    /// -1, 0 or 1, as the operators order.
    int Order(CDecimal const& other) const;

    static std::atomic<int> m_maxDivider;

    Number m_number{0};
    std::int8_t m_places = 0;  // kIsLong for a long one
    bool m_isMinusZero = false;
};

}  // namespace BxXmlLib5
