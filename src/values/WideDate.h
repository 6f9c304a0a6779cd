// Dates on the way from one to another, where a year may be of any size.
#pragma once

#include <compare>
#include <cstdint>

#include "BxXmlLib5/values/CDateTime.h"
#include "values/DateTimeFields.h"

namespace BxXmlLib5 {

/// The fields of a date with an offset of 0 or with none. No duration leads out of the years of 64 bits.
struct WideDate {
    CDateTime::DTType type;
    DateTimeFields fields;
    bool isUtc;

    /// As CDateTime's + does, but for the limit of years.
    void Add(CDateTimeSpan const& span);
};

/// The partial order of XML Schema Part 2, 3.2.7.4.
CDateTime::DTCompareResult Compare(WideDate const& left, WideDate const& right);

std::partial_ordering AsOrdering(CDateTime::DTCompareResult result);

}  // namespace BxXmlLib5
