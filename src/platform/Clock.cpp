#include "platform/Clock.h"

#include <time.h>

#include <algorithm>
#include <chrono>
#include <limits>

namespace BxXmlLib5 {

namespace {

namespace chrono = std::chrono;

std::uint16_t Narrow(long value) {
    return static_cast<std::uint16_t>(value);
}

}  // namespace

_SYSTEMTIME LocalTime() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tzset();  // localtime_r need not look at TZ again
    tm local{};
    localtime_r(&now.tv_sec, &local);
    int const second = std::min(local.tm_sec, 59);  // zones that count leap seconds have a 60
    return {
        .wYear = Narrow(local.tm_year + 1900),
        .wMonth = Narrow(local.tm_mon + 1),
        .wDayOfWeek = Narrow(local.tm_wday),
        .wDay = Narrow(local.tm_mday),
        .wHour = Narrow(local.tm_hour),
        .wMinute = Narrow(local.tm_min),
        .wSecond = Narrow(second),
        .wMilliseconds = Narrow(now.tv_nsec / 1'000'000),
    };
}

std::optional<_SYSTEMTIME> ToSystemTime(_FILETIME const& time) {
    using Ticks = chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
    std::uint64_t const count = std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    if (count > std::numeric_limits<std::int64_t>::max()) return std::nullopt;

    Ticks const sinceEpoch(static_cast<std::int64_t>(count));
    auto const days = chrono::floor<chrono::days>(sinceEpoch);
    chrono::sys_days const epoch = chrono::year{1601} / chrono::January / 1;
    chrono::year_month_day const date(epoch + days);
    chrono::hh_mm_ss const clock(chrono::floor<chrono::milliseconds>(sinceEpoch - days));
    return _SYSTEMTIME{
        .wYear = Narrow(int{date.year()}),
        .wMonth = Narrow(unsigned{date.month()}),
        .wDayOfWeek = Narrow(chrono::weekday(epoch + days).c_encoding()),
        .wDay = Narrow(unsigned{date.day()}),
        .wHour = Narrow(clock.hours().count()),
        .wMinute = Narrow(clock.minutes().count()),
        .wSecond = Narrow(clock.seconds().count()),
        .wMilliseconds = Narrow(clock.subseconds().count()),
    };
}

}  // namespace BxXmlLib5
