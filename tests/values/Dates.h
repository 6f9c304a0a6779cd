// Dates and durations from and to text, for the tests of both. Rows are texts of words.
#pragma once

#include <compare>
#include <initializer_list>
#include <iterator>
#include <sstream>
#include <vector>

#include "BxXmlLib5/values/CDateTime.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "support/Expect.h"

namespace BxTest {

inline std::vector<std::string> Words(std::string const& row) {
    std::istringstream stream(row);
    return {std::istream_iterator<std::string>(stream), {}};
}

/// A value of the type whose form the text has.
inline BxXmlLib5::CDateTime Date(std::string const& text) {
    BxXmlLib5::wstring const wide = BxXmlLib5::FromUtf8(text);
    BxXmlLib5::CDateTime date;
    if (text.find('T') != text.npos) {
        date.ParseXSDDateTime(wide);
    } else if (text.find(':') == 2) {
        date.ParseXSDTime(wide);
    } else {
        date.ParseXSDDate(wide);
    }
    return date;
}

inline BxXmlLib5::CDateTimeSpan Span(std::string const& text) {
    BxXmlLib5::CDateTimeSpan span;
    span.ParseXSDDuration(BxXmlLib5::FromUtf8(text));
    return span;
}

template <class Value>
std::string Text(Value const& value) {
    return BxXmlLib5::ToUtf8(value.ToString());
}

/// A date with its type.
inline std::string Show(BxXmlLib5::CDateTime const& date) {
    return BxXmlLib5::ToUtf8(date.GetTypeAsString()) + ' ' + Text(date);
}

/// Rows "left = right", with < > or ? for the other results, compared in both orders and with the operators.
template <class Value>
void ExpectOrder(Value (*read)(std::string const&), std::initializer_list<char const*> rows) {
    for (char const* const row : rows) {
        auto const words = Words(row);
        Value const left = read(words[0]), right = read(words[2]);
        char const order = words[1][0];
        EXPECT_EQ("=<>?"[left.CompareTo(right)], order) << row;
        EXPECT_EQ("=><?"[right.CompareTo(left)], order) << row << ", mirrored";
        auto const standard = left <=> right;
        EXPECT_EQ(standard == 0 ? '=' : standard < 0 ? '<' : standard > 0 ? '>' : '?', order) << row;
        EXPECT_TRUE((left == right) == (order == '=') && (left != right) == (order != '=') &&
                    (left < right) == (order == '<') && (left > right) == (order == '>'))
            << row;
        EXPECT_TRUE((left <= right) == (order == '<' || order == '=') &&
                    (left >= right) == (order == '>' || order == '='))
            << row;
    }
}

}  // namespace BxTest
