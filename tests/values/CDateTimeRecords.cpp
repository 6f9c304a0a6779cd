#include <gmock/gmock.h>

#include <cstdlib>
#include <ctime>
#include <random>
#include <tuple>

#include "values/Dates.h"

using namespace BxXmlLib5;
using namespace BxTest;

namespace {

std::string const kInvalid = "CBxInvalidValueException: Invalid ";
std::string const kYears = "(-9999 <= year <= 9999 && year != 0)";

/// What assigning a count or record to an empty object gives.
template <class Record>
std::string Assigned(Record const& record) {
    CDateTime date;
    std::string const failure = Thrown([&] { date = record; });
    return failure == "nothing" ? Show(date) : failure;
}

}  // namespace

TEST(CDateTimeRecords, CountsOfSecondsAreInUtc) {
    for (char const* const row :
         {"-1 1969-12-31T23:59:59", "-86400 1969-12-31T00:00:00", "951868799 2000-02-29T23:59:59",
          "-62198755200 -0001-01-01T00:00:00", "253402300799 9999-12-31T23:59:59"}) {
        std::int64_t const count = std::stoll(Words(row)[0]);
        EXPECT_EQ(Assigned(count), "dateTime " + Words(row)[1]);
        EXPECT_EQ(CDateTime(count).GetTime(), count);
    }
    for (auto const& [count, year] : {std::pair{-62'135'596'801, "0"}, {INT64_MIN, "-2147483648"}})
        EXPECT_EQ(Assigned(std::int64_t{count}), kInvalid + "Year [" + year + "] " + kYears);
}

TEST(CDateTimeRecords, GetTimeCountsInUtcWhateverTheZoneOfTheProcess) {
    setenv("TZ", "EAST-05:30", 1);
    tzset();
    // A date is at midnight of its day in UTC.
    for (char const* const row : {"1970-01-01T00:00:00.999 0", "1970-01-01T00:00:00+01:00 -3600",
                                  "1970-01-02 86400", "1970-01-02-05:00 86400", "1970-01-02+05:00 0"})
        EXPECT_EQ(std::to_string(Date(Words(row)[0]).GetTime()), Words(row)[1]) << row;
    unsetenv("TZ");
    tzset();
    CDateTime date;
    date.SetDateTime(CDateTime(1970, 1, 2, 10, 0, 0), CDateTime::dt_date);
    EXPECT_EQ(date.GetTime(), 86'400) << "an hour out of reach does not count";
    EXPECT_BX_THROW(Date("00:00:00").GetTime(), CBxInvalidValueException,
                    "Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: time.");
}

TEST(CDateTimeRecords, InstantsOfTheStandardAreInUtc) {
    using namespace std::chrono;
    std::mt19937_64 random(4);
    auto const expect = [](auto time, std::string const& text) {
        CDateTime const date(time);
        EXPECT_EQ(Show(date), "dateTime " + text);
        EXPECT_TRUE(date.GetSysTime<typename decltype(time)::duration>() == time) << text;
    };
    for (int i = 0; i < 2000; ++i) {
        nanoseconds const time(static_cast<std::int64_t>(random()) >> (random() % 40));
        EXPECT_TRUE(CDateTime(sys_time<nanoseconds>(time)).GetSysTime().time_since_epoch() == time);
    }
    sys_days const day = 2026y / 11 / 23;
    expect(day, "2026-11-23T00:00:00Z");
    expect(sys_time<minutes>(day + 61min), "2026-11-23T01:01:00Z");
    expect(sys_time<milliseconds>(sys_days(1969y / 12 / 31) + 1ms), "1969-12-31T00:00:00.001Z");
    expect(sys_time<microseconds>(sys_days(-9999y / 1 / 1) + 20us), "-9999-01-01T00:00:00.00002Z");
    expect(sys_time<nanoseconds>::min(), "1677-09-21T00:12:43.145224192Z");
    expect(sys_time<nanoseconds>::max(), "2262-04-11T23:47:16.854775807Z");
    EXPECT_TRUE(Date("1969-12-31T23:30:00.9-01:00").GetSysTime<seconds>() == sys_seconds(1800s));
    EXPECT_TRUE(Date("1969-12-31T23:59:59.9").GetSysTime<days>() == sys_days(1969y / 12 / 31));
    EXPECT_TRUE(Date("1970-01-02").GetSysTime<hours>() == sys_time<hours>(24h));
    std::string const tooFar = "The date is too far from 1970 to be counted in units of this size";
    for (char const* const text : {"2262-04-11T23:47:16.854775808", "1677-09-21T00:12:43.145224191"})
        EXPECT_BX_THROW(Date(text).GetSysTime(), CBxOverFlowException, tooFar);
    using Short = duration<std::int16_t, days::period>;
    EXPECT_BX_THROW(Date("2059-09-20").GetSysTime<Short>(), CBxOverFlowException, tooFar);
    EXPECT_EQ(Date("2059-09-18").GetSysTime<Short>().time_since_epoch().count(), INT16_MAX);
    EXPECT_BX_THROW(CDateTime(sys_days(10000y / 1 / 1)), CBxInvalidValueException,
                    "Invalid Year [10000] " + kYears);
    EXPECT_BX_THROW(Date("10:00:00").GetSysTime(), CBxInvalidValueException,
                    "Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: time.");
}

TEST(CDateTimeRecords, SystemTimeIsTestedBeforeItIsNarrowed) {
    using Record = _SYSTEMTIME;
    Record const valid{2026, 11, 6, 22, 10, 20, 30, 456};
    EXPECT_EQ(Assigned(valid), "dateTime 2026-11-22T10:20:30.456");
    // Whatever an octet would make valid
    std::tuple<std::uint16_t Record::*, std::uint16_t, std::string> const rows[] = {
        {&Record::wSecond, 256, "Second [256] (0 <= second <= 59)"},
        {&Record::wMinute, 256, "Minute [256] (0 <= minute <= 59)"},
        {&Record::wHour, 256, "Hour [256] (0 <= hour <= 23)"},
        {&Record::wDay, 256 + 22, "Day [278] (1 <= day <= days in month"},
        {&Record::wYear, 65535, "Year [65535] " + kYears},
        {&Record::wMonth, 256 + 11, "Month [267] (1 <= month <= 12)"}};
    for (auto const& [field, value, message] : rows) {
        Record record = valid;
        record.*field = value;
        EXPECT_EQ(Assigned(record), kInvalid + message);
    }
}

TEST(CDateTimeRecords, SystemTimeHasTheFieldsAsTheyAre) {
    _SYSTEMTIME const record = Date("2026-11-23T10:20:30.456789+02:00").GetAsSystemTime();
    int const fields[] = {record.wYear, record.wMonth,  record.wDayOfWeek, record.wDay,
                          record.wHour, record.wMinute, record.wSecond,    record.wMilliseconds};
    EXPECT_THAT(fields, testing::ElementsAre(2026, 11, 1, 23, 10, 20, 30, 456));
    EXPECT_BX_THROW(Date("2001-02-03").GetAsSystemTime(), CBxInvalidValueException,
                    "Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date Type: date.");
    EXPECT_BX_THROW(Date("-0005-02-03T00:00:00").GetAsSystemTime(), CBxInvalidValueException,
                    "Invalid Year [-5] (0 <= year <= 65535 && year != 0)");
}

TEST(CDateTimeRecords, FileTimeGoesThroughSystemTime) {
    EXPECT_EQ(Assigned(_FILETIME{0xD53E8000, 0x019DB1DE}), "dateTime 1970-01-01T00:00:00");
    EXPECT_EQ(Assigned(_FILETIME{0, 0x80000000}),
              "CBxInvalidValueException: Failed to convert FILETIME to SYSTEMTIME");
}

TEST(CDateTimeRecords, TheTickCountHasNoZone) {
    CDateTime const now = CDateTime::GetTickCount();
    EXPECT_EQ(now.GetType(), CDateTime::dt_dateTime);
    EXPECT_FALSE(now.IsUTC());
}
