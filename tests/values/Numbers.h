// What the tests of CBigInteger and CDecimal share.
#pragma once

#include <initializer_list>

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
    std::string text = isMinusZero ? "-" : "";
    return text.append(Text(value));
}

/// What the parser of decimals says of a text that it refuses.
inline std::string InvalidAt(int at, std::string const& text) {
    return "The string representing a Decimal, contained an invalid char at position " + std::to_string(at) +
           " [" + text + "]";
}

/// Expects the six operators to see values in this order, and == to go by their texts.
template <class T>
void ExpectAscending(std::initializer_list<char const*> texts) {
    for (auto const* i = texts.begin(); i != texts.end(); ++i) {
        for (auto const* j = texts.begin(); j != texts.end(); ++j) {
            SCOPED_TRACE(std::string(*i) + " and " + *j);
            T const a = Number<T>(*i), b = Number<T>(*j);
            EXPECT_EQ(a < b, i < j);
            EXPECT_EQ(a > b, i > j);
            EXPECT_EQ(a <= b, i <= j);
            EXPECT_EQ(a >= b, i >= j);
            EXPECT_EQ(a == b, Text(a) == Text(b));
            EXPECT_EQ(a != b, Text(a) != Text(b));
        }
    }
}

}  // namespace BxTest
