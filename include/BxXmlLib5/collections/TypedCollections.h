// The typed collections: one for each kind of value but the single character.
#pragma once

#include <cstdint>

#include "BxXmlLib5/collections/CTypedCol.h"
#include "BxXmlLib5/collections/CdatetimeBaseCol.h"
#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "BxXmlLib5/values/CDecimal.h"

namespace BxXmlLib5 {

/// @name Typed collections
///
/// The values of a repeated element of simple type, in a std::vector. A value that enters is tested against
/// the facets of the type, also on reading; only CbooleanCol has no test. What is refused changes nothing.
///
/// Add, AddAt and Remove tell the listeners once, when the values have their new state; a listener that
/// throws then does not undo the change. A copy has values of its own and the same listeners.
///
/// The operations are those of CTypedCol, and so is the constructor, which is public although inherited
/// among the private members.
/// @{
class BXXMLLIB5_API Ci1Col : public CTypedCol<it_i1, std::int8_t> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API Ci2Col : public CTypedCol<it_i2, std::int16_t> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API Ci4Col : public CTypedCol<it_i4, std::int32_t> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API Ci8Col : public CTypedCol<it_i8, std::int64_t> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API Cui1Col : public CTypedCol<it_ui1, std::uint8_t> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API Cui2Col : public CTypedCol<it_ui2, std::uint16_t> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API Cui4Col : public CTypedCol<it_ui4, std::uint32_t> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API Cui8Col : public CTypedCol<it_ui8, std::uint64_t> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API Cr4Col : public CTypedCol<it_r4, float> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API Cr8Col : public CTypedCol<it_r8, double> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API CbooleanCol : public CTypedCol<it_boolean, bool> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API CstringCol : public CTypedCol<it_string, wstring> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API CdecimalCol : public CTypedCol<it_decimal, CDecimal> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API CintegerCol : public CTypedCol<it_integer, CBigInteger> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API ChexBinaryCol : public CTypedCol<it_hexBinary, CBinaryData> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API Cbase64BinaryCol : public CTypedCol<it_base64Binary, CBinaryData> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API CdurationCol : public CTypedCol<it_duration, CDateTimeSpan> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API CdayCol : public CTypedCol<it_day, std::uint8_t> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API CmonthCol : public CTypedCol<it_month, std::uint8_t> {
    using CTypedCol::CTypedCol;
};
class BXXMLLIB5_API CyearCol : public CTypedCol<it_year, std::uint16_t> {
    using CTypedCol::CTypedCol;
};
/// @}

/// @name Typed collections of dates and times
///
/// As above, but for the order of the tests, which CdatetimeBaseCol::AddAt tells. A value must be of the type
/// of CDateTime that the collection is named for; so must be what a text gives.
/// @{
class BXXMLLIB5_API CdatetimeCol : public CTypedDateCol<it_datetime> {
    using CTypedDateCol::CTypedDateCol;
};
class BXXMLLIB5_API CdateCol : public CTypedDateCol<it_date> {
    using CTypedDateCol::CTypedDateCol;
};
class BXXMLLIB5_API CtimeCol : public CTypedDateCol<it_time> {
    using CTypedDateCol::CTypedDateCol;
};
class BXXMLLIB5_API CyearMonthCol : public CTypedDateCol<it_yearMonth> {
    using CTypedDateCol::CTypedDateCol;
};
class BXXMLLIB5_API CmonthDayCol : public CTypedDateCol<it_monthDay> {
    using CTypedDateCol::CTypedDateCol;
};
/// @}

}  // namespace BxXmlLib5
