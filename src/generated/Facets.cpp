#include "BxXmlLib5/generated/Facets.h"

#include <algorithm>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

#include "BxXmlLib5/collections/CCompiledPattern.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/generated/Xs.h"
#include "platform/TextView.h"

namespace BxXmlLib5::Generated {

namespace {

[[noreturn]] void ThrowBreaks(char16_t const* message, wstring const& value, char16_t const* facet) {
    throw CBxInvalidValueException(FormatString(message, value.c_str(), facet));
}

/// @param message with a %d for the length and one for the facet
void ThrowLength(char16_t const* message, std::size_t length, int facet) {
    throw CBxInvalidValueException(FormatString(message, static_cast<int>(length), facet));
}

/// A pattern must match all of a literal, so the end is part of what is sought.
CCompiledPattern const* Compiled(char16_t const* pattern) {
    if (pattern == nullptr) return nullptr;
    return new CCompiledPattern(wstring(u"(?:").append(pattern).append(u")\\z"), pattern, u"a simple type");
}

}  // namespace

LiteralTests::LiteralTests(Facets const& facets) : m_facets(facets), m_pattern(Compiled(facets.pattern)) {}

void LiteralTests::TestPattern(std::u16string_view literal) const {
    if (m_pattern == nullptr) return;
    if (m_pattern->MatchesWhole(wstring(literal))) return;
    ThrowBreaks(u"The value [%s] does not match the pattern [%s]", wstring(literal), m_facets.pattern);
}

void LiteralTests::TestLength(std::size_t length) const {
    if (m_facets.length >= 0 && std::cmp_not_equal(length, m_facets.length)) {
        ThrowLength(u"The length of the value is %d, it must be %d", length, m_facets.length);
    }
    if (m_facets.minLength >= 0 && std::cmp_less(length, m_facets.minLength)) {
        ThrowLength(u"The length of the value is %d, it must be at least %d", length, m_facets.minLength);
    }
    if (m_facets.maxLength >= 0 && std::cmp_greater(length, m_facets.maxLength)) {
        ThrowLength(u"The length of the value is %d, it must be at most %d", length, m_facets.maxLength);
    }
}

void LiteralTests::TestValues(std::u16string_view literal) const {
    if (m_facets.values.empty() || FindText(m_facets.values, literal) >= 0) return;
    ThrowNoEnumerator(literal);
}

namespace {

template <class V>
constexpr bool kIsPartlyOrdered = std::is_same_v<V, CDateTime> || std::is_same_v<V, CDateTimeSpan>;

template <class V>
constexpr bool kIsOrdered =
    !std::is_same_v<V, wstring> && !std::is_same_v<V, CBinaryData> && !std::is_same_v<V, bool>;

/// Values of which not all can be compared break a bound only if they are surely outside.
template <class V>
bool IsBelow(V const& a, V const& b, bool orEqual) {
    if constexpr (kIsPartlyOrdered<V>) {
        CDateTime::DTCompareResult const result = a.CompareTo(b);
        return result == CDateTime::dtc_lessThan || (orEqual && result == CDateTime::dtc_equal);
    } else if constexpr (std::is_floating_point_v<V>) {
        // Not-a-number breaks every bound.
        return a != a || b != b || a < b || (orEqual && a == b);
    } else {
        // Zero may carry a sign, which its order sees.
        return a == b ? orEqual : a < b;
    }
}

/// The characters of a text; a pair of surrogates is one.
std::size_t CountCharacters(std::u16string_view text) {
    return text.size() - static_cast<std::size_t>(std::ranges::count_if(
                             text, [](char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }));
}

struct Digits {
    int total;
    int fraction;
};

/// The digits of the shortest literal of a number.
Digits CountDigits(std::u16string_view literal) {
    if (literal.starts_with(u'-')) literal.remove_prefix(1);
    std::size_t const point = std::min(literal.find(u'.'), literal.size());
    std::size_t const fraction = literal.size() - std::min(point + 1, literal.size());
    std::size_t const whole = literal.substr(0, point) == u"0" ? 0 : point;
    return {static_cast<int>(std::max<std::size_t>(whole + fraction, 1)), static_cast<int>(fraction)};
}

template <class V>
wstring MessageText(V const& value) {
    if constexpr (std::is_same_v<V, wstring>) {
        return value;
    } else if constexpr (std::is_same_v<V, bool>) {
        return Xs::boolean::ToText(value);
    } else if constexpr (std::is_integral_v<V>) {
        return IntegerType<V>::ToText(value);
    } else if constexpr (std::is_floating_point_v<V>) {
        return FloatType<V>::ToText(value);
    } else if constexpr (std::is_same_v<V, CBinaryData>) {
        return value.GetAsHexString();
    } else {
        return value.ToString();
    }
}

}  // namespace

template <class V>
struct FacetTests<V>::Bounds {
    std::optional<V> minInclusive, maxInclusive, minExclusive, maxExclusive;
    std::vector<V> values;
};

template <class V>
FacetTests<V>::FacetTests(Facets const& facets, V (*fromText)(std::u16string_view))
    : LiteralTests(facets), m_bounds(nullptr) {
    auto const bound = [&](char16_t const* text) {
        return text == nullptr ? std::optional<V>() : std::optional<V>(fromText(text));
    };
    auto bounds = std::make_unique<Bounds>();
    if constexpr (kIsOrdered<V>) {
        bounds->minInclusive = bound(facets.minInclusive);
        bounds->maxInclusive = bound(facets.maxInclusive);
        bounds->minExclusive = bound(facets.minExclusive);
        bounds->maxExclusive = bound(facets.maxExclusive);
    }
    for (char16_t const* text : facets.values) bounds->values.push_back(fromText(text));
    m_bounds = bounds.release();
}

template <class V>
void FacetTests<V>::Test(V const& value) const {
    if constexpr (std::is_same_v<V, wstring>) {
        TestLength(CountCharacters(value));
    } else if constexpr (std::is_same_v<V, CBinaryData>) {
        TestLength(value.GetLength());
    }
    if constexpr (kIsOrdered<V>) {
        Bounds const& bounds = *m_bounds;
        if (bounds.minInclusive && IsBelow(value, *bounds.minInclusive, false)) {
            ThrowBreaks(u"The value [%s] is less than [%s]", MessageText(value), m_facets.minInclusive);
        }
        if (bounds.maxInclusive && IsBelow(*bounds.maxInclusive, value, false)) {
            ThrowBreaks(u"The value [%s] is greater than [%s]", MessageText(value), m_facets.maxInclusive);
        }
        if (bounds.minExclusive && IsBelow(value, *bounds.minExclusive, true)) {
            ThrowBreaks(u"The value [%s] is not greater than [%s]", MessageText(value),
                        m_facets.minExclusive);
        }
        if (bounds.maxExclusive && IsBelow(*bounds.maxExclusive, value, true)) {
            ThrowBreaks(u"The value [%s] is not less than [%s]", MessageText(value), m_facets.maxExclusive);
        }
    }
    if (m_facets.totalDigits >= 0 || m_facets.fractionDigits >= 0) {
        Digits const digits = CountDigits(MessageText(value));
        if (m_facets.totalDigits >= 0 && digits.total > m_facets.totalDigits) {
            throw CBxInvalidValueException(FormatString(u"The value [%s] has more digits than %d",
                                                        MessageText(value).c_str(), m_facets.totalDigits));
        }
        if (m_facets.fractionDigits >= 0 && digits.fraction > m_facets.fractionDigits) {
            throw CBxInvalidValueException(FormatString(u"The value [%s] has more decimal places than %d",
                                                        MessageText(value).c_str(), m_facets.fractionDigits));
        }
    }
    std::vector<V> const& values = m_bounds->values;
    if (!values.empty() && std::ranges::none_of(values, [&](V const& one) { return IsSame(one, value); })) {
        ThrowNoEnumerator(MessageText(value));
    }
}

template class FacetTests<wstring>;
template class FacetTests<bool>;
template class FacetTests<float>;
template class FacetTests<double>;
template class FacetTests<std::int8_t>;
template class FacetTests<std::int16_t>;
template class FacetTests<std::int32_t>;
template class FacetTests<std::int64_t>;
template class FacetTests<std::uint8_t>;
template class FacetTests<std::uint16_t>;
template class FacetTests<std::uint32_t>;
template class FacetTests<std::uint64_t>;
template class FacetTests<CDecimal>;
template class FacetTests<CBigInteger>;
template class FacetTests<CDateTime>;
template class FacetTests<CDateTimeSpan>;
template class FacetTests<CBinaryData>;

}  // namespace BxXmlLib5::Generated
