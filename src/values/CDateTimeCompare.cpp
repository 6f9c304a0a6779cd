#include <array>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/values/CDateTime.h"
#include "values/DateTimeFields.h"

namespace BxXmlLib5 {

namespace {

/// No zone is further from UTC (XML Schema Part 2, 3.2.7.4).
constexpr std::int16_t kFarthestZone = 14;

}  // namespace

CDateTime::DTCompareResult CDateTime::CompareFields(CDateTime const& left, CDateTime const& right) {
    using Values = std::array<double, 6>;
    auto const valuesOf = [](CDateTime const& date) -> Values {
        DateTimeType const& type = TypeOf(date.m_dtType);
        constexpr double kNone = -1;
        return {type.Uses(kYear) ? date.m_year : kNone,   type.Uses(kMonth) ? date.m_month : kNone,
                type.Uses(kDay) ? date.m_day : kNone,     type.Uses(kTime) ? date.m_hour : kNone,
                type.Uses(kTime) ? date.m_minute : kNone, type.Uses(kTime) ? date.GetRealSecond() : kNone};
    };
    Values const ours = valuesOf(left);
    Values const theirs = valuesOf(right);
    for (std::size_t i = 0; i < ours.size(); ++i) {
        if (ours[i] * theirs[i] < 0) return dtc_indeterminate;
        if (ours[i] < theirs[i]) return dtc_lessThan;
        if (ours[i] > theirs[i]) return dtc_greaterThan;
    }
    return dtc_equal;
}

CDateTime CDateTime::InZone(std::int16_t hour) const {
    CDateTime result = *this;
    result.SetTimeZone(hour, 0);
    return result.GetNormalized();
}

CDateTime::DTCompareResult CDateTime::CompareTo(CDateTime const& other) const {
    CDateTime const left = GetNormalized();
    CDateTime const right = other.GetNormalized();
    if (left.m_isUTC == right.m_isUTC) return CompareFields(left, right);
    try {
        // A local time is earliest if its zone is the easternmost, latest if it is the westernmost.
        if (left.m_isUTC) {
            if (CompareFields(left, right.InZone(kFarthestZone)) == dtc_lessThan) return dtc_lessThan;
            if (CompareFields(left, right.InZone(-kFarthestZone)) == dtc_greaterThan) return dtc_greaterThan;
        } else {
            if (CompareFields(left.InZone(kFarthestZone), right) == dtc_greaterThan) return dtc_greaterThan;
            if (CompareFields(left.InZone(-kFarthestZone), right) == dtc_lessThan) return dtc_lessThan;
        }
    } catch (CBxInvalidValueException const&) {
        return dtc_indeterminate;
    }
    return dtc_indeterminate;
}

bool CDateTime::operator==(CDateTime const& other) const {
    return CompareTo(other) == dtc_equal;
}

bool CDateTime::operator!=(CDateTime const& other) const {
    return CompareTo(other) != dtc_equal;
}

bool CDateTime::operator<(CDateTime const& other) const {
    return CompareTo(other) == dtc_lessThan;
}

bool CDateTime::operator<=(CDateTime const& other) const {
    DTCompareResult const result = CompareTo(other);
    return result == dtc_lessThan || result == dtc_equal;
}

bool CDateTime::operator>(CDateTime const& other) const {
    return CompareTo(other) == dtc_greaterThan;
}

bool CDateTime::operator>=(CDateTime const& other) const {
    DTCompareResult const result = CompareTo(other);
    return result == dtc_greaterThan || result == dtc_equal;
}

}  // namespace BxXmlLib5
