#include "values/WideDate.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "values/Calendar.h"

namespace BxXmlLib5 {

namespace {

/// No zone is further from UTC (XML Schema Part 2, 3.2.7.4).
constexpr int kFarthestZone = 14;

/// Adds to one field and gives the carry for the next.
std::int64_t AddTo(std::int64_t& field, std::int64_t unit, int sign, std::uint64_t amount,
                   std::int64_t carry) {
    // Divided before it is signed: the amount can be above the signed range.
    auto const divisor = static_cast<std::uint64_t>(unit);
    auto const whole = static_cast<std::int64_t>(amount / divisor);
    auto const rest = static_cast<std::int64_t>(amount % divisor);
    auto const [over, remainder] = FloorDivide(field + sign * rest + carry, unit);
    field = remainder;
    return sign * whole + over;
}

void SetUnused(DateTimeFields& fields, DateTimeType const& type, int monthAndDay) {
    if (!type.Uses(kYear)) fields.year = 0;
    if (!type.Uses(kMonth)) fields.month = monthAndDay;
    if (!type.Uses(kDay)) fields.day = monthAndDay;
    if (!type.Uses(kTime)) fields = {fields.year, fields.month, fields.day};
}

CDateTime::DTCompareResult CompareFields(WideDate const& left, WideDate const& right) {
    using Values = std::array<std::int64_t, 6>;
    auto const valuesOf = [](WideDate const& date) -> Values {
        DateTimeType const& type = TypeOf(date.type);
        DateTimeFields const& f = date.fields;
        auto const used = [&type](FieldSet field, std::int64_t value) {
            return type.Uses(field) ? value : -1;
        };
        std::int64_t const fraction = (f.milli * 1000 + f.micro) * 1000 + f.nano;
        return {used(kYear, f.year), used(kMonth, f.month), used(kDay, f.day),
                used(kTime, f.hour), used(kTime, f.minute), used(kTime, f.second * 1'000'000'000 + fraction)};
    };
    Values const ours = valuesOf(left);
    Values const theirs = valuesOf(right);
    for (std::size_t i = 0; i < ours.size(); ++i) {
        auto const [less, greater] = std::minmax(ours[i], theirs[i]);
        if (less < 0 && greater > 0) return CDateTime::dtc_indeterminate;
        if (ours[i] != theirs[i])
            return less == ours[i] ? CDateTime::dtc_lessThan : CDateTime::dtc_greaterThan;
    }
    return CDateTime::dtc_equal;
}

/// A local time in UTC, if its zone is so many hours ahead of it.
WideDate InZone(WideDate date, int hours) {
    CDateTimeSpan offset(static_cast<std::uint32_t>(std::abs(hours)), 0, 0);
    if (hours > 0) offset.Negate();
    date.Add(offset);
    return date;
}

}  // namespace

// XML Schema Part 2, appendix E.
void WideDate::Add(CDateTimeSpan const& span) {
    DateTimeType const& uses = TypeOf(type);
    SetUnused(fields, uses, 1);
    int const sign = span.IsNegative() ? -1 : 1;

    auto const [years, month] = FloorDivide(fields.month - 1 + sign * std::int64_t{span.GetMonths()}, 12);
    fields.year += sign * std::int64_t{span.GetYears()} + years;
    fields.month = month + 1;
    fields.day = std::min(fields.day, DaysInMonth(fields.year, fields.month));

    std::int64_t carry = AddTo(fields.nano, 1000, sign, span.GetNanoSeconds(), 0);
    carry = AddTo(fields.micro, 1000, sign, span.GetMicroSeconds(), carry);
    carry = AddTo(fields.milli, 1000, sign, span.GetMilliSeconds(), carry);
    carry = AddTo(fields.second, 60, sign, span.GetSeconds(), carry);
    carry = AddTo(fields.minute, 60, sign, span.GetMinutes(), carry);
    carry = AddTo(fields.hour, 24, sign, span.GetHours(), carry);

    std::int64_t const days = sign * std::int64_t{span.GetDays()} + carry;
    if (days != 0) {
        CivilDay const result = DayOf(DayNumber(fields.year, fields.month, fields.day) + days);
        fields.year = result.year;
        fields.month = result.month;
        fields.day = result.day;
    }
    SetUnused(fields, uses, 0);
}

CDateTime::DTCompareResult Compare(WideDate const& left, WideDate const& right) {
    if (left.isUtc == right.isUtc) return CompareFields(left, right);
    // A local time is earliest if its zone is the easternmost, latest if it is the westernmost.
    WideDate const& local = left.isUtc ? right : left;
    auto const compareIn = [&](int zone) {
        return left.isUtc ? CompareFields(left, InZone(local, zone))
                          : CompareFields(InZone(local, zone), right);
    };
    auto const atLeast = left.isUtc ? CDateTime::dtc_lessThan : CDateTime::dtc_greaterThan;
    auto const atMost = left.isUtc ? CDateTime::dtc_greaterThan : CDateTime::dtc_lessThan;
    if (compareIn(kFarthestZone) == atLeast) return atLeast;
    if (compareIn(-kFarthestZone) == atMost) return atMost;
    return CDateTime::dtc_indeterminate;
}

}  // namespace BxXmlLib5
