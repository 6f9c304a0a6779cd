// The test of a value against the facets of its simple type, for each kind of value.
#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <type_traits>

#include "BxXmlLib5/collections/CPrimitiveRestrictions.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/values/CConversions.h"
#include "BxXmlLib5/values/CDateTime.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "BxXmlLib5/values/CDecimal.h"
#include "collections/PatternFacet.h"
#include "values/NumberText.h"
#include "values/VariantSlot.h"

namespace BxXmlLib5 {

namespace Facets {

/// A kind whose values lie in this member of a variant.
template <auto Member>
struct KindIn {
    static constexpr auto kMember = Member;
    using Value = std::remove_pointer_t<SlotType<Member>>;
};

template <auto Member>
struct None : KindIn<Member> {
    static bool Admit(CPrimitiveRestrictions const&, char16_t const*, auto const&) { return true; }
};

/// @param length in octets or 16-bit units
bool AdmitLength(CPrimitiveRestrictions const& facets, std::size_t length);

template <auto Member>
struct Lengths : KindIn<Member> {
    static bool Admit(CPrimitiveRestrictions const& facets, char16_t const*, CBinaryData const& value) {
        return AdmitLength(facets, value.GetLength());
    }
};

template <auto Member>
struct LengthsAndPattern : KindIn<Member> {
    static bool Admit(CPrimitiveRestrictions const& facets, char16_t const* name, wstring const& value) {
        return AdmitLength(facets, value.size()) &&
               (facets.m_pattern.empty() || MatchesPattern(facets.m_pattern, value, name));
    }
};

/// How a value must stand to a bound. A comparison with NaN is false, so NaN breaks every bound.
struct Ordered {
    static constexpr std::greater_equal<> kAtLeast{};
    static constexpr std::less_equal<> kAtMost{};
    static constexpr std::greater<> kAbove{};
    static constexpr std::less<> kBelow{};
};

/// Fails on these results, and so never on an indeterminate one.
template <CDateTime::DTCompareResult... kFailures>
inline constexpr auto kUnless = [](auto const& value, auto const& bound) {
    CDateTime::DTCompareResult const result = value.CompareTo(bound);
    return ((result != kFailures) && ...);
};

/// The same for dates and durations, of which not all can be compared.
struct PartlyOrdered {
    static constexpr auto kAtLeast = kUnless<CDateTime::dtc_lessThan>;
    static constexpr auto kAtMost = kUnless<CDateTime::dtc_greaterThan>;
    static constexpr auto kAbove = kUnless<CDateTime::dtc_lessThan, CDateTime::dtc_equal>;
    static constexpr auto kBelow = kUnless<CDateTime::dtc_greaterThan, CDateTime::dtc_equal>;
};

/// @tparam FromString the function of CConversions for the bounds
template <auto Member, auto FromString, class Order = Ordered>
struct Range : KindIn<Member> {
    static bool Admit(CPrimitiveRestrictions const& facets, char16_t const*, auto const& value) {
        auto const stands = [&value](auto order, wstring const& bound) {
            return bound.empty() || order(value, FromString(bound, CWhitespaceUtils::ws_Collapse));
        };
        return stands(Order::kAtLeast, facets.m_minInclusive) &&
               stands(Order::kAtMost, facets.m_maxInclusive) &&
               stands(Order::kAbove, facets.m_minExclusive) && stands(Order::kBelow, facets.m_maxExclusive);
    }
};

/// The rows. A kind without one has no test.
template <ItemType>
struct Kind;

using V = BxVariant::Value;
using C = CConversions;

// clang-format off
template <> struct Kind<it_hexBinary>    : Lengths<&V::m_binary> {};
template <> struct Kind<it_base64Binary> : Lengths<&V::m_binary> {};
template <> struct Kind<it_i1>        : Range<&V::m_i1,       &C::i1FromString> {};
template <> struct Kind<it_i2>        : Range<&V::m_i2,       &C::i2FromString> {};
template <> struct Kind<it_i4>        : Range<&V::m_i4,       &C::i4FromString> {};
template <> struct Kind<it_i8>        : Range<&V::m_i8,       &C::i8FromString> {};
template <> struct Kind<it_ui1>       : Range<&V::m_ui1,      &C::ui1FromString> {};
template <> struct Kind<it_ui2>       : Range<&V::m_ui2,      &C::ui2FromString> {};
template <> struct Kind<it_ui4>       : Range<&V::m_ui4,      &C::ui4FromString> {};
template <> struct Kind<it_ui8>       : Range<&V::m_ui8,      &C::ui8FromString> {};
template <> struct Kind<it_r4>        : Range<&V::m_r4,       &C::r4FromString> {};
template <> struct Kind<it_r8>        : Range<&V::m_r8,       &C::r8FromString> {};
template <> struct Kind<it_duration>  : Range<&V::m_duration, &C::durationFromString,  PartlyOrdered> {};
template <> struct Kind<it_yearMonth> : Range<&V::m_dateTime, &C::yearMonthFromString, PartlyOrdered> {};
template <> struct Kind<it_monthDay>  : Range<&V::m_dateTime, &C::monthDayFromString,  PartlyOrdered> {};
template <> struct Kind<it_year>      : Range<&V::m_year,     &C::yearFromString> {};
template <> struct Kind<it_month>     : Range<&V::m_month,    &C::monthFromString> {};
template <> struct Kind<it_day>       : Range<&V::m_day,      &C::dayFromString> {};
template <> struct Kind<it_date>      : Range<&V::m_dateTime, &C::dateFromString,      PartlyOrdered> {};
template <> struct Kind<it_datetime>  : Range<&V::m_dateTime, &C::datetimeFromString,  PartlyOrdered> {};
template <> struct Kind<it_time>      : Range<&V::m_dateTime, &C::timeFromString,      PartlyOrdered> {};
template <> struct Kind<it_string>    : LengthsAndPattern<&V::m_string> {};
template <> struct Kind<it_boolean>   : None<&V::m_boolean> {};
template <> struct Kind<it_decimal>   : Range<&V::m_decimal,  &C::decimalFromString> {};
template <> struct Kind<it_integer>   : Range<&V::m_integer,  &C::integerFromString> {};
// clang-format on

/// How a message shows a value: years, months and days as plain numbers, Base64 as hexadecimal digits.
inline wstring MessageText(std::integral auto const& value) {
    return IntegerText(+value);
}
inline wstring MessageText(std::floating_point auto const& value) {
    return FormatString(u"%f", double{value});
}
inline wstring MessageText(wstring const& value) {
    return value;
}
inline wstring MessageText(CBinaryData const& value) {
    return value.GetAsHexString();
}
inline wstring MessageText(auto const& value) {
    return value.ToString();
}

[[noreturn]] void ThrowInvalidValue(char16_t const* name, wstring const& value);

}  // namespace Facets

/// As CheckRestrictions(), for a value in the type that its kind has.
template <ItemType kType>
void CheckValue(CPrimitiveRestrictions const& facets, char16_t const* name,
                typename Facets::Kind<kType>::Value const& value) {
    if (!Facets::Kind<kType>::Admit(facets, name, value)) {
        Facets::ThrowInvalidValue(name, Facets::MessageText(value));
    }
}

}  // namespace BxXmlLib5
