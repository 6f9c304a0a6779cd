// The date and time types of XML Schema Part 2, section 3.2: which fields each of them uses and how it is
// written.
#pragma once

#include <cstdint>
#include <string_view>

#include "BxXmlLib5/values/CDateTime.h"

namespace BxXmlLib5 {

/// The fields of a date, wide enough for numbers that are no valid ones and for any year that a duration leads
/// to.
struct DateTimeFields {
    std::int64_t year = 0;
    std::int64_t month = 0;
    std::int64_t day = 0;
    std::int64_t hour = 0;
    std::int64_t minute = 0;
    std::int64_t second = 0;
    std::int64_t milli = 0;
    std::int64_t micro = 0;
    std::int64_t nano = 0;
};

using DateTimeField = std::int64_t DateTimeFields::*;

/// The fields that a type uses, to be combined. The time of day is used as a whole.
using FieldSet = std::uint8_t;
inline constexpr FieldSet kYear = 1;
inline constexpr FieldSet kMonth = 2;
inline constexpr FieldSet kDay = 4;
inline constexpr FieldSet kTime = 8;

/// In the form, the letters Y M D h m s stand for the digits of a field, all else for itself. Year sign,
/// fraction and zone are no part of it.
struct DateTimeType {
    CDateTime::DTType type;
    FieldSet fields;
    char16_t const* name;
    std::u16string_view form;

    constexpr bool Uses(FieldSet field) const { return (fields & field) != 0; }
};

bool IsKnown(CDateTime::DTType type);

/// A type that is none of the enumeration has no name, fields or form.
DateTimeType const& TypeOf(CDateTime::DTType type);

/// The field of a letter of a form, null for a letter that stands for itself.
constexpr DateTimeField FieldOf(char16_t letter) {
    switch (letter) {
        case u'Y':
            return &DateTimeFields::year;
        case u'M':
            return &DateTimeFields::month;
        case u'D':
            return &DateTimeFields::day;
        case u'h':
            return &DateTimeFields::hour;
        case u'm':
            return &DateTimeFields::minute;
        case u's':
            return &DateTimeFields::second;
        default:
            return nullptr;
    }
}

/// The form of an offset behind its sign.
inline constexpr std::u16string_view kZoneForm = u"hh:mm";

/// What stands for a value of dt_yearZero, as a text and as a failure.
inline constexpr char16_t const* kInvalidYearZero = u"Invalid Year Zero";

/// Tests each field against its range, or against 0 where the type does not use it.
/// @throws CBxInvalidValueException
void ValidateFields(CDateTime::DTType type, DateTimeFields const& fields);

/// @throws CBxInvalidValueException always, with a year outside of 32 bits cut to them
[[noreturn]] void ThrowInvalidYear(std::int64_t year, int least, int most);

/// The same fields, with a year that an object can hold.
/// @throws CBxInvalidValueException for a year that does not fit into 16 bits
DateTimeFields Narrow(DateTimeFields const& fields);

}  // namespace BxXmlLib5
