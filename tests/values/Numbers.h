// What the tests of CBigInteger and CDecimal share.
#pragma once

#include <compare>
#include <functional>
#include <limits>
#include <random>
#include <tuple>
#include <utility>
#include <vector>

#include "support/Expect.h"

namespace BxTest {

template <class T>
T Number(std::string const& text) {
    return T(std::u16string_view(BxXmlLib5::FromUtf8(text)));
}

template <class T>
std::string Text(T const& value) {
    return BxXmlLib5::ToUtf8(value.ToString());
}

/// The text, with the sign of zero.
template <class T>
std::string Signed(T const& value) {
    bool const isMinusZero = value == T(0) && value < T(0);
    return (isMinusZero ? "-" : "") + Text(value);
}

/// Digits with runs of 0 and 9, which make for carries and borrows.
inline std::string RandomDigits(std::mt19937& random, std::size_t count) {
    std::string digits;
    while (digits.size() < count) {
        digits.append(1 + random() % 12, "0909123456789"[random() % 13]);
        digits.append(std::to_string(random() % 10));
    }
    return digits.substr(0, count);
}

/// Texts of numbers, each with the plain form of its value.
using Values = std::vector<std::pair<std::string, std::string>>;

template <class T>
void ExpectRead(Values const& rows) {
    for (auto const& [text, value] : rows) EXPECT_EQ(Signed(Number<T>(text)), value) << '[' << text << ']';
}

/// Texts of no number, each with the place of the character that makes it none.
template <class T>
void ExpectRefused(Values const& rows) {
    for (auto const& row : rows)
        EXPECT_BX_THROW(Number<T>(row.first), CBxInvalidValueException,
                        "The string representing a Decimal, contained an invalid char at position " +
                            row.second + " [" + row.first + "]");
}

/// The least and the greatest value of native types become what std::to_string says.
template <class T, class... Natives>
void ExpectTakesIntegers() {
    auto const expect = [](auto value) { EXPECT_EQ(Text(T(value)), std::to_string(value)) << sizeof value; };
    (expect(std::numeric_limits<Natives>::min()), ...);
    (expect(std::numeric_limits<Natives>::max()), ...);
}

__extension__ typedef __int128 Wide;

inline Wide Power(int exponent) {
    Wide power = 1;
    for (int i = 0; i < exponent; ++i) power *= 10;
    return power;
}

/// The plainest number that does what both classes do: units of 10 to the power of -places, and a sign that
/// 0 has too.
struct Model {
    bool minus;
    Wide units;
    int places = 0;

    /// Up to nine digits before the point, and as many behind it as wanted.
    static Model Random(std::mt19937& random, int mostPlaces) {
        int const places = static_cast<int>(random() % static_cast<unsigned>(mostPlaces + 1));
        Wide const units =
            Wide{random()} * 1'000'000'007 % Power(1 + static_cast<int>(random() % 9) + places);
        return {random() % 2 == 0, random() % 8 == 0 ? 0 : units, places};
    }

    Wide At(int more) const { return units * Power(more - places); }
    Wide Value(int more) const { return minus ? -At(more) : At(more); }

    /// All places, zeros at the end included.
    std::string Source() const {
        std::string digits;
        for (Wide rest = units; rest != 0; rest /= 10)
            digits.insert(digits.begin(), static_cast<char>('0' + rest % 10));
        auto const count = static_cast<std::size_t>(places);
        if (digits.size() <= count) digits.insert(0, count + 1 - digits.size(), '0');
        digits.insert(digits.size() - count, ".");
        return (minus ? "-" : "") + digits;
    }
    std::string Text() const {
        std::string const text = Source();
        std::size_t const last = text.find_last_not_of('0');
        return text.substr(0, text[last] == '.' ? last : last + 1);
    }

    /// Cut, and one more if what is cut is above a half.
    Model Rounded(int limit) const {
        if (places <= limit) return *this;
        Wide const power = Power(places - limit), cut = units / power;
        return {minus, units % power * 2 > power ? cut + 1 : cut, limit};
    }

    std::strong_ordering operator<=>(Model const& other) const {
        if (minus != other.minus) return other.minus <=> minus;
        int const most = std::max(places, other.places);
        return Value(most) <=> other.Value(most);
    }
};

inline Model Sum(Model const& a, Model const& b) {
    int const places = std::max(a.places, b.places);
    Wide const sum = a.Value(places) + b.Value(places);
    return {sum < 0 || (sum == 0 && a.minus && b.minus), sum < 0 ? -sum : sum, places};
}
inline Model Negative(Model const& a) {
    return {!a.minus, a.units, a.places};
}
inline Model Product(Model const& a, Model const& b) {
    return {a.minus != b.minus, a.units * b.units, a.places + b.places};
}
/// Cut to so many places. The divisor is not 0.
inline Model Quotient(Model const& a, Model const& b, int places) {
    int const most = std::max(a.places, b.places);
    return {a.units != 0 && a.minus != b.minus, a.At(most) * Power(places) / b.At(most), places};
}

/// Expects what an operator and its assigning form make of two numbers, "!" where they refuse them; and of
/// one number with itself.
template <class T, class Operator, class Assign>
void ExpectResult(T const& a, T const& b, Operator apply, Assign assign, std::string const& expected,
                  std::string const& expectedOfAssign) {
    auto const result = [](auto operation) -> std::string {
        try {
            return Signed<T>(operation());
        } catch (BxXmlLib5::CBxInvalidValueException const&) {
            return "!";
        }
    };
    T assigned = a, same = a, copy = a;
    EXPECT_EQ(result([&] { return apply(a, b); }), expected);
    EXPECT_EQ(result([&] { return assign(assigned, b); }), expectedOfAssign);
    EXPECT_EQ(Signed(assigned), expectedOfAssign == "!" ? Signed(a) : expectedOfAssign);
    EXPECT_EQ(result([&] { return assign(same, same); }), result([&] { return assign(copy, T(a)); }));
}

/// Expects the seven operators to order two numbers as their models are, and == to see no sign of 0.
template <class T>
void ExpectOrder(T const& a, T const& b, std::strong_ordering order) {
    bool const isEqual = Text(a) == Text(b);
    EXPECT_TRUE((a < b) == (order < 0) && (a > b) == (order > 0) && (a <= b) == (order <= 0) &&
                (a >= b) == (order >= 0) && (a <=> b) == order && (a == b) == isEqual && (a != b) != isEqual)
        << Signed(a) << " and " << Signed(b);
}

// An operator and its assigning form.
#define BX_APPLY(op)                                                   \
    [](auto const& left, auto const& right) { return left op right; }, \
        [](auto& left, auto const& right) { return left op## = right; }

}  // namespace BxTest
