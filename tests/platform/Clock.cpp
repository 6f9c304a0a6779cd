#include "platform/Clock.h"

#include <stdlib.h>
#include <time.h>

#include <chrono>

#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

std::string Show(_SYSTEMTIME const& t) {
    std::string text;
    for (int const field :
         {t.wYear, t.wMonth, t.wDayOfWeek, t.wDay, t.wHour, t.wMinute, t.wSecond, t.wMilliseconds}) {
        text += std::to_string(field) + ' ';
    }
    return text;
}

}  // namespace

TEST(Clock, FileTimeGivesTheDateInUtc) {
    // With the fields in the order of the record; the third is the day of the week.
    for (auto const& [count, fields] : {std::pair{std::uint64_t{9'999}, "1601 1 1 1 0 0 0 0 "},
                                        {10'000, "1601 1 1 1 0 0 0 1 "},
                                        {863'999'999'999, "1601 1 1 1 23 59 59 999 "},
                                        {864'000'000'000, "1601 1 2 2 0 0 0 0 "},
                                        {125'963'423'967'890'000, "2000 2 2 29 23 59 56 789 "},
                                        {0x7FFF'FFFF'FFFF'FFFF, "30828 9 4 14 2 48 5 477 "}}) {
        auto const record =
            ToSystemTime({static_cast<std::uint32_t>(count), static_cast<std::uint32_t>(count >> 32)});
        EXPECT_EQ(record ? Show(*record) : "none", fields) << count;
    }
    EXPECT_FALSE(ToSystemTime({0, 0x8000'0000}));
}

TEST(Clock, LocalTimeFollowsTheZoneOfTheProcess) {
    namespace chrono = std::chrono;
    for (auto const& [zone, offset] : {std::pair{"EAST-05:30", 330}, {"WEST+03", -180}}) {
        setenv("TZ", zone, 1);
        auto const before = chrono::system_clock::now();
        _SYSTEMTIME const t = LocalTime();
        chrono::sys_days const day = chrono::year(t.wYear) / chrono::month(t.wMonth) / chrono::day(t.wDay);
        auto const shown = day + chrono::hours(t.wHour) + chrono::minutes(t.wMinute - offset) +
                           chrono::seconds(t.wSecond) + chrono::milliseconds(t.wMilliseconds + 1);
        EXPECT_GE(shown, before) << zone;
        EXPECT_LT(shown, before + chrono::minutes(1)) << zone;
        EXPECT_EQ(t.wDayOfWeek, chrono::weekday(day).c_encoding()) << zone;
    }
    unsetenv("TZ");
}
