#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/values/CDateTime.h"
#include "platform/Clock.h"
#include "values/Calendar.h"
#include "values/DateTimeFields.h"
#include "values/WideDate.h"

namespace BxXmlLib5 {

namespace {

constexpr std::int64_t kSecondsOfDay = 86'400;

/// Whether the fields of a record fit the narrower ones of a date.
bool Fits(DateTimeFields const& fields) {
    for (std::int64_t const field : {fields.month, fields.day, fields.hour, fields.minute, fields.second}) {
        if (field > UINT8_MAX) return false;
    }
    return fields.year <= INT16_MAX;
}

}  // namespace

CDateTime const& CDateTime::operator=(std::int64_t const& time) {
    auto const [dayNumber, secondOfDay] = FloorDivide(time, kSecondsOfDay);
    auto const [year, month, day] = DayOf(dayNumber);
    SetDateTime(dt_dateTime, Narrow({.year = year,
                                     .month = month,
                                     .day = day,
                                     .hour = secondOfDay / 3600,
                                     .minute = secondOfDay / 60 % 60,
                                     .second = secondOfDay % 60}));
    return *this;
}

void CDateTime::SetInstant(std::chrono::seconds seconds, std::chrono::nanoseconds fraction) {
    auto const [carry, nanos] = FloorDivide(fraction.count(), std::nano::den);
    *this = std::int64_t{seconds.count()} + carry;
    m_milli = static_cast<std::uint16_t>(nanos / 1'000'000);
    m_micro = static_cast<std::uint16_t>(nanos / 1000 % 1000);
    m_nano = static_cast<std::uint16_t>(nanos % 1000);
    SetUTC();
}

std::int64_t CDateTime::CountUnits(std::int64_t num, std::int64_t den, std::int64_t least,
                                   std::int64_t most) const {
    std::int64_t seconds = GetTime();
    std::int64_t const nanos = m_dtType == dt_dateTime ? (m_milli * 1000 + m_micro) * 1000 + m_nano : 0;
    std::int64_t fraction = nanos / (std::nano::den / den);
    if (seconds < 0 && fraction != 0) {
        // Both negative, so that the product is no further from 0 than the sum.
        ++seconds;
        fraction -= den;
    }
    std::int64_t count = FloorDivide(seconds, num).quotient;
    bool const fits =
        !__builtin_mul_overflow(count, den, &count) && !__builtin_add_overflow(count, fraction, &count);
    if (!fits || count < least || count > most) {
        throw CBxOverFlowException(u"The date is too far from 1970 to be counted in units of this size");
    }
    return count;
}

CDateTime const& CDateTime::operator=(_SYSTEMTIME const& time) {
    DateTimeFields const fields{.year = time.wYear,
                                .month = time.wMonth,
                                .day = time.wDay,
                                .hour = time.wHour,
                                .minute = time.wMinute,
                                .second = time.wSecond,
                                .milli = time.wMilliseconds};
    if (!Fits(fields)) ValidateFields(dt_dateTime, fields);
    SetDateTime(dt_dateTime, fields);
    return *this;
}

CDateTime const& CDateTime::operator=(_FILETIME const& time) {
    auto const record = ToSystemTime(time);
    if (!record) throw CBxInvalidValueException(u"Failed to convert FILETIME to SYSTEMTIME");
    return *this = *record;
}

CDateTime CDateTime::GetTickCount() {
    return CDateTime(LocalTime());
}

std::int64_t CDateTime::GetTime() const {
    if (m_dtType != dt_dateTime && m_dtType != dt_date) {
        throw CBxInvalidValueException(
            FormatString(u"Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: %s.",
                         TypeOf(m_dtType).name));
    }
    DateTimeFields const utc = Wide().fields;
    std::int64_t const days = DayNumber(utc.year, utc.month, utc.day);
    std::int64_t const secondOfDay = (utc.hour * 60 + utc.minute) * 60 + utc.second;
    return days * kSecondsOfDay + (m_dtType == dt_dateTime ? secondOfDay : 0);
}

_SYSTEMTIME CDateTime::GetAsSystemTime() const {
    if (m_dtType != dt_dateTime) {
        throw CBxInvalidValueException(
            FormatString(u"Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date Type: %s.",
                         TypeOf(m_dtType).name));
    }
    if (m_year < 0) ThrowInvalidYear(m_year, 0, UINT16_MAX);
    return {
        .wYear = static_cast<std::uint16_t>(m_year),
        .wMonth = m_month,
        .wDayOfWeek = static_cast<std::uint16_t>(GetDayOfWeek() - 1),
        .wDay = m_day,
        .wHour = m_hour,
        .wMinute = m_minute,
        .wSecond = m_second,
        .wMilliseconds = m_milli,
    };
}

}  // namespace BxXmlLib5
