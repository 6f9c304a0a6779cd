#include "BxXmlLib5/generated/Facets.h"

#include <algorithm>
#include <compare>
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

namespace {

template <class V>
constexpr bool kIsOrdered =
    !std::is_same_v<V, wstring> && !std::is_same_v<V, CBinaryData> && !std::is_same_v<V, bool>;

template <class V>
std::partial_ordering Order(V const& a, V const& b) {
    // Zero may carry a sign, which the order of some sees.
    return a == b ? std::partial_ordering::equivalent : std::partial_ordering(a <=> b);
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
    } else if constexpr (requires { value.GetText(); }) {
        return value.GetText();
    } else {
        return value.ToString();
    }
}

/// @param holds whether a value that compares so with the bound is within it; what cannot be compared is not
template <class V>
void TestBound(V const& value, std::optional<V> const& bound, char16_t const* boundText,
               bool (*holds)(std::partial_ordering), char16_t const* message) {
    if (!bound) return;
    std::partial_ordering const order = Order(value, *bound);
    if (holds(order)) return;
    bool const isUnordered = order == std::partial_ordering::unordered;
    ThrowBreaks(isUnordered ? u"The value [%s] cannot be compared with [%s]" : message, MessageText(value),
                boundText);
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
        TestBound(value, bounds.minInclusive, m_facets.minInclusive, std::is_gteq,
                  u"The value [%s] is less than [%s]");
        TestBound(value, bounds.maxInclusive, m_facets.maxInclusive, std::is_lteq,
                  u"The value [%s] is greater than [%s]");
        TestBound(value, bounds.minExclusive, m_facets.minExclusive, std::is_gt,
                  u"The value [%s] is not greater than [%s]");
        TestBound(value, bounds.maxExclusive, m_facets.maxExclusive, std::is_lt,
                  u"The value [%s] is not less than [%s]");
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
template class FacetTests<CSchemaDate>;
template class FacetTests<CSchemaDuration>;
template class FacetTests<CBinaryData>;

}  // namespace BxXmlLib5::Generated
