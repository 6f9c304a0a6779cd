// The test of a value against the facets of its simple type, for each kind of value.
#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <type_traits>

#include "BxXmlLib5/collections/CPrimitiveRestrictions.h"
#include "BxXmlLib5/core/FormatString.h"
#include "collections/PatternFacet.h"
#include "values/NumberText.h"
#include "values/ValueKinds.h"

namespace BxXmlLib5 {

namespace Facets {

/// @param length in octets or 16-bit units
bool AdmitLength(CPrimitiveRestrictions const& facets, std::size_t length);

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

template <class T>
using OrderOf = std::conditional_t<std::is_same_v<T, CDateTime> || std::is_same_v<T, CDateTimeSpan>,
                                   PartlyOrdered, Ordered>;

template <ItemType kType, class T>
bool AdmitRange(CPrimitiveRestrictions const& facets, T const& value) {
    using Order = OrderOf<T>;
    auto const stands = [&value](auto order, wstring const& bound) {
        return bound.empty() ||
               order(value, ValueKind<kType>::kFromString(bound, CWhitespaceUtils::ws_Collapse));
    };
    return stands(Order::kAtLeast, facets.m_minInclusive) && stands(Order::kAtMost, facets.m_maxInclusive) &&
           stands(Order::kAbove, facets.m_minExclusive) && stands(Order::kBelow, facets.m_maxExclusive);
}

/// The facets that a kind has go by the type of its values.
template <ItemType kType, class T>
bool Admit(CPrimitiveRestrictions const& facets, char16_t const* name, T const& value) {
    if constexpr (std::is_same_v<T, bool>) {
        return true;
    } else if constexpr (std::is_same_v<T, CBinaryData>) {
        return AdmitLength(facets, value.GetLength());
    } else if constexpr (std::is_same_v<T, wstring>) {
        return AdmitLength(facets, value.size()) &&
               (facets.m_pattern.empty() || MatchesPattern(facets.m_pattern, value, name));
    } else {
        return AdmitRange<kType>(facets, value);
    }
}

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

/// Whether a kind has a test. The single character has none.
template <ItemType kType>
inline constexpr bool kHasFacets = kIsPrimitive<kType>&& kType != it_char;

/// As CheckRestrictions(), for a value in the type that its kind has.
template <ItemType kType>
void CheckValue(CPrimitiveRestrictions const& facets, char16_t const* name,
                typename ValueKind<kType>::Value const& value) requires kHasFacets<kType> {
    if (!Facets::Admit<kType>(facets, name, value)) {
        Facets::ThrowInvalidValue(name, Facets::MessageText(value));
    }
}

}  // namespace BxXmlLib5
