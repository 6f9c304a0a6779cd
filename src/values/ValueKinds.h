// The primitive kinds of value: what variants, facets and typed collections have to know of each.
#pragma once

#include <type_traits>

#include "BxXmlLib5/values/BxVariant.h"
#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/values/CConversions.h"
#include "BxXmlLib5/values/CDateTime.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "BxXmlLib5/values/CDecimal.h"
#include "values/VariantSlot.h"

namespace BxXmlLib5 {

// Each kind by its name, which is that of its enumerator and of its conversions, with the member of a variant
// that holds it. Apart from these there is the single character, of which there are no collections.
// clang-format off
#define BX_FOR_EACH_KIND_BUT_DATES(ROW) \
    ROW(hexBinary,    m_binary)         \
    ROW(base64Binary, m_binary)         \
    ROW(i1,           m_i1)             \
    ROW(i2,           m_i2)             \
    ROW(i4,           m_i4)             \
    ROW(i8,           m_i8)             \
    ROW(ui1,          m_ui1)            \
    ROW(ui2,          m_ui2)            \
    ROW(ui4,          m_ui4)            \
    ROW(ui8,          m_ui8)            \
    ROW(r4,           m_r4)             \
    ROW(r8,           m_r8)             \
    ROW(duration,     m_duration)       \
    ROW(year,         m_year)           \
    ROW(month,        m_month)          \
    ROW(day,          m_day)            \
    ROW(string,       m_string)         \
    ROW(boolean,      m_boolean)        \
    ROW(decimal,      m_decimal)        \
    ROW(integer,      m_integer)

#define BX_FOR_EACH_DATE_KIND(ROW) \
    ROW(yearMonth, m_dateTime)     \
    ROW(monthDay,  m_dateTime)     \
    ROW(date,      m_dateTime)     \
    ROW(datetime,  m_dateTime)     \
    ROW(time,      m_dateTime)
// clang-format on

/// Not defined for what is no primitive kind.
template <ItemType>
struct ValueKind;

#define BX_VALUE_KIND(kind, member)                                               \
    template <>                                                                   \
    struct ValueKind<it_##kind> {                                                 \
        static constexpr char16_t const* kName = u"" #kind;                       \
        static constexpr auto kMember = &BxVariant::Value::member;                \
        static constexpr auto kToString = &CConversions::kind##ToString;          \
        static constexpr auto kFromString = &CConversions::kind##FromString;      \
        using Value = std::remove_pointer_t<SlotType<&BxVariant::Value::member>>; \
    };
BX_FOR_EACH_KIND_BUT_DATES(BX_VALUE_KIND)
BX_FOR_EACH_DATE_KIND(BX_VALUE_KIND)
BX_VALUE_KIND(char, m_char)
#undef BX_VALUE_KIND

/// Whether a type is a primitive kind.
template <ItemType kType>
inline constexpr bool kIsPrimitive = requires {
    ValueKind<kType>::kMember;
};

/// The lexical form of a value. Only numbers with a fraction look at the format.
template <ItemType kType>
decltype(auto) LexicalForm(typename ValueKind<kType>::Value const& value,
                           [[maybe_unused]] char16_t const* format) {
    constexpr auto toString = ValueKind<kType>::kToString;
    if constexpr (kType == it_string) {
        return (value);
    } else if constexpr (std::is_invocable_v<decltype(toString), decltype(value), char16_t const*>) {
        return toString(value, format);
    } else {
        return toString(value);
    }
}

}  // namespace BxXmlLib5
