// What the tests of CBigInteger and CDecimal share.
#pragma once

#include <functional>
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

// The assigning forms of the operators that <functional> has.
inline constexpr auto kAdd = [](auto& a, auto const& b) { return a += b; };
inline constexpr auto kSubtract = [](auto& a, auto const& b) { return a -= b; };
inline constexpr auto kMultiply = [](auto& a, auto const& b) { return a *= b; };
inline constexpr auto kDivide = [](auto& a, auto const& b) { return a /= b; };

/// What an operator makes of two numbers; "!" if it refuses them.
template <class T, class Operator>
std::string Result(T a, T const& b, Operator apply) {
    try {
        return Signed<T>(apply(a, b));
    } catch (BxXmlLib5::CBxInvalidValueException const&) {
        return "!";
    }
}

/// What operators make of two numbers, with spaces between.
template <class T, class... Operators>
std::string Results(T const& a, T const& b, Operators... operators) {
    std::string results;
    (results.append(results.empty() ? "" : " ").append(Result(a, b, operators)), ...);
    return results;
}

/// What the assigning operators make of a number that is both operands.
template <class T>
std::string WithItself(T const& value) {
    auto const apply = [](T a, auto assign) { return Text(assign(a, a)); };
    return apply(value, kAdd) + ' ' + apply(value, kSubtract) + ' ' + apply(value, kMultiply) + ' ' +
           apply(value, kDivide);
}

/// Expects the six operators to see values in this order, and == to go by their texts.
template <class T>
void ExpectAscending(std::vector<std::string> const& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t j = 0; j < texts.size(); ++j) {
            T const a = Number<T>(texts[i]), b = Number<T>(texts[j]);
            bool const isEqual = Text(a) == Text(b);
            EXPECT_TRUE((a < b) == (i < j) && (a > b) == (i > j) && (a <= b) == (i <= j) &&
                        (a >= b) == (i >= j) && (a == b) == isEqual && (a != b) != isEqual)
                << texts[i] << " and " << texts[j];
        }
    }
}

}  // namespace BxTest
