#include "BxXmlLib5/generated/CSchemaDate.h"

#include <cstdlib>
#include <optional>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/generated/Xs.h"
#include "generated/Instant.h"
#include "generated/Scan.h"
#include "values/Calendar.h"

namespace BxXmlLib5::Generated {

namespace {

constexpr std::int64_t kMostZone = 14 * 60;  // minutes

/// In a form the letters Y M D and t stand for year, month, day and time, all else for itself.
struct DateForm {
    CDateTime::DTType type;
    std::u16string_view form;
};

constexpr DateForm kDateForms[] = {
    {CDateTime::dt_dateTime, u"Y-M-DTt"}, {CDateTime::dt_date, u"Y-M-D"},
    {CDateTime::dt_gYearMonth, u"Y-M"},   {CDateTime::dt_gYear, u"Y"},
    {CDateTime::dt_time, u"t"},           {CDateTime::dt_gDay, u"---D"},
    {CDateTime::dt_gMonth, u"--M"},       {CDateTime::dt_gMonthDay, u"--M-D"},
};

/// The parts of a literal. Those that its type does not have are those of 1972-12-31T00:00:00, so that any day
/// and month fit.
struct Parts {
    std::int64_t year = 1972;
    std::int64_t month = 12;
    std::int64_t day = 31;
    std::int64_t hour = 0;
    std::int64_t minute = 0;
    std::int64_t second = 0;
    std::u16string_view fraction;
    std::optional<std::int64_t> zone;  // minutes
    bool isUtc = false;                // zone Z
    bool isAsWritten = true;           // the literal is as CDateTime writes it, as all but a few are

    /// @param offset of the zone, in minutes
    Instant At(std::int64_t offset) const {
        auto const [days, seconds] =
            FloorDivide(((hour * 60) + minute - offset) * 60 + second, kSecondsOfDay);
        return {DayNumber(year, month, day) + days, seconds, fraction};
    }
};

bool TakeYear(Scan& scan, Parts& parts, std::u16string_view literal) {
    bool const isNegative = scan.Take(u'-');
    std::u16string_view const digits = scan.TakeDigits();
    // No year 0, and no zeros ahead of more than four digits.
    if (digits.size() < 4 || (digits.size() > 4 && digits[0] == u'0')) return false;
    std::int64_t const year = NumberOf(digits, literal);
    parts.year = isNegative ? -year : year;
    return year != 0;
}

bool TakeMonth(Scan& scan, Parts& parts) {
    auto const month = scan.TakeTwoDigits(1, 12);
    parts.month = month.value_or(1);
    parts.day = 1;
    return month.has_value();
}

bool TakeDay(Scan& scan, Parts& parts) {
    auto const day = scan.TakeTwoDigits(1, DaysInMonth(parts.year, parts.month));
    parts.day = day.value_or(1);
    return day.has_value();
}

bool TakeTime(Scan& scan, Parts& parts) {
    auto const hour = scan.TakeTwoDigits(0, 24);
    if (!hour || !scan.Take(u':')) return false;
    auto const minute = scan.TakeTwoDigits(0, 59);
    if (!minute || !scan.Take(u':')) return false;
    auto const second = scan.TakeTwoDigits(0, 59);
    if (!second) return false;
    std::size_t const left = scan.Left();
    if (!scan.TakeFraction(parts.fraction)) return false;
    parts.hour = *hour;
    parts.minute = *minute;
    parts.second = *second;
    std::size_t const usual = parts.fraction.empty() ? 0 : parts.fraction.size() + 1;
    parts.isAsWritten = *hour < 24 && left - scan.Left() == usual;
    return *hour < 24 || (*minute == 0 && *second == 0 && parts.fraction.empty());
}

bool TakeZone(Scan& scan, Parts& parts) {
    if (scan.AtEnd()) return true;
    if (scan.Take(u'Z')) {
        parts.zone = 0;
        parts.isUtc = true;
        return scan.AtEnd();
    }
    bool const isNegative = scan.Take(u'-');
    if (!isNegative && !scan.Take(u'+')) return false;
    auto const hours = scan.TakeTwoDigits(0, 14);
    if (!hours || !scan.Take(u':')) return false;
    auto const minutes = scan.TakeTwoDigits(0, 59);
    if (!minutes || *hours * 60 + *minutes > kMostZone) return false;
    parts.zone = (isNegative ? -1 : 1) * (*hours * 60 + *minutes);
    if (isNegative && parts.zone == 0) parts.isAsWritten = false;
    return scan.AtEnd();
}

/// Reads the form that most moments have: in UTC, to the second.
/// @return nothing for any other literal, right or wrong
std::optional<Parts> ReadUsualMoment(std::u16string_view literal) {
    constexpr std::u16string_view kLeast = u"0000-00-00T00:00:00Z";
    constexpr std::u16string_view kMost = u"9999-19-39T29:59:59Z";
    if (literal.size() != kLeast.size()) return std::nullopt;
    // All units at once, since nearly all literals pass.
    std::uint16_t isOther = 0;  // as wide as a unit
    for (std::size_t i = 0; i < kLeast.size(); ++i) {
        auto const above = static_cast<std::uint16_t>(literal[i] - kLeast[i]);
        auto const most = static_cast<std::uint16_t>(kMost[i] - kLeast[i]);
        isOther |= static_cast<std::uint16_t>(above > most);
    }
    if (isOther != 0) return std::nullopt;
    auto const number = [&](std::size_t at) { return (literal[at] - u'0') * 10 + (literal[at + 1] - u'0'); };
    Parts parts;
    parts.year = number(0) * 100 + number(2);
    parts.month = number(5);
    parts.day = number(8);
    parts.hour = number(11);
    parts.minute = number(14);
    parts.second = number(17);
    parts.zone = 0;
    parts.isUtc = true;
    bool const isDay = parts.year > 0 && parts.month >= 1 && parts.month <= 12 && parts.day >= 1 &&
                       (parts.day <= 28 || parts.day <= DaysInMonth(parts.year, parts.month));
    return isDay && parts.hour < 24 ? std::optional(parts) : std::nullopt;
}

std::optional<Parts> ReadParts(CDateTime::DTType type, std::u16string_view literal) {
    if (type == CDateTime::dt_dateTime) {
        if (auto const usual = ReadUsualMoment(literal)) return usual;
    }
    for (DateForm const& row : kDateForms) {
        if (row.type != type) continue;
        Scan scan(literal);
        Parts parts;
        for (char16_t const part : row.form) {
            bool const isThere = part == u'Y'   ? TakeYear(scan, parts, literal)
                                 : part == u'M' ? TakeMonth(scan, parts)
                                 : part == u'D' ? TakeDay(scan, parts)
                                 : part == u't' ? TakeTime(scan, parts)
                                                : scan.Take(part);
            if (!isThere) return std::nullopt;
        }
        // The first edition of the standard wrote months as "--MM--".
        if (type == CDateTime::dt_gMonth && scan.Take(u'-')) {
            parts.isAsWritten = !scan.Take(u'-');
            // A single hyphen was the sign of a zone.
            if (parts.isAsWritten) scan = Scan(literal.substr(4));
        }
        if (!TakeZone(scan, parts)) return std::nullopt;
        return parts;
    }
    return std::nullopt;
}

/// The parts of a value's literal. Its text must outlive them.
Parts PartsOf(CSchemaDate const& value, std::u16string_view text) {
    Parts parts = ReadParts(value.GetType(), text).value_or(Parts());
    // Without a date the end of the day is its start.
    if (value.GetType() == CDateTime::dt_time && parts.hour == 24) parts.hour = 0;
    return parts;
}

void MoveToNextDay(Parts& parts, CDateTime::DTType type) {
    parts.hour = 0;
    if (type != CDateTime::dt_dateTime) return;
    CivilDay const next = DayOf(DayNumber(parts.year, parts.month, parts.day) + 1);
    parts.year = next.year == 0 ? 1 : next.year;
    parts.month = next.month;
    parts.day = next.day;
}

void SetFields(CDateTime& value, CDateTime::DTType type, Parts const& parts) {
    auto const year = static_cast<std::int16_t>(parts.year);
    auto const narrow = [](std::int64_t number) { return static_cast<std::uint8_t>(number); };
    std::uint8_t const month = narrow(parts.month);
    std::uint8_t const day = narrow(parts.day);
    std::uint16_t const milli = Thousandths(parts.fraction, 0);
    std::uint16_t const micro = Thousandths(parts.fraction, 3);
    std::uint16_t const nano = Thousandths(parts.fraction, 6);
    switch (type) {
        case CDateTime::dt_dateTime:
            return value.SetDateTime(year, month, day, narrow(parts.hour), narrow(parts.minute),
                                     narrow(parts.second), milli, micro, nano);
        case CDateTime::dt_time:
            return value.SetTime(narrow(parts.hour), narrow(parts.minute), narrow(parts.second), milli, micro,
                                 nano);
        case CDateTime::dt_date:
            return value.SetDate(year, month, day);
        case CDateTime::dt_gYearMonth:
            return value.SetGYearMonth(year, month);
        case CDateTime::dt_gYear:
            return value.SetGYear(year);
        case CDateTime::dt_gMonthDay:
            return value.SetGMonthDay(month, day);
        case CDateTime::dt_gMonth:
            return value.SetGMonth(month);
        default:
            return value.SetGDay(day);
    }
}

/// CDateTime keeps no sign of an hour of 0.
bool IsNegativePartOfHour(std::int64_t zone) {
    return zone < 0 && zone > -60;
}

}  // namespace

CSchemaDate::CSchemaDate(CDateTime const& value) : m_value(value), m_hasValue(true) {
    wstring const text = value.ToString();
    if (!ReadParts(value.GetType(), text)) ThrowBadForm(text);
}

CSchemaDate::CSchemaDate(CDateTime::DTType type, std::u16string_view text) : m_value(type) {
    auto parts = ReadParts(type, text);
    if (!parts) ThrowBadForm(text);
    if (parts->hour == 24) MoveToNextDay(*parts, type);
    m_hasValue = std::abs(parts->year) <= 9999 && parts->fraction.size() <= 9 &&
                 !IsNegativePartOfHour(parts->zone.value_or(0));
    if (!m_hasValue) {
        m_text = KeptText(text);
        return;
    }
    SetFields(m_value, type, *parts);
    if (parts->isUtc) {
        m_value.SetUTC();
    } else if (parts->zone) {
        m_value.SetTimeZone(static_cast<std::int16_t>(*parts->zone / 60),
                            static_cast<std::uint8_t>(std::abs(*parts->zone) % 60));
    }
    if (!parts->isAsWritten) m_text = KeptText(text);
}

wstring CSchemaDate::GetText() const {
    return m_text ? *m_text : m_value.ToString();
}

CDateTime const& CSchemaDate::GetDateTime() const {
    if (m_hasValue) return m_value;
    throw CBxInvalidValueException(
        FormatString(u"The value [%s] is beyond what CDateTime can hold", GetText().c_str()));
}

std::partial_ordering CSchemaDate::operator<=>(CSchemaDate const& other) const {
    if (GetType() != other.GetType()) return std::partial_ordering::unordered;
    wstring const text = GetText();
    wstring const otherText = other.GetText();
    Parts const left = PartsOf(*this, text);
    Parts const right = PartsOf(other, otherText);
    if (left.zone.has_value() == right.zone.has_value()) {
        return left.At(left.zone.value_or(0)) <=> right.At(right.zone.value_or(0));
    }
    // A local time is earliest if its zone is the easternmost, latest if it is the westernmost.
    if (left.At(left.zone.value_or(-kMostZone)) < right.At(right.zone.value_or(kMostZone))) {
        return std::partial_ordering::less;
    }
    if (left.At(left.zone.value_or(kMostZone)) > right.At(right.zone.value_or(-kMostZone))) {
        return std::partial_ordering::greater;
    }
    return std::partial_ordering::unordered;
}

bool CSchemaDate::operator==(CSchemaDate const& other) const {
    return (*this <=> other) == std::partial_ordering::equivalent;
}

}  // namespace BxXmlLib5::Generated
