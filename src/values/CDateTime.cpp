#include "BxXmlLib5/values/CDateTime.h"

#include <concepts>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "values/Calendar.h"
#include "values/DateTimeFields.h"

namespace BxXmlLib5 {

namespace {

/// Sets an object under construction; what is no value leaves it empty.
template <std::invocable Setter>
void SetOrClear(CDateTime& date, Setter setter) {
    try {
        setter();
    } catch (CBxInvalidValueException const&) {
        date = CDateTime();
    }
}

/// @param message with a %s for the name of the type
void RequireUse(CDateTime::DTType type, FieldSet fields, char16_t const* message) {
    DateTimeType const& row = TypeOf(type);
    if ((row.fields & fields) != fields) throw CBxInvalidStateException(FormatString(message, row.name));
}

/// Whether a value of one type has the fields of another.
bool CheckConversion(CDateTime::DTType source, CDateTime::DTType target) {
    if (source == target || target == CDateTime::dt_yearZero) return true;
    if (!IsKnown(source)) {
        throw CBxInvalidValueException(FormatString(u"Unknown date type %d.", static_cast<int>(source)));
    }
    if (source == CDateTime::dt_dateTime) return true;
    return IsKnown(target) && (TypeOf(target).fields & ~TypeOf(source).fields) == 0;
}

}  // namespace

CDateTime::CDateTime() = default;

CDateTime::CDateTime(DTType type) : m_dtType(type) {}

CDateTime::CDateTime(char16_t const* text) {
    ParseXSDDateTime(text);
}

CDateTime::CDateTime(std::int64_t const& time) {
    SetOrClear(*this, [&] { *this = time; });
}

CDateTime::CDateTime(_SYSTEMTIME const& time) {
    SetOrClear(*this, [&] { *this = time; });
}

CDateTime::CDateTime(_FILETIME const& time) {
    SetOrClear(*this, [&] { *this = time; });
}

CDateTime::CDateTime(std::int16_t year, std::uint8_t month, std::uint8_t day) {
    SetOrClear(*this, [&] { SetDate(year, month, day); });
}

CDateTime::CDateTime(std::int16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour,
                     std::uint8_t minute, std::uint8_t second)
    : CDateTime(year, month, day, hour, minute, second, 0, 0, 0) {}

CDateTime::CDateTime(std::int16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour,
                     std::uint8_t minute, std::uint8_t second, std::uint16_t milli, std::uint16_t micro,
                     std::uint16_t nano) {
    SetOrClear(*this, [&] { SetDateTime(year, month, day, hour, minute, second, milli, micro, nano); });
}

void CDateTime::Clear() {
    *this = CDateTime();
}

DateTimeFields CDateTime::Fields() const {
    return {m_year, m_month, m_day, m_hour, m_minute, m_second, m_milli, m_micro, m_nano};
}

void CDateTime::SetFields(DateTimeFields const& fields) {
    m_year = static_cast<std::int16_t>(fields.year);
    m_month = static_cast<std::uint8_t>(fields.month);
    m_day = static_cast<std::uint8_t>(fields.day);
    m_hour = static_cast<std::uint8_t>(fields.hour);
    m_minute = static_cast<std::uint8_t>(fields.minute);
    m_second = static_cast<std::uint8_t>(fields.second);
    m_milli = static_cast<std::uint16_t>(fields.milli);
    m_micro = static_cast<std::uint16_t>(fields.micro);
    m_nano = static_cast<std::uint16_t>(fields.nano);
}

void CDateTime::Validate() const {
    ValidateFields(m_dtType, Fields());
}

void CDateTime::SetDateTime(DTType type, DateTimeFields const& fields) {
    if (m_dtType != dt_yearZero && m_dtType != type) {
        throw CBxInvalidStateException(
            FormatString(u"Failed to copy CDateTime. Invalid Date Type: %s, expected: %s.", TypeOf(type).name,
                         TypeOf(m_dtType).name));
    }
    Clear();
    SetFields(fields);
    m_dtType = type;
    Validate();
}

void CDateTime::SetDateTime(std::int16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour,
                            std::uint8_t minute, std::uint8_t second) {
    SetDateTime(dt_dateTime, {year, month, day, hour, minute, second});
}

void CDateTime::SetDateTime(std::int16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour,
                            std::uint8_t minute, std::uint8_t second, std::uint16_t milli,
                            std::uint16_t micro, std::uint16_t nano) {
    SetDateTime(dt_dateTime, {year, month, day, hour, minute, second, milli, micro, nano});
}

void CDateTime::SetDate(std::int16_t year, std::uint8_t month, std::uint8_t day) {
    SetDateTime(dt_date, {.year = year, .month = month, .day = day});
}

void CDateTime::SetTime(std::uint8_t hour, std::uint8_t minute, std::uint8_t second) {
    SetDateTime(dt_time, {.hour = hour, .minute = minute, .second = second});
}

void CDateTime::SetTime(std::uint8_t hour, std::uint8_t minute, std::uint8_t second, std::uint16_t milli,
                        std::uint16_t micro, std::uint16_t nano) {
    SetDateTime(
        dt_time,
        {.hour = hour, .minute = minute, .second = second, .milli = milli, .micro = micro, .nano = nano});
}

void CDateTime::SetFracTime(std::uint16_t milli, std::uint16_t micro, std::uint16_t nano) {
    SetDateTime(dt_time, {.milli = milli, .micro = micro, .nano = nano});
}

void CDateTime::SetGYear(std::int16_t year) {
    SetDateTime(dt_gYear, {.year = year});
}

void CDateTime::SetGYearMonth(std::int16_t year, std::uint8_t month) {
    SetDateTime(dt_gYearMonth, {.year = year, .month = month});
}

void CDateTime::SetGMonth(std::uint8_t month) {
    SetDateTime(dt_gMonth, {.month = month});
}

void CDateTime::SetGMonthDay(std::uint8_t month, std::uint8_t day) {
    SetDateTime(dt_gMonthDay, {.month = month, .day = day});
}

void CDateTime::SetGDay(std::uint8_t day) {
    SetDateTime(dt_gDay, {.day = day});
}

void CDateTime::SetDateTime(CDateTime const& source, DTType target) {
    if (!CheckConversion(source.m_dtType, target)) {
        throw CBxInvalidValueException(
            FormatString(u"Attempting to set a CDateTime of type %s using an XmlDateTime of type %s. The "
                         u"source CDateTime does not contian enough data to allow the conversion.",
                         TypeOf(target).name, TypeOf(source.m_dtType).name));
    }
    *this = source;
    m_dtType = target;
}

void CDateTime::SetTimeZone(std::int16_t hour, std::uint8_t minute) {
    if (hour < -23 || hour > 23 || minute > 59) {
        throw CBxInvalidValueException(FormatString(u"Invalid TimeZone [%d:%d]", hour, minute));
    }
    m_isUTC = true;
    m_hasTimeZone = true;
    m_zoneHour = hour;
    m_zoneMinute = minute;
}

void CDateTime::SetUTC() {
    m_isUTC = true;
    m_hasTimeZone = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
}

wstring CDateTime::GetTypeAsString() const {
    return TypeOf(m_dtType).name;
}

std::int16_t CDateTime::GetYear() const {
    RequireUse(m_dtType, kYear, u"Failed to GetYear. Invalid Date Type: %s.");
    return m_year;
}

std::uint8_t CDateTime::GetMonth() const {
    RequireUse(m_dtType, kMonth, u"Failed to GetMonth. Invalid Date Type: %s.");
    return m_month;
}

std::uint8_t CDateTime::GetDay() const {
    RequireUse(m_dtType, kDay, u"Failed to GetDay. Invalid Date Type: %s.");
    return m_day;
}

std::uint8_t CDateTime::GetHour() const {
    RequireUse(m_dtType, kTime, u"Failed to GetHour. Invalid Date Type: %s.");
    return m_hour;
}

std::uint8_t CDateTime::GetMinute() const {
    RequireUse(m_dtType, kTime, u"Failed to GetMinute. Invalid Date Type: %s.");
    return m_minute;
}

std::uint8_t CDateTime::GetSecond() const {
    RequireUse(m_dtType, kTime, u"Failed to GetSecond. Invalid Date Type: %s.");
    return m_second;
}

double CDateTime::GetRealSecond() const {
    RequireUse(m_dtType, kTime, u"Failed to GetRealSecond. Invalid Date Type: %s.");
    return m_second + m_milli / 1e3 + m_micro / 1e6 + m_nano / 1e9;
}

std::uint16_t CDateTime::GetMilliSecond() const {
    RequireUse(m_dtType, kTime, u"Failed to GetMilliSecond. Invalid Date Type: %s.");
    return m_milli;
}

std::uint16_t CDateTime::GetMicroSecond() const {
    RequireUse(m_dtType, kTime, u"Failed to GetMicroSecond. Invalid Date Type: %s.");
    return m_micro;
}

std::uint16_t CDateTime::GetNanoSecond() const {
    RequireUse(m_dtType, kTime, u"Failed to GetNanoSecond. Invalid Date Type: %s.");
    return m_nano;
}

std::uint8_t CDateTime::GetDayOfWeek() const {
    RequireUse(m_dtType, kYear | kMonth | kDay, u"Failed to GetDayOfWeek. Invalid Date Type: %s.");
    return static_cast<std::uint8_t>(WeekdayOf(DayNumber(m_year, m_month, m_day)) + 1);
}

std::uint16_t CDateTime::GetDayOfYear() const {
    RequireUse(m_dtType, kYear | kMonth | kDay, u"Failed to GetDayOfYear. Invalid Date Type: %s.");
    std::int64_t dayOfYear = m_day;
    for (int month = 1; month < m_month && month <= 12; ++month) dayOfYear += DaysInMonth(m_year, month);
    return static_cast<std::uint16_t>(dayOfYear);
}

std::int16_t CDateTime::GetZoneHour() const {
    RequireOffset();
    return m_zoneHour;
}

std::uint8_t CDateTime::GetZoneMinute() const {
    RequireOffset();
    return m_zoneMinute;
}

void CDateTime::RequireOffset() const {
    if (!m_hasTimeZone) throw CBxInvalidStateException(u"TimeZone is not been used");
}

}  // namespace BxXmlLib5
