// Integers of unlimited size.
#pragma once

#include <algorithm>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

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
    /// @{
    /// Any integer of a native type.
    CBigInteger(int value) : CBigInteger(static_cast<long long>(value)) {}
    CBigInteger(long value) : CBigInteger(static_cast<long long>(value)) {}
    CBigInteger(long long value);
    CBigInteger(unsigned value) : CBigInteger(static_cast<unsigned long long>(value)) {}
    CBigInteger(unsigned long value) : CBigInteger(static_cast<unsigned long long>(value)) {}
    CBigInteger(unsigned long long value);
    /// @}
    /// Rounded to an integer, halves toward zero. @throws for infinity and not-a-number
    CBigInteger(double value);
    /// Rounded as CDecimal::ToBigInteger does.
    CBigInteger(CDecimal const& value);
    /// @{
    /// Parse.
    CBigInteger(char16_t const* text);
    explicit CBigInteger(std::u16string_view text);
    /// @}

    /// @{
    /// Copies the value.
    CBigInteger(CBigInteger const& other) = default;
    CBigInteger& operator=(CBigInteger const& other) = default;
    /// @}
    /// Leaves the other object zero.
    CBigInteger(CBigInteger&& other) noexcept
        : m_sign(std::exchange(other.m_sign, 1)), m_digits(std::move(other.m_digits)) {}
    /// Leaves the other object zero.
    CBigInteger& operator=(CBigInteger&& other) noexcept {
        if (this == &other) return *this;
        m_sign = std::exchange(other.m_sign, 1);
        m_digits = std::move(other.m_digits);
        return *this;
    }

    /// @{
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
    /// @}
    /// Decimal digits without a fill, behind a minus if the value is below 0.
    wstring ToString() const;

    /// The value with the sign plus.
    CBigInteger GetAbs() const;
    /// Sets the sign to plus.
    void Abs();
    /// The value with the other sign; that of 0 is -0.
    CBigInteger GetNegative() const;
    /// Changes the sign, that of 0 too.
    void Negate();
    /// Changes the sign of the object itself, of which it returns a reference: after `b = -a`, both have it.
    CBigInteger& operator-();

    /// @{
    /// Exact, whatever the size.
    CBigInteger operator+(CBigInteger const& other) const;
    CBigInteger operator-(CBigInteger const& other) const;
    CBigInteger operator*(CBigInteger const& other) const;
    /// @}
    /// Truncates toward zero. @throws if the right operand is 0
    CBigInteger operator/(CBigInteger const& other) const;
    /// The sign is that of the left operand. @throws if the right operand is 0 or negative
    CBigInteger operator%(CBigInteger const& other) const;

    /// @{
    /// As the operators without assignment.
    CBigInteger& operator+=(CBigInteger const& other);
    CBigInteger& operator-=(CBigInteger const& other);
    CBigInteger& operator*=(CBigInteger const& other);
    /// @}
    /// Unlike `/`, for positive divisors only. @throws if the right operand is 0 or negative
    CBigInteger& operator/=(CBigInteger const& other);
    /// @throws if the right operand is 0 or negative
    CBigInteger& operator%=(CBigInteger const& other);

    /// @{
    /// By value. `==` takes -0 and 0 for equal, `<` has -0 first.
    bool operator==(CBigInteger const& other) const;
    bool operator!=(CBigInteger const& other) const;
    bool operator<(CBigInteger const& other) const;
    bool operator>(CBigInteger const& other) const;
    bool operator<=(CBigInteger const& other) const;
    bool operator>=(CBigInteger const& other) const;
    /// @}
    /// The order of `<`, so that -0 comes before 0, although == takes them for equal. Converts neither operand.
    template <std::same_as<CBigInteger> T>
    friend std::strong_ordering operator<=>(T const& a, T const& b) {
        return a.Order(b) <=> 0;
    }

    /// @throws outside MIN_LONG to MAX_LONG
    operator int() const;
    /// @{
    /// @throws outside MIN_LONGLONG to MAX_LONGLONG
    operator long() const;
    operator long long() const;
    /// @}

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

    /// @{
    /// The digits of a number.
    static void Build(unsigned int value, Digits& result);
    static void BuildDWORDLONG(std::uint64_t value, Digits& result);
    /// @}
    /// The magnitude, rounded to an integer, halves toward zero. @throws if it is not finite
    static void BuildDouble(double value, Digits& result);
    /// The run of digits at the end of a text.
    static void Build(wstring const& text, Digits& result);
    /// Removes zeros at the top, and gives an empty vector the digit 0.
    static void Clean(Digits& digits);
    /// -1, 0 or 1 for a less than, equal to, greater than b.
    static int Compare(Digits const& a, Digits const& b);
    /// a + b.
    static void Add(Digits const& a, Digits const& b, Digits& result);
    /// a - b; a must not be smaller than b.
    static void Subtract(Digits const& a, Digits const& b, Digits& result);
    /// a times one digit, 0 to 9.
    static void Multiply(Digits const& a, char16_t digit, Digits& result);
    /// a times b.
    static void Multiply(Digits const& a, Digits const& b, Digits& result);
    /// Inserts n zeros at the bottom; none for n below 1.
    static void ShiftLeft(Digits& digits, int n);
    /// The number of digits, at least 1.
    static int Position(Digits const& digits);
    /// 10 to the power n.
    static void Pow10(unsigned int n, Digits& result);
    /// @throws if the divisor is 0
    static void Divide(Digits const& dividend, Digits const& divisor, Digits& quotient, Digits& remainder);

private:
    friend class CLongDecimal;
    friend struct LimbsAccess;

    /// The limbs of a magnitude, the least significant first: a vector of few operations, which is small and
    /// needs no heap for up to two limbs, since nearly all numbers of documents are that short.
    class CLimbs {
    public:
        CLimbs() noexcept {}
        /// None for 0.
        explicit CLimbs(std::uint32_t low, std::uint32_t high = 0) noexcept
            : m_size(high != 0  ? 2
                     : low != 0 ? 1
                                : 0) {
            m_storage.m_inPlace[0] = low;
            m_storage.m_inPlace[1] = high;
        }
        /// So many limbs of 0.
        static CLimbs Zeros(std::size_t size) {
            CLimbs limbs;
            limbs.Resize(size);
            return limbs;
        }
        CLimbs(CLimbs const& other) {
            if (other.IsOnHeap()) {
                Assign(other.begin(), other.size());
            } else {
                m_storage = other.m_storage;
                m_size = other.m_size;
            }
        }
        /// Leaves the other object empty.
        CLimbs(CLimbs&& other) noexcept { Swap(other); }
        CLimbs& operator=(CLimbs const& other) {
            CLimbs copy = other;
            Swap(copy);
            return *this;
        }
        CLimbs& operator=(CLimbs&& other) noexcept {
            CLimbs taken = std::move(other);
            Swap(taken);
            return *this;
        }
        ~CLimbs() {
            if (IsOnHeap()) delete[] m_storage.m_heap;
        }

        std::size_t size() const { return m_size; }
        bool empty() const { return m_size == 0; }
        std::uint32_t* data() { return IsOnHeap() ? m_storage.m_heap : m_storage.m_inPlace; }
        std::uint32_t const* data() const { return IsOnHeap() ? m_storage.m_heap : m_storage.m_inPlace; }
        std::uint32_t* begin() { return data(); }
        std::uint32_t* end() { return data() + m_size; }
        std::uint32_t const* begin() const { return data(); }
        std::uint32_t const* end() const { return data() + m_size; }
        std::uint32_t& operator[](std::size_t index) { return data()[index]; }
        std::uint32_t operator[](std::size_t index) const { return data()[index]; }
        std::uint32_t back() const { return data()[m_size - 1]; }

        bool operator==(CLimbs const& other) const {
            return std::equal(begin(), end(), other.begin(), other.end());
        }

        /// The limbs from a position on, so many of them at most.
        CLimbs Part(std::size_t from, std::size_t count = SIZE_MAX) const {
            CLimbs part;
            part.Assign(begin() + from, std::min(count, m_size - from));
            return part;
        }

        void Reserve(std::size_t capacity);
        /// New limbs at the top are 0.
        void Resize(std::size_t size);
        void PushBack(std::uint32_t limb);
        void Append(CLimbs const& other);
        /// Puts limbs of 0 below the others.
        void InsertLow(std::size_t count);
        /// Drops the lowest limbs, all if there are no more.
        void DropLow(std::size_t count);
        void Clear() { m_size = 0; }

    private:
        static constexpr std::uint32_t kInPlace = 2;

        union Storage {
            std::uint32_t m_inPlace[kInPlace] = {};
            std::uint32_t* m_heap;
        };

        /// In place of what is there, which is lost.
        void Assign(std::uint32_t const* limbs, std::size_t size);

        bool IsOnHeap() const { return m_capacity > kInPlace; }
        void Swap(CLimbs& other) noexcept {
            std::swap(m_storage, other.m_storage);
            std::swap(m_size, other.m_size);
            std::swap(m_capacity, other.m_capacity);
        }

        Storage m_storage;
        std::uint32_t m_size = 0;
        std::uint32_t m_capacity = kInPlace;
    };

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
