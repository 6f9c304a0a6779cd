// The date and time types of XML Schema.
#pragma once

#include <chrono>
#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <ratio>
#include <string_view>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/platform/WindowsTime.h"

namespace BxXmlLib5 {

class CDateTimeSpan;
struct DateTimeFields;
struct WideDate;

/// A value of any of the eight date and time types (XML Schema Part 2, 3.2.7 to 3.2.14). A type field says
/// which of the eight it is, and so which fields are in use; those that are not are 0. The calendar is the
/// proleptic Gregorian one. There is no year 0: a negative year is one before the common era, with the number
/// that its text shows.
///
/// Zones. A value has no zone, or it is in UTC (text "Z"), or it has an offset from UTC of up to 23:59. A
/// value in UTC and a value with an offset both say true to IsUTC(), only the latter to HasTimeZone(). The
/// fields are always those that the text shows, whatever the zone.
///
/// Setting. An object of type dt_yearZero, which is what a new object has, takes any type. An object that has
/// a type can only be set as that type again; only parsing, conversion and assignment of another object
/// change it. Setting drops the zone. A setter throws CBxInvalidValueException for what is no value of the
/// type, and then leaves the fields as they were given.
class BXXMLLIB5_API CDateTime {
public:
    /// The eight types, and that of an empty object.
    enum DTType : std::int32_t {
        dt_yearZero = 0,    ///< empty object
        dt_dateTime = 1,    ///< year, month, day, hour, minute, second, fraction
        dt_date = 2,        ///< year, month, day
        dt_gYearMonth = 3,  ///< year, month
        dt_gYear = 4,       ///< year
        dt_time = 5,        ///< hour, minute, second, fraction
        dt_gDay = 6,        ///< day
        dt_gMonth = 7,      ///< month
        dt_gMonthDay = 8,   ///< month, day
    };

    /// The results of the partial orders of dates and durations.
    enum DTCompareResult : std::int32_t {
        dtc_equal = 0,          ///< the same instant or length
        dtc_lessThan = 1,       ///< this one before or below the argument
        dtc_greaterThan = 2,    ///< this one after or above the argument
        dtc_indeterminate = 3,  ///< neither is certain
    };

    /// Type dt_yearZero.
    CDateTime();
    /// That type with all fields 0, which is not tested and for most types no value of theirs.
    CDateTime(DTType type);
    /// As ParseXSDDateTime().
    CDateTime(char16_t const* text);

    /// @{
    /// The following are as the assignments and setters of the same arguments, but what is no value gives
    /// an object of type dt_yearZero.
    CDateTime(std::int64_t const& time);
    CDateTime(_SYSTEMTIME const& time);
    CDateTime(_FILETIME const& time);
    CDateTime(std::int16_t year, std::uint8_t month, std::uint8_t day);
    CDateTime(std::int16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour, std::uint8_t minute,
              std::uint8_t second);
    CDateTime(std::int16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour, std::uint8_t minute,
              std::uint8_t second, std::uint16_t milli, std::uint16_t micro, std::uint16_t nano);
    /// @}

    /// The instant as dt_dateTime in UTC, cut to nanoseconds.
    /// @throws CBxInvalidValueException before the year -9999, in the year 0 and after the year 9999
    template <class Duration>
    explicit CDateTime(std::chrono::sys_time<Duration> const& time) {
        // Toward 0, so that the way back does not leave the range of the duration.
        auto const seconds = std::chrono::time_point_cast<std::chrono::seconds>(time);
        SetInstant(seconds.time_since_epoch(), std::chrono::floor<std::chrono::nanoseconds>(time - seconds));
    }

    /// @{
    /// Copies the type, all fields and the zone, whatever type the object had.
    CDateTime(CDateTime const&) = default;
    CDateTime& operator=(CDateTime const&) = default;
    /// @}

    /// Sets as dt_dateTime without zone the date in UTC of a count of seconds since 1970-01-01T00:00:00 UTC.
    CDateTime const& operator=(std::int64_t const& time);
    /// Sets as dt_dateTime without zone. The day of the week is not looked at. A field above what the object
    /// can hold throws before anything is set.
    CDateTime const& operator=(_SYSTEMTIME const& time);
    /// Sets as dt_dateTime without zone the date in UTC, cut to milliseconds.
    /// @throws CBxInvalidValueException also for a count of 2^63 or more
    CDateTime const& operator=(_FILETIME const& time);

    /// The partial order of XML Schema Part 2, 3.2.7.4. Values with a zone are compared in UTC. A value
    /// without one is taken to be within 14 hours of UTC, so that against one with a zone the result is
    /// dtc_indeterminate if they are closer than that.
    ///
    /// Values of different types compare field by field, in the order from year to second. A field that one
    /// of them lacks counts as -1: it is less if the other's field is 0, and the result is dtc_indeterminate
    /// if that is above 0; a year before the common era is compared with the -1. Such a year and one of the
    /// common era are indeterminate too.
    DTCompareResult CompareTo(CDateTime const& other) const;

    /// @{
    /// By CompareTo(). If that is indeterminate, only != is true.
    bool operator==(CDateTime const& other) const;
    bool operator!=(CDateTime const& other) const;
    bool operator<(CDateTime const& other) const;
    bool operator<=(CDateTime const& other) const;
    bool operator>(CDateTime const& other) const;
    bool operator>=(CDateTime const& other) const;
    /// @}
    /// The same as a standard result, unordered for dtc_indeterminate. Converts neither operand.
    template <std::same_as<CDateTime> T>
    friend std::partial_ordering operator<=>(T const& left, T const& right) {
        return left.Order(right);
    }

    /// @{
    /// Adds a duration as XML Schema Part 2, appendix E, does: first the months and years, with the day cut
    /// to the length of the month, then the rest. Type and zone stay. Fields that the type does not use count
    /// as their least value; what reaches them is lost. The result is not tested: its year can be 0 or above
    /// 9999.
    /// @throws CBxInvalidValueException if the year leaves 16 bits; the object keeps its value
    CDateTime operator+(CDateTimeSpan const& span) const;
    CDateTime const& operator+=(CDateTimeSpan const& span);
    /// @}
    /// @{
    /// Goes back by the magnitude of the duration, also if that is negative. Otherwise as +.
    CDateTime operator-(CDateTimeSpan const& span) const;
    CDateTime const& operator-=(CDateTimeSpan const& span);
    /// @}
    /// The duration of 0: the difference of two dates is not computed.
    CDateTimeSpan operator-(CDateTime const& other) const;

    /// Which of the types the value is of.
    DTType GetType() const { return m_dtType; }
    /// The name of the type in XML Schema, "yearZero" for an empty object.
    wstring GetTypeAsString() const;

    /// @{
    /// The fields. Each throws CBxInvalidStateException for a type that does not use it.
    std::int16_t GetYear() const;
    std::uint8_t GetMonth() const;
    std::uint8_t GetDay() const;
    std::uint8_t GetHour() const;
    std::uint8_t GetMinute() const;
    std::uint8_t GetSecond() const;
    /// @}
    /// The seconds with their fraction.
    double GetRealSecond() const;
    /// Digits 1 to 3 of the fraction of the second.
    std::uint16_t GetMilliSecond() const;
    /// Digits 4 to 6.
    std::uint16_t GetMicroSecond() const;
    /// Digits 7 to 9.
    std::uint16_t GetNanoSecond() const;

    /// 1 for Sunday to 7 for Saturday, of a dt_dateTime or dt_date.
    /// @throws CBxInvalidStateException for another type
    std::uint8_t GetDayOfWeek() const;
    /// 1 for 1 January, of a dt_dateTime or dt_date.
    /// @throws CBxInvalidStateException for another type
    std::uint16_t GetDayOfYear() const;

    /// Whether there is a zone, UTC or an offset.
    bool IsUTC() const { return m_isUTC; }
    /// Whether the zone is an offset.
    bool HasTimeZone() const { return m_hasTimeZone; }
    /// The hours of the offset, -23 to 23.
    /// @throws CBxInvalidStateException without an offset
    std::int16_t GetZoneHour() const;
    /// The minutes of the offset, 0 to 59, in the direction of the hours.
    /// @throws CBxInvalidStateException without an offset
    std::uint8_t GetZoneMinute() const;

    /// The seconds from 1970-01-01T00:00:00 UTC to this dt_dateTime or to midnight of this dt_date, in UTC;
    /// without a zone the fields are taken as UTC. Fractions are dropped, earlier dates are negative.
    /// @throws CBxInvalidValueException for another type
    std::int64_t GetTime() const;

    /// The instant of GetTime() with the fraction of a dt_dateTime, cut to whole units.
    /// @tparam Duration of whole seconds or of a part of one down to nanoseconds, counted by a signed integer
    /// @throws CBxInvalidValueException as GetTime(), CBxOverFlowException if the count does not fit
    template <class Duration = std::chrono::nanoseconds>
    std::chrono::sys_time<Duration> GetSysTime() const {
        using Count = typename Duration::rep;
        using Period = typename Duration::period;
        static_assert(std::signed_integral<Count>);
        static_assert(Period::den == 1 || (Period::num == 1 && std::nano::den % Period::den == 0));
        using Limits = std::numeric_limits<Count>;
        std::int64_t const count = CountUnits(Period::num, Period::den, Limits::min(), Limits::max());
        return std::chrono::sys_time<Duration>(Duration(static_cast<Count>(count)));
    }

    /// The fields of a dt_dateTime as they are.
    /// @throws CBxInvalidValueException for another type or a negative year
    _SYSTEMTIME GetAsSystemTime() const;

    /// The same instant with the offset 00:00; a value without an offset as it is.
    /// @throws CBxInvalidValueException if the year leaves 16 bits
    CDateTime GetNormalized() const;

    /// The lexical form of XML Schema for the type, the fraction without trailing zeros, "Invalid Year Zero"
    /// for an empty object.
    wstring ToString() const;
    /// @param format "s" for the form above; "G", null or the empty text for the empty text; anything else
    ///     gives the text "Unknown Format: " with the format
    wstring ToString(char16_t const* format) const;

    /// Now, as dt_dateTime in local time without zone.
    static CDateTime GetTickCount();

    /// @{
    /// Set the fields as the type named, without zone: SetDateTime as dt_dateTime, SetDate as dt_date, and so
    /// on. SetFracTime is SetTime within the first second of the day.
    /// @throws CBxInvalidStateException if the object has another type, with the object unchanged
    /// @throws CBxInvalidValueException if this is no value of the type
    void SetDateTime(std::int16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour,
                     std::uint8_t minute, std::uint8_t second);
    void SetDateTime(std::int16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour,
                     std::uint8_t minute, std::uint8_t second, std::uint16_t milli, std::uint16_t micro,
                     std::uint16_t nano);
    void SetDate(std::int16_t year, std::uint8_t month, std::uint8_t day);
    void SetTime(std::uint8_t hour, std::uint8_t minute, std::uint8_t second);
    void SetTime(std::uint8_t hour, std::uint8_t minute, std::uint8_t second, std::uint16_t milli,
                 std::uint16_t micro, std::uint16_t nano);
    void SetFracTime(std::uint16_t milli, std::uint16_t micro, std::uint16_t nano);
    void SetGYear(std::int16_t year);
    void SetGYearMonth(std::int16_t year, std::uint8_t month);
    void SetGMonth(std::uint8_t month);
    void SetGMonthDay(std::uint8_t month, std::uint8_t day);
    void SetGDay(std::uint8_t day);
    /// @}

    /// Takes over the source, zone included, as the target type, whatever type the object had. The source
    /// must use all fields that the target does, unless they are of one type or the target is dt_yearZero.
    /// Its other fields are out of reach from then on.
    /// @throws CBxInvalidValueException otherwise
    void SetDateTime(CDateTime const& source, DTType target);

    /// Sets the offset; the other fields stay as they are.
    /// @param hour -23 to 23
    /// @param minute 0 to 59, in the direction of the hour
    /// @throws CBxInvalidValueException outside of that; the zone stays
    void SetTimeZone(std::int16_t hour, std::uint8_t minute);
    /// Sets the zone to UTC; the other fields stay as they are.
    void SetUTC();

    /// @{
    /// Read a lexical form of XML Schema in place of any value that the object had. ParseXSDDate takes the
    /// forms of all six types without a time, and the type from the form; a month may also be written --MM--.
    /// Years have four digits. A fraction has at most nine digits. Offsets are taken up to 23:59; the hour 24
    /// counts as 00, and -00:30 as +00:30. What stands in the place of a zone but begins with neither "Z" nor
    /// a sign is ignored: any text behind a time, six characters with a colon behind a date.
    /// @throws CBxInvalidValueException for any other text, null and one with a unit of value 0 included. The
    ///     value is gone by then, except where ParseXSDDateTime was given null or no "T".
    void ParseXSDDateTime(char16_t const* text);
    void ParseXSDDate(char16_t const* text);
    void ParseXSDTime(char16_t const* text);
    void ParseXSDDateTime(std::u16string_view text);
    void ParseXSDDate(std::u16string_view text);
    void ParseXSDTime(std::u16string_view text);
    /// @}

private:
    void SetDateTime(DTType type, DateTimeFields const& fields);
    void SetXSDDate(std::u16string_view text);
    void SetXSDTime(std::u16string_view text);
    void SetZone(std::u16string_view text);
    void Validate() const;
    void AddDateTimeSpan(CDateTimeSpan const& span);
    void Clear();

    /// @param fraction between -1 s and 1 s
    void SetInstant(std::chrono::seconds seconds, std::chrono::nanoseconds fraction);
    /// The units of num / den seconds since 1970.
    std::int64_t CountUnits(std::int64_t num, std::int64_t den, std::int64_t least, std::int64_t most) const;

    DateTimeFields Fields() const;
    void SetFields(DateTimeFields const& fields);
    void RequireOffset() const;
    /// Without the offset, if there is one.
    WideDate Wide() const;
    std::partial_ordering Order(CDateTime const& other) const;

    DTType m_dtType = dt_yearZero;
    std::int16_t m_year = 0;
    std::uint8_t m_month = 0;
    std::uint8_t m_day = 0;
    std::uint8_t m_hour = 0;
    std::uint8_t m_minute = 0;
    std::uint8_t m_second = 0;
    std::uint16_t m_milli = 0;
    std::uint16_t m_micro = 0;
    std::uint16_t m_nano = 0;
    bool m_isUTC = false;
    bool m_hasTimeZone = false;
    std::int16_t m_zoneHour = 0;
    std::uint8_t m_zoneMinute = 0;
};

}  // namespace BxXmlLib5
