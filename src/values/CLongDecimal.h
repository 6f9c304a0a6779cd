// Decimal numbers of any length.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CBigInteger.h"

namespace BxXmlLib5 {

/// A decimal whose digits fill no fixed number of bits: what CDecimal holds and calculates with where 64 bits do
/// not suffice. It has no zeros at the end of its fraction.
class CLongDecimal {
public:
    /// The most places of a number that 64 bits hold.
    static constexpr int kShortPlaces = 18;

    /// An integer divided by 10 to the power of places.
    struct Short {
        std::int64_t m_scaled;
        int m_places;
        bool m_isMinusZero;
    };

    explicit CLongDecimal(CBigInteger const& integer) : m_integerPart(integer) {}
    explicit CLongDecimal(Short const& number);
    /// @param text as CDecimal takes it, rounded to the limit of places
    CLongDecimal(std::u16string_view text, int limit);

    /// The number in 64 bits, if they hold it.
    std::optional<Short> ToShort() const;

    /// Appends the shortest text.
    void AppendTo(wstring& text) const;
    wstring ToString(int decimalPlaces, int limit) const;
    std::int64_t ToLongLong() const;
    CBigInteger ToBigInteger() const;

    void Negate();
    /// @param otherSign -1 to subtract
    CLongDecimal Plus(CLongDecimal const& other, int otherSign) const;
    CLongDecimal Times(CLongDecimal const& other, int limit) const;
    CLongDecimal DividedBy(CLongDecimal const& other, int limit) const;

    /// -1, 0 or 1, as CBigInteger orders the integer parts and then the fractions.
    int Order(CLongDecimal const& other) const;
    bool operator==(CLongDecimal const& other) const;
    bool IsBeyondDouble() const;

private:
    /// The value of an integer divided by 10 to a power.
    CLongDecimal(CBigInteger const& scaled, std::size_t places);

    /// The value times 10 to a power that leaves no fraction.
    CBigInteger Scaled(int places) const;
    CBigInteger ScaledFraction(int places) const;

    void Rationalise();
    /// Rounds to so many places if there are more; zeros may be left at the end.
    void RoundTo(int places);
    /// The same, and no zeros are left.
    void Cap(int limit);

    /// With the sign of the number, so it is -0 for a number between -1 and 0.
    CBigInteger m_integerPart;
    /// The digits behind the point as an integer with the sign of the number; that of zero is plus.
    CBigInteger m_fractionPart;
    /// The number of decimal places that the fraction has, at least 1.
    int m_fractionalDivider = 1;
};

}  // namespace BxXmlLib5
