#include <algorithm>
#include <cstdlib>

#include "BxXmlLib5/values/CDateTime.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "values/Calendar.h"
#include "values/DateTimeFields.h"

namespace BxXmlLib5 {

namespace {

/// Adds to one field and gives the carry for the next.
std::int64_t AddTo(int& field, std::int64_t unit, int sign, std::uint64_t amount, std::int64_t carry) {
    // Divided before it is signed: the amount can be above the signed range.
    auto const divisor = static_cast<std::uint64_t>(unit);
    auto const whole = static_cast<std::int64_t>(amount / divisor);
    auto const rest = static_cast<std::int64_t>(amount % divisor);
    auto const [over, remainder] = FloorDivide(field + sign * rest + carry, unit);
    field = static_cast<int>(remainder);
    return sign * whole + over;
}

void SetUnused(DateTimeFields& fields, DateTimeType const& type, int monthAndDay) {
    if (!type.Uses(kYear)) fields.year = 0;
    if (!type.Uses(kMonth)) fields.month = monthAndDay;
    if (!type.Uses(kDay)) fields.day = monthAndDay;
    if (!type.Uses(kTime)) fields = {fields.year, fields.month, fields.day};
}

}  // namespace

// XML Schema Part 2, appendix E.
void CDateTime::AddDateTimeSpan(CDateTimeSpan const& span) {
    DateTimeType const& type = TypeOf(m_dtType);
    DateTimeFields fields = Fields();
    SetUnused(fields, type, 1);
    int const sign = span.IsNegative() ? -1 : 1;

    auto const [years, month] = FloorDivide(fields.month - 1 + sign * std::int64_t{span.GetMonths()}, 12);
    std::int64_t year = fields.year + sign * std::int64_t{span.GetYears()} + years;
    fields.month = static_cast<int>(month) + 1;
    fields.day = std::min(fields.day, DaysInMonth(year, fields.month));

    std::int64_t carry = AddTo(fields.nano, 1000, sign, span.GetNanoSeconds(), 0);
    carry = AddTo(fields.micro, 1000, sign, span.GetMicroSeconds(), carry);
    carry = AddTo(fields.milli, 1000, sign, span.GetMilliSeconds(), carry);
    carry = AddTo(fields.second, 60, sign, span.GetSeconds(), carry);
    carry = AddTo(fields.minute, 60, sign, span.GetMinutes(), carry);
    carry = AddTo(fields.hour, 24, sign, span.GetHours(), carry);

    std::int64_t const days = sign * std::int64_t{span.GetDays()} + carry;
    if (days != 0) {
        CivilDay const result = DayOf(DayNumber(year, fields.month, fields.day) + days);
        year = result.year;
        fields.month = result.month;
        fields.day = result.day;
    }
    fields.year = type.Uses(kYear) ? NarrowYear(year) : 0;
    SetUnused(fields, type, 0);
    SetFields(fields);
}

CDateTime CDateTime::operator+(CDateTimeSpan const& span) const {
    CDateTime result = *this;
    return result += span;
}

CDateTime const& CDateTime::operator+=(CDateTimeSpan const& span) {
    AddDateTimeSpan(span);
    return *this;
}

CDateTime CDateTime::operator-(CDateTimeSpan const& span) const {
    return *this + span.GetAsNegative();
}

CDateTime const& CDateTime::operator-=(CDateTimeSpan const& span) {
    return *this += span.GetAsNegative();
}

CDateTimeSpan CDateTime::operator-(CDateTime const&) const {
    return {};
}

CDateTime CDateTime::GetNormalized() const {
    CDateTime result = *this;
    if (!m_hasTimeZone) return result;
    CDateTimeSpan offset(static_cast<std::uint32_t>(std::abs(m_zoneHour)), m_zoneMinute, 0);
    if (m_zoneHour >= 0) offset.Negate();
    result += offset;
    result.SetTimeZone(0, 0);
    return result;
}

}  // namespace BxXmlLib5
