// The kinds of value that a property can have.
#pragma once

#include <cstdint>

#include "BxXmlLib5/platform/Export.h"

namespace BxXmlLib5 {

/// The primitive kinds, each for a family of simple types of XML Schema, and the two kinds of object.
/// Generated code passes them as numbers, so the values are fixed.
enum BXXMLLIB5_API ItemType : std::int32_t {
    it_invalid = 0,         ///< No value.
    it_hexBinary = 1,       ///< CBinaryData
    it_base64Binary = 2,    ///< CBinaryData
    it_i1 = 3,              ///< Signed integer of 8 bits.
    it_i2 = 4,              ///< Signed integer of 16 bits.
    it_i4 = 5,              ///< Signed integer of 32 bits; also an enumeration.
    it_i8 = 6,              ///< Signed integer of 64 bits.
    it_ui1 = 7,             ///< Unsigned integer of 8 bits.
    it_ui2 = 8,             ///< Unsigned integer of 16 bits.
    it_ui4 = 9,             ///< Unsigned integer of 32 bits.
    it_ui8 = 10,            ///< Unsigned integer of 64 bits.
    it_r4 = 11,             ///< Floating point number of 32 bits.
    it_r8 = 12,             ///< Floating point number of 64 bits.
    it_duration = 13,       ///< CDateTimeSpan
    it_yearMonth = 14,      ///< CDateTime
    it_monthDay = 15,       ///< CDateTime
    it_year = 16,           ///< A plain number of 16 bits.
    it_month = 17,          ///< A plain number of 8 bits.
    it_day = 18,            ///< A plain number of 8 bits.
    it_date = 19,           ///< CDateTime
    it_datetime = 20,       ///< CDateTime
    it_time = 21,           ///< CDateTime
    it_char = 22,           ///< A 16-bit unit.
    it_string = 23,         ///< Text.
    it_boolean = 24,        ///< true or false.
    it_decimal = 25,        ///< CDecimal
    it_integer = 26,        ///< CBigInteger
    it_xmlObject = 27,      ///< A counted CXmlObjectBase, or null.
    it_xmlCollection = 28,  ///< A counted CXmlCollectionBase, or null.
};

}  // namespace BxXmlLib5
