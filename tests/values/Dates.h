// Dates and durations from and to text, for the tests of both. Rows are texts of words.
#pragma once

#include <algorithm>
#include <compare>
#include <initializer_list>
#include <iterator>
#include <random>
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

/// A date and time to which durations are added in steps of a day and a month.
struct DateModel {
    std::int64_t year;
    int month;
    int day;
    std::int64_t nanos = 0;  // of the day

    auto operator<=>(DateModel const&) const = default;

    int DaysInMonth() const {
        bool const isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
        return month == 2 ? 28 + isLeap : 30 + (month + month / 8) % 2;
    }
    void StepMonth(int sign) {
        month += sign;
        if (month == 0 || month == 13) year += sign, month -= 12 * sign;
    }
    void StepDay(int sign) {
        day += sign;
        if (day != 0 && day <= DaysInMonth()) return;
        StepMonth(sign);
        day = sign > 0 ? 1 : DaysInMonth();
    }

    DateModel operator+(BxXmlLib5::CDateTimeSpan const& span) const {
        constexpr std::int64_t kDay = 86'400'000'000'000;
        DateModel sum = *this;
        int const sign = span.IsNegative() ? -1 : 1;
        for (auto count = span.GetYears() * 12 + span.GetMonths(); count > 0; --count) sum.StepMonth(sign);
        sum.day = std::min(sum.day, sum.DaysInMonth());
        auto const minutes = span.GetHours() * 60 + span.GetMinutes();
        auto const millis = (minutes * 60 + span.GetSeconds()) * 1000 + span.GetMilliSeconds();
        auto const parts = (millis * 1000 + span.GetMicroSeconds()) * 1000 + span.GetNanoSeconds();
        for (auto count = span.GetDays(); count > 0; --count) sum.StepDay(sign);
        for (sum.nanos += sign * static_cast<std::int64_t>(parts); sum.nanos < 0; sum.nanos += kDay)
            sum.StepDay(-1);
        for (; sum.nanos >= kDay; sum.nanos -= kDay) sum.StepDay(1);
        return sum;
    }

    BxXmlLib5::CDateTime Date() const {
        auto const part = [this](std::int64_t unit, int count) {
            return static_cast<std::uint16_t>(nanos / unit % count);
        };
        auto const octet = [](int value) { return static_cast<std::uint8_t>(value); };
        return {static_cast<std::int16_t>(year),
                octet(month),
                octet(day),
                octet(part(3'600'000'000'000, 24)),
                octet(part(60'000'000'000, 60)),
                octet(part(1'000'000'000, 60)),
                part(1'000'000, 1000),
                part(1000, 1000),
                part(1, 1000)};
    }
};

/// Each count is 0 as often as not.
inline BxXmlLib5::CDateTimeSpan RandomSpan(std::mt19937& random) {
    auto const count = [&random](std::uint32_t most) {
        return static_cast<std::uint32_t>(random() % 2 == 0 ? 0 : random() % most);
    };
    auto const part = [&count] { return static_cast<std::uint16_t>(count(1000)); };
    BxXmlLib5::CDateTimeSpan span(static_cast<std::uint16_t>(count(40)), count(50), count(1500), count(100),
                                  count(3000), count(100'000), part(), part(), part());
    if (random() % 2 == 0) span.Negate();
    return span;
}

/// Rows "left = right", with < > or ? for the other results, compared in both orders and with the operators.
template <class Value>
void ExpectOrder(Value const& left, Value const& right, char order) {
    SCOPED_TRACE(Text(left) + ' ' + order + ' ' + Text(right));
    EXPECT_EQ("=<>?"[left.CompareTo(right)], order);
    EXPECT_EQ("=><?"[right.CompareTo(left)], order) << "mirrored";
    auto const standard = left <=> right;
    EXPECT_EQ(standard == 0 ? '=' : standard < 0 ? '<' : standard > 0 ? '>' : '?', order);
    EXPECT_TRUE((left == right) == (order == '=') && (left != right) == (order != '=') &&
                (left < right) == (order == '<') && (left > right) == (order == '>'));
    EXPECT_TRUE((left <= right) == (order == '<' || order == '=') &&
                (left >= right) == (order == '>' || order == '='));
}
template <class Value>
void ExpectOrder(Value (*read)(std::string const&), std::initializer_list<char const*> rows) {
    for (char const* const row : rows) {
        auto const words = Words(row);
        ExpectOrder(read(words[0]), read(words[2]), words[1][0]);
    }
}

}  // namespace BxTest
