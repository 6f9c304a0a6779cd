// The proleptic Gregorian calendar, over years of any size. The years count through 0.
#pragma once

#include <chrono>
#include <cstdint>

namespace BxXmlLib5 {

struct Division {
    std::int64_t quotient;
    std::int64_t remainder;
};

/// Rounds down, so that the remainder has the sign of the divisor.
constexpr Division FloorDivide(std::int64_t dividend, std::int64_t divisor) {
    Division division{dividend / divisor, dividend % divisor};
    if (division.remainder < 0) {
        division.quotient -= 1;
        division.remainder += divisor;
    }
    return division;
}

// <chrono> has years of 16 bits alone; the calendar repeats itself, days of the week included, after these.
inline constexpr std::int64_t kCycleYears = 400;
inline constexpr std::int64_t kCycleDays = 146'097;

/// The year with the same calendar that is between 0 and 399.
constexpr std::chrono::year YearInCycle(std::int64_t year) {
    return std::chrono::year(static_cast<int>(FloorDivide(year, kCycleYears).remainder));
}

/// The day at the same place in the calendar that is between 1970 and 2369.
constexpr std::chrono::sys_days DayInCycle(std::int64_t dayNumber) {
    return std::chrono::sys_days(std::chrono::days(FloorDivide(dayNumber, kCycleDays).remainder));
}

/// @param month 1 to 12
constexpr std::int64_t DaysInMonth(std::int64_t year, std::int64_t month) {
    std::chrono::month const inYear(static_cast<unsigned>(month));
    return unsigned{(YearInCycle(year) / inYear / std::chrono::last).day()};
}

/// Days since 1970-01-01. A month or day outside its range counts on into the neighbours.
constexpr std::int64_t DayNumber(std::int64_t year, std::int64_t month, std::int64_t day) {
    auto const inCycle = YearInCycle(year) / std::chrono::January + std::chrono::months(month - 1);
    std::chrono::sys_days const first = inCycle / 1;
    return FloorDivide(year, kCycleYears).quotient * kCycleDays + first.time_since_epoch().count() + day - 1;
}

struct CivilDay {
    std::int64_t year;
    std::int64_t month;
    std::int64_t day;
};

/// The inverse of DayNumber().
constexpr CivilDay DayOf(std::int64_t dayNumber) {
    std::int64_t const cycles = FloorDivide(dayNumber, kCycleDays).quotient;
    std::chrono::year_month_day const day = DayInCycle(dayNumber);
    return {cycles * kCycleYears + int{day.year()}, unsigned{day.month()}, unsigned{day.day()}};
}

/// 0 for Sunday to 6 for Saturday.
constexpr unsigned WeekdayOf(std::int64_t dayNumber) {
    return std::chrono::weekday(DayInCycle(dayNumber)).c_encoding();
}

}  // namespace BxXmlLib5
