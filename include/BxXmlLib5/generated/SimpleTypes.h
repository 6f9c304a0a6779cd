// What a simple type is to the kit, and how a schema's own are made.
//
// A simple type is a struct with static members alone:
//
//     struct Latitude : Bx::Restriction<Xs::decimal> {
//         static constexpr Bx::Facets kFacets{.minInclusive = u"-90.0", .maxInclusive = u"90.0"};
//     };
//     struct FixType : Bx::Enumeration<Fix> {
//         static constexpr char16_t const* kTexts[] = {u"none", u"2d", u"3d", u"dgps", u"pps"};
//     };
//     struct Sizes : Bx::List<Xs::decimal> {};
//     struct FontSize : Bx::Union<Xs::decimal, CssFontSizeType> {};
#pragma once

#include <concepts>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/generated/CSchemaDate.h"
#include "BxXmlLib5/generated/CSchemaDuration.h"
#include "BxXmlLib5/generated/Facets.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CDecimal.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"

namespace BxXmlLib5::Generated {

/// A step of derivation. The derived struct may give kFacets; all else is that of the base.
template <class S>
struct Restriction : S {
    /// The type that the step derives from.
    using Base = S;
};

namespace Xs {
struct string;
}

/// A type whose values are the enumerators of E, numbered from 0. The derived struct gives kTexts, the text of
/// each enumerator in their order.
/// @tparam S a type of text, under whose whitespace rule a literal is looked up
template <class E, class S = Xs::string>
struct Enumeration {
    /// The enumeration.
    using Value = E;
    /// The type of text.
    using Text = S;
};

/// A type whose values are lists of values of S, in one text.
template <class S>
struct List {
    /// The type of the items.
    using Item = S;
    /// The values of the items in order.
    using Value = std::vector<typename S::Value>;
};

/// A type whose values are those of its members: a std::variant of their values in order. A text has the
/// value that it has in the first member that takes it.
template <class... S>
struct Union {
    /// The types of the members.
    using Members = std::tuple<S...>;
    /// The value of one of the members.
    using Value = std::variant<typename S::Value...>;
};

/// A type whose values are enumerators.
template <class S>
concept IsEnumeration = std::is_enum_v<typename S::Value>;
/// A type whose values are lists.
template <class S>
concept IsList = requires {
    typename S::Item;
};
/// A type whose values are those of its members.
template <class S>
concept IsUnion = requires {
    typename S::Members;
};
/// A type with a class of the library or a number for its value.
template <class S>
concept IsAtomic = !IsEnumeration<S> && !IsList<S> && !IsUnion<S>;

/// The value of a literal by type S, which is tested against all facets of S.
/// @throws CBxInvalidValueException if there is none
template <class S>
typename S::Value ValueOf(std::u16string_view text);

/// Appends the literal of a value of type S. That of a union is spelled so that the same member takes it again,
/// where one of the known spellings is: 1 of a number behind a boolean is "1.0".
/// @tparam kComesBack false for the usual spelling in any case
template <class S, bool kComesBack = true>
void AppendText(wstring& text, typename S::Value const& value);

/// The literal of a value of type S, as AppendText() gives it.
template <class S, bool kComesBack = true>
wstring TextOf(typename S::Value const& value) {
    wstring text;
    AppendText<S, kComesBack>(text, value);
    return text;
}

/// Tests a value against all facets of S.
/// @throws CBxInvalidValueException if it breaks one
template <class S>
void Test(typename S::Value const& value);

/// @cond
template <class V>
inline constexpr bool kIsVector = false;
template <class V>
inline constexpr bool kIsVector<std::vector<V>> = true;
template <class V>
inline constexpr bool kIsVariant = false;
template <class... V>
inline constexpr bool kIsVariant<std::variant<V...>> = true;

/// Calls a function with the index of a variant's value as a type, std::integral_constant.
template <class V, class F>
void WithIndex(V const& variant, F const& function) {
    [&]<std::size_t... kIndexes>(std::index_sequence<kIndexes...>) {
        (void)((variant.index() == kIndexes &&
                (function(std::integral_constant<std::size_t, kIndexes>()), true)) ||
               ...);
    }
    (std::make_index_sequence<std::variant_size_v<V>>());
}
/// @endcond

/// Whether two values are the same: not-a-number is the same as itself.
template <class V>
bool IsSame(V const& a, V const& b) {
    if constexpr (std::is_floating_point_v<V>) {
        return a == b || (a != a && b != b);
    } else if constexpr (kIsVector<V>) {
        if (a.size() != b.size()) return false;
        for (std::size_t i = 0; i < a.size(); ++i) {
            typename V::value_type const& left = a[i];
            typename V::value_type const& right = b[i];
            if (!IsSame(left, right)) return false;
        }
        return true;
    } else if constexpr (kIsVariant<V>) {
        bool isSame = false;
        if (a.index() == b.index()) {
            WithIndex(a, [&](auto index) {
                isSame = IsSame(*std::get_if<index()>(&a), *std::get_if<index()>(&b));
            });
        }
        return isSame;
    } else {
        return a == b;
    }
}

// What stands behind the templates.
/// @cond

/// A text without XML whitespace at its ends.
BXXMLLIB5_API std::u16string_view Trimmed(std::u16string_view text);

/// A text without XML whitespace at its ends, and with one blank for each other run of it.
BXXMLLIB5_API wstring Collapsed(std::u16string_view text);

/// The first item of a list, which is taken from its front; none at its end.
BXXMLLIB5_API std::optional<std::u16string_view> TakeItem(std::u16string_view& list);

/// The index of a literal among some texts, -1 if it is none of them.
BXXMLLIB5_API int FindText(std::span<char16_t const* const> texts, std::u16string_view literal);

/// The number of the enumerator that a text stands for by a whitespace rule, -1 if there is none.
BXXMLLIB5_API int FindEnumerator(std::span<char16_t const* const> texts, std::u16string_view text,
                                 CWhitespaceUtils::WhitespaceRule rule);

/// @throws CBxInvalidValueException always, for what is no enumerator, and for what no member of a union takes
[[noreturn]] BXXMLLIB5_API void ThrowNoEnumerator(std::u16string_view literal);
[[noreturn]] BXXMLLIB5_API void ThrowNoEnumerator(int value);
[[noreturn]] BXXMLLIB5_API void ThrowNoMember(std::u16string_view literal);

/// Whether a text begins, behind whitespace, with one of some characters.
BXXMLLIB5_API bool StartsWithAny(std::u16string_view text, std::u16string_view characters);

/// Other literals that a text may have as a number, a truth value or digits.
/// @param index from 0 on
/// @return empty past the last
BXXMLLIB5_API wstring OtherSpelling(wstring const& text, std::size_t index);

/// The value of a literal that nothing is tested of but its form.
template <class S>
typename S::Value Converted(std::u16string_view text);

template <class S>
struct StepOf {
    static constexpr bool kHasBase = requires { typename S::Base; };
    /// Of its own, or those of the base once more.
    static constexpr bool kHasFacets = requires { S::kFacets; };

    /// Made when first asked for and never destroyed, since values may be tested while statics die.
    static auto const& Tests() {
        if constexpr (IsAtomic<S>) {
            static auto const& s_tests = *new FacetTests<typename S::Value>(S::kFacets, &S::FromText);
            return s_tests;
        } else {
            struct Made : LiteralTests {
                using LiteralTests::LiteralTests;
            };
            static auto const& s_tests = *new Made(S::kFacets);
            return s_tests;
        }
    }
};

/// Tests a value that is no atomic one against an enumeration.
template <class S>
void TestListed(typename S::Value const& value) {
    using Value = typename S::Value;
    static std::vector<Value> const& s_values = []() -> std::vector<Value> const& {
        auto* const values = new std::vector<Value>;
        for (char16_t const* text : S::kFacets.values) values->push_back(Converted<S>(text));
        return *values;
    }();
    for (Value const& one : s_values) {
        if (IsSame(one, value)) return;
    }
    ThrowNoEnumerator(TextOf<S, false>(value));
}

/// All but the patterns.
template <class S>
void TestValue(typename S::Value const& value) {
    using Step = StepOf<S>;
    if constexpr (Step::kHasBase) {
        TestValue<typename S::Base>(value);
    } else if constexpr (requires { S::TestForm(value); }) {
        S::TestForm(value);
    }
    if constexpr (!Step::kHasFacets) {
        return;
    } else if constexpr (IsAtomic<S>) {
        Step::Tests().Test(value);
    } else {
        if constexpr (IsList<S>) Step::Tests().TestLength(value.size());
        if constexpr (!S::kFacets.values.empty()) TestListed<S>(value);
    }
}

template <class S>
void TestPattern(std::u16string_view literal) {
    using Step = StepOf<S>;
    if constexpr (Step::kHasBase) TestPattern<typename S::Base>(literal);
    if constexpr (Step::kHasFacets) {
        if constexpr (S::kFacets.pattern != nullptr) Step::Tests().TestPattern(literal);
    }
}

template <class S>
constexpr bool HasPattern() {
    if constexpr (StepOf<S>::kHasFacets) {
        if (S::kFacets.pattern != nullptr) return true;
    }
    if constexpr (StepOf<S>::kHasBase) {
        return HasPattern<typename S::Base>();
    } else {
        return false;
    }
}

/// The characters that a literal of a type of these values begins with; empty for any.
template <class V>
constexpr std::u16string_view FirstCharacters() {
    if constexpr (std::same_as<V, bool>) {
        return u"tf01";
    } else if constexpr (std::is_floating_point_v<V>) {
        return u"0123456789-+.IN";
    } else if constexpr (std::is_arithmetic_v<V> || std::same_as<V, CDecimal> ||
                         std::same_as<V, CBigInteger>) {
        return u"0123456789-+.";
    } else if constexpr (std::same_as<V, CSchemaDate>) {
        return u"0123456789-";
    } else if constexpr (std::same_as<V, CSchemaDuration>) {
        return u"-P";
    } else {
        return {};
    }
}

/// False for most texts that a type does not take, so that they are passed over without an exception.
template <class S>
bool MayTake(std::u16string_view text) {
    if constexpr (IsEnumeration<S>) {
        return FindEnumerator(S::kTexts, text, S::Text::kRule) >= 0;
    } else {
        constexpr std::u16string_view kFirst = FirstCharacters<typename S::Value>();
        return kFirst.empty() || StartsWithAny(text, kFirst);
    }
}

template <class S, std::size_t kIndex = 0>
typename S::Value ConvertedMember(std::u16string_view text) {
    if constexpr (kIndex == std::tuple_size_v<typename S::Members>) {
        ThrowNoMember(text);
    } else {
        using Member = std::tuple_element_t<kIndex, typename S::Members>;
        if (MayTake<Member>(text)) {
            try {
                return typename S::Value(std::in_place_index<kIndex>, ValueOf<Member>(text));
            } catch (CBxInvalidValueException const&) {
                // The next one may take it.
            }
        }
        return ConvertedMember<S, kIndex + 1>(text);
    }
}

template <class S>
typename S::Value Converted(std::u16string_view text) {
    if constexpr (IsEnumeration<S>) {
        int const index = FindEnumerator(S::kTexts, text, S::Text::kRule);
        if (index < 0) ThrowNoEnumerator(text);
        return static_cast<typename S::Value>(index);
    } else if constexpr (IsList<S>) {
        typename S::Value items;
        while (auto const item = TakeItem(text)) items.push_back(ValueOf<typename S::Item>(*item));
        return items;
    } else if constexpr (IsUnion<S>) {
        return ConvertedMember<S>(text);
    } else {
        return S::FromText(text);
    }
}

/// Whether a text has this value by union S, and by the same member.
template <class S>
bool Gives(std::u16string_view text, typename S::Value const& value) {
    try {
        return IsSame(ValueOf<S>(text), value);
    } catch (CBxInvalidValueException const&) {
        return false;
    }
}

template <class S>
wstring SpelledMember(typename S::Value const& value) {
    wstring usual = TextOf<S, false>(value);
    // What no earlier member can take comes back.
    if (value.index() == 0 || Gives<S>(usual, value)) return usual;
    for (std::size_t i = 0;; ++i) {
        wstring other = OtherSpelling(usual, i);
        if (other.empty()) return usual;
        if (Gives<S>(other, value)) return other;
    }
}

/// Whether a literal can say more than its value: which member of a union it is of, or what a pattern asks for.
template <class S>
constexpr bool SaysMore() {
    if constexpr (IsEnumeration<S> || std::is_same_v<typename S::Value, wstring>) {
        return false;
    } else if constexpr (IsUnion<S>) {
        return true;
    } else if constexpr (IsList<S>) {
        return HasPattern<S>() || SaysMore<typename S::Item>();
    } else {
        return HasPattern<S>();
    }
}

template <class S>
typename S::Value ValueOf(std::u16string_view text) {
    typename S::Value value = Converted<S>(text);
    if constexpr (HasPattern<S>()) {
        if constexpr (std::is_same_v<typename S::Value, wstring>) {
            TestPattern<S>(value);
        } else if constexpr (IsEnumeration<S>) {
            TestPattern<S>(TextOf<S>(value));
        } else if constexpr (IsUnion<S>) {
            // Of the members, texts alone may keep whitespace.
            TestPattern<S>(TextOf<S, false>(value) == text ? wstring(text) : Collapsed(text));
        } else {
            TestPattern<S>(Collapsed(text));
        }
    }
    TestValue<S>(value);
    return value;
}

template <class S, bool kComesBack>
void AppendText(wstring& text, typename S::Value const& value) {
    if constexpr (IsEnumeration<S>) {
        auto const index = static_cast<std::size_t>(value);
        if (index >= std::size(S::kTexts)) ThrowNoEnumerator(static_cast<int>(value));
        text += S::kTexts[index];
    } else if constexpr (IsList<S>) {
        std::size_t const start = text.size();
        for (auto const& item : value) {
            if (text.size() > start) text += u' ';
            AppendText<typename S::Item, kComesBack>(text, item);
        }
    } else if constexpr (IsUnion<S> && kComesBack) {
        text += SpelledMember<S>(value);
    } else if constexpr (IsUnion<S>) {
        WithIndex(value, [&](auto index) {
            using Member = std::tuple_element_t<index(), typename S::Members>;
            AppendText<Member, false>(text, *std::get_if<index()>(&value));
        });
    } else if constexpr (requires { S::AppendText(text, value); }) {
        S::AppendText(text, value);
    } else {
        text += S::ToText(value);
    }
}

template <class S>
void Test(typename S::Value const& value) {
    if constexpr (IsList<S>) {
        for (auto const& item : value) Test<typename S::Item>(item);
    } else if constexpr (IsUnion<S>) {
        WithIndex(value, [&](auto index) {
            Test<std::tuple_element_t<index(), typename S::Members>>(*std::get_if<index()>(&value));
        });
    } else if constexpr (IsEnumeration<S>) {
        if (static_cast<std::size_t>(value) >= std::size(S::kTexts))
            ThrowNoEnumerator(static_cast<int>(value));
    }
    if constexpr (HasPattern<S>()) {
        if constexpr (std::is_same_v<typename S::Value, wstring>) {
            TestPattern<S>(value);
        } else {
            TestPattern<S>(TextOf<S>(value));
        }
    }
    TestValue<S>(value);
}
/// @endcond

}  // namespace BxXmlLib5::Generated
