#include <chrono>
#include <cstdlib>

#include "values/Dates.h"

using namespace BxXmlLib5;
using namespace BxTest;

TEST(CDateTimeOrder, GoesFromTheYearToTheFraction) {
    ExpectOrder(Date, {"2000-01-31 < 2000-02-01", "---30 < ---31", "10:10:10.123456788 < 10:10:10.123456789",
                       "10:10:10.001 > 10:10:10.000999999", "-0005 < -0003", "-0001 ? 0001"});
}

TEST(CDateTimeOrder, ZonesAreTakenToUtc) {
    // The hour 00 has no sign, and a time is of whatever day.
    ExpectOrder(Date, {"1999-12-31T18:30:00-05:30 = 2000-01-01T00:00:00Z",
                       "2000-01-01T00:00:00+14:00 < 2000-01-01T00:00:00-14:00", "10:00:00-00:30 = 09:30:00Z",
                       "01:00:00+02:00 = 23:00:00Z", "2000-01-01+05:00 = 1999-12-31Z",
                       "2000-01-01-05:00 = 2000-01-01Z", "2000+01:00 = 1999Z", "--01+01:00 = --12Z",
                       "--03-01+01:00 = --02-29Z", "---01+01:00 = ---31Z"});
}

TEST(CDateTimeOrder, IsThatOfTheInstants) {
    using namespace std::chrono;
    std::mt19937 random(6);
    auto const any = [&random](int most) {
        return static_cast<int>(random() % static_cast<unsigned>(2 * most + 1)) - most;
    };
    auto const made = [&](sys_time<nanoseconds> instant, int zone) {
        int const hours = zone < 2 ? 0 : any(23), minutes = zone < 2 || hours == 0 ? 0 : std::abs(any(59));
        CDateTime const utc(instant + hours * 1h + (hours < 0 ? -1 : 1) * minutes * 1min);
        CDateTime date;
        date.SetDateTime(utc.GetYear(), utc.GetMonth(), utc.GetDay(), utc.GetHour(), utc.GetMinute(),
                         utc.GetSecond(), utc.GetMilliSecond(), utc.GetMicroSecond(), utc.GetNanoSecond());
        if (zone == 1) date.SetUTC();
        if (zone > 1) date.SetTimeZone(static_cast<std::int16_t>(hours), static_cast<std::uint8_t>(minutes));
        return date;
    };
    for (int i = 0; i < 3000; ++i) {
        sys_time<nanoseconds> const left = sys_days(2000y / 2 / 28) + nanoseconds(random()) + any(100) * 1h;
        nanoseconds const ahead = i % 3 == 0 ? nanoseconds(any(1)) : any(15) * 1h + any(2) * 1ns;
        int const zone = any(2) + 2, other = any(2) + 2;
        bool const isUnsure = (zone == 0) != (other == 0) && abs(ahead) <= 14h;
        ExpectOrder(made(left, zone), made(left + ahead, other),
                    isUnsure       ? '?'
                    : ahead == 0ns ? '='
                    : ahead > 0ns  ? '<'
                                   : '>');
    }
}

TEST(CDateTimeOrder, WithoutAZoneWithin14HoursIsIndeterminate) {
    // A time without a zone is between 06:00 and 10:00 of a day, whichever day that is.
    ExpectOrder(Date, {"2000-01-16 ? 2000-01-15Z", "2000-01-16 > 2000-01-14Z", "2000-01-16 < 2000-01-17Z",
                       "2000 ? 2000Z", "2000-02 ? 2000-02Z", "--02 ? --02Z", "--02-03 ? --02-03Z",
                       "---15 ? ---15Z", "20:00:00 > 05:59:59Z", "20:00:00 ? 06:00:00Z",
                       "20:00:00 ? 10:00:00Z", "20:00:00 < 10:00:01Z"});
}

TEST(CDateTimeOrder, TheFirstFieldThatOneLacksDecides) {
    // It counts -1, against a value or against 0.
    ExpectOrder(Date, {"2000-01-01 < 2000-01-01T00:00:00", "2000-01-01 ? 2000-01-01T01:00:00",
                       "2000-01-01 < 2001", "2000-01-01 ? 2000", "00:00:01 ? 2000-01-01T00:00:01",
                       "--01-01 > -0005-01-01", "00:00:00 ? ---01"});
    EXPECT_LT(CDateTime(), Date("00:00:00"));
    CDateTime date;
    date.SetDateTime(Date("2000-01-01T10:00:00"), CDateTime::dt_date);
    EXPECT_EQ(date, Date("2000-01-01")) << "what a conversion puts out of reach does not count";
}

TEST(CDateTimeOrder, HoldsBeyondTheYearsOf16Bits) {
    CDateTime const last = Date("9999-12-31T23:00:00") + Span("P22768Y");
    CDateTime west = last, east = last;
    west.SetTimeZone(-2, 0);
    east.SetTimeZone(14, 0);
    EXPECT_TRUE(west == west && east < west && west.CompareTo(last) == CDateTime::dtc_indeterminate);
    west.SetTimeZone(-14, 1);
    EXPECT_LT(last, west);
    EXPECT_EQ(west.GetTime() - east.GetTime(), (28 * 60 + 1) * 60);
    EXPECT_BX_THROW(west.GetNormalized(), CBxInvalidValueException,
                    "Invalid Year [32768] (-9999 <= year <= 9999 && year != 0)");
}
