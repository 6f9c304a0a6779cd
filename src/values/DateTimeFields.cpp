#include "values/DateTimeFields.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "values/Calendar.h"

namespace BxXmlLib5 {

namespace {

constexpr int kLeastYear = -9999;
constexpr int kMostYear = 9999;
constexpr int kLeapYear = 4;  // for a 29 February without a year

constexpr DateTimeType kTypes[] = {
    {CDateTime::dt_yearZero, 0, u"yearZero", u""},
    {CDateTime::dt_dateTime, kYear | kMonth | kDay | kTime, u"dateTime", u"YYYY-MM-DDThh:mm:ss"},
    {CDateTime::dt_date, kYear | kMonth | kDay, u"date", u"YYYY-MM-DD"},
    {CDateTime::dt_gYearMonth, kYear | kMonth, u"gYearMonth", u"YYYY-MM"},
    {CDateTime::dt_gYear, kYear, u"gYear", u"YYYY"},
    {CDateTime::dt_time, kTime, u"time", u"hh:mm:ss"},
    {CDateTime::dt_gDay, kDay, u"gDay", u"---DD"},
    {CDateTime::dt_gMonth, kMonth, u"gMonth", u"--MM"},
    {CDateTime::dt_gMonthDay, kMonth | kDay, u"gMonthDay", u"--MM-DD"},
};
constexpr DateTimeType kUnknown = {CDateTime::dt_yearZero, 0, u"", u""};

constexpr bool InOrder() {
    for (std::size_t i = 0; i < std::size(kTypes); ++i) {
        if (kTypes[i].type != static_cast<CDateTime::DTType>(i)) return false;
    }
    return true;
}
static_assert(InOrder(), "the type is the index");

struct TimeField {
    DateTimeField field;
    std::int64_t most;
    char16_t const* outOfRange;
    char16_t const* notInUse;
};

constexpr TimeField kTimeFields[] = {
    {&DateTimeFields::hour, 23, u"Invalid Hour [%d] (0 <= hour <= 23)", u"Invalid Hour [%d] for type %s"},
    {&DateTimeFields::minute, 59, u"Invalid Minute [%d] (0 <= minute <= 59)",
     u"Invalid Minute [%d] for type %s"},
    {&DateTimeFields::second, 59, u"Invalid Second [%d] (0 <= second <= 59)",
     u"Invalid Second [%d] for type %s"},
    {&DateTimeFields::milli, 999, u"Invalid Milli-Second [%d] (0 <= milli <= 999)",
     u"Invalid Milli-Second [%d] for type %s"},
    {&DateTimeFields::micro, 999, u"Invalid Micro-Second [%d] (0 <= micro <= 999)",
     u"Invalid Micro-Second [%d] for type %s"},
    {&DateTimeFields::nano, 999, u"Invalid Nano-Second [%d] (0 <= nano <= 999)",
     u"Invalid Nano-Second [%d] for type %s"},
};

[[noreturn]] void Throw(char16_t const* message, std::int64_t value, DateTimeType const& type) {
    throw CBxInvalidValueException(FormatString(message, static_cast<int>(value), type.name));
}

void ValidateYear(DateTimeType const& type, std::int64_t year) {
    if (!type.Uses(kYear)) {
        if (year != 0) Throw(u"Invalid Year [%d] for type %s", year, type);
    } else if (year < kLeastYear || year > kMostYear || year == 0) {
        ThrowInvalidYear(year, kLeastYear, kMostYear);
    }
}

void ValidateMonth(DateTimeType const& type, std::int64_t month) {
    if (!type.Uses(kMonth)) {
        if (month != 0) Throw(u"Invalid Month [%d] for type %s", month, type);
    } else if (month < 1 || month > 12) {
        Throw(u"Invalid Month [%d] (1 <= month <= 12)", month, type);
    }
}

/// After year and month, on which the most days depend.
void ValidateDay(DateTimeType const& type, DateTimeFields const& fields) {
    std::int64_t const day = fields.day;
    if (!type.Uses(kDay)) {
        if (day != 0) Throw(u"Invalid Day [%d] for type %s", day, type);
    } else if (!type.Uses(kMonth)) {
        if (day < 1 || day > 31) Throw(u"Invalid Day [%d] (1 <= day <= 31)", day, type);
    } else if (!type.Uses(kYear)) {
        if (day < 1 || day > DaysInMonth(kLeapYear, fields.month))
            Throw(u"Invalid Day [%d] (1 <= day <= days in month)", day, type);
    } else if (day < 1 || day > DaysInMonth(fields.year, fields.month)) {
        Throw(u"Invalid Day [%d] (1 <= day <= days in month", day, type);
    }
}

void ValidateTime(DateTimeType const& type, DateTimeFields const& fields) {
    bool const inUse = type.Uses(kTime);
    for (TimeField const& row : kTimeFields) {
        std::int64_t const value = fields.*row.field;
        if (value < 0 || value > (inUse ? row.most : 0))
            Throw(inUse ? row.outOfRange : row.notInUse, value, type);
    }
}

}  // namespace

bool IsKnown(CDateTime::DTType type) {
    return type >= CDateTime::dt_yearZero && type <= CDateTime::dt_gMonthDay;
}

DateTimeType const& TypeOf(CDateTime::DTType type) {
    return IsKnown(type) ? kTypes[type] : kUnknown;
}

void ValidateFields(CDateTime::DTType type, DateTimeFields const& fields) {
    if (type == CDateTime::dt_yearZero) throw CBxInvalidValueException(kInvalidYearZero);
    DateTimeType const& row = TypeOf(type);
    ValidateMonth(row, fields.month);
    ValidateYear(row, fields.year);
    ValidateDay(row, fields);
    ValidateTime(row, fields);
}

void ThrowInvalidYear(std::int64_t year, int least, int most) {
    using Limits = std::numeric_limits<int>;
    int const shown = static_cast<int>(std::clamp<std::int64_t>(year, Limits::min(), Limits::max()));
    throw CBxInvalidValueException(
        FormatString(u"Invalid Year [%d] (%d <= year <= %d && year != 0)", shown, least, most));
}

DateTimeFields Narrow(DateTimeFields const& fields) {
    if (!std::in_range<std::int16_t>(fields.year)) ThrowInvalidYear(fields.year, kLeastYear, kMostYear);
    return fields;
}

}  // namespace BxXmlLib5
