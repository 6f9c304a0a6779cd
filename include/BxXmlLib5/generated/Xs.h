// The built-in simple types of XML Schema (Part 2, 3), by their names there.
#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>

#include "BxXmlLib5/generated/CSchemaDate.h"
#include "BxXmlLib5/generated/CSchemaDuration.h"
#include "BxXmlLib5/generated/SimpleTypes.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/values/CDecimal.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"

namespace BxXmlLib5::Generated {

/// @name Literals
///
/// The forms are those of the standard and no others: the conversions of the library take more. Whitespace at
/// the ends is passed over. FromText() throws CBxInvalidValueException for what is no literal of the type; ToText() gives the
/// literal of a value.
/// @{

/// A type whose value is text under a whitespace rule.
template <CWhitespaceUtils::WhitespaceRule kItsRule>
struct TextType {
    using Value = wstring;
    static constexpr CWhitespaceUtils::WhitespaceRule kRule = kItsRule;
    static wstring FromText(std::u16string_view text);
    static wstring ToText(wstring const& value) { return value; }
};
template <>
BXXMLLIB5_API wstring TextType<CWhitespaceUtils::ws_Preserve>::FromText(std::u16string_view text);
template <>
BXXMLLIB5_API wstring TextType<CWhitespaceUtils::ws_Replace>::FromText(std::u16string_view text);
template <>
BXXMLLIB5_API wstring TextType<CWhitespaceUtils::ws_Collapse>::FromText(std::u16string_view text);

/// @throws CBxInvalidValueException always, for a literal that has not the form of its type
[[noreturn]] BXXMLLIB5_API void ThrowBadForm(std::u16string_view literal);

/// A text with a grammar that a pattern could give, but a function gives faster.
template <bool (*IsForm)(std::u16string_view)>
struct FormType : TextType<CWhitespaceUtils::ws_Collapse> {
    static void TestForm(std::u16string_view value) {
        if (!IsForm(value)) ThrowBadForm(value);
    }
};

/// An integer of 8 to 64 bits.
template <std::integral T>
struct IntegerType {
    using Value = T;
    BXXMLLIB5_API static T FromText(std::u16string_view text);
    BXXMLLIB5_API static wstring ToText(T value);
};

/// A floating point number: the shortest text that gives the number again, INF, -INF or NaN.
template <std::floating_point T>
struct FloatType {
    using Value = T;
    BXXMLLIB5_API static T FromText(std::u16string_view text);
    BXXMLLIB5_API static wstring ToText(T value);
};

/// One of the eight date and time types.
template <CDateTime::DTType kType>
struct DateType {
    using Value = CSchemaDate;
    BXXMLLIB5_API static CSchemaDate FromText(std::u16string_view text);
    static wstring ToText(CSchemaDate const& value) { return value.GetText(); }
    /// @throws CBxInvalidValueException for a value of another of the types
    BXXMLLIB5_API static void TestForm(CSchemaDate const& value);
};
/// @}

/// The built-in types. Names that are keywords of C++ end with an underscore.
namespace Xs {

// clang-format off
struct anySimpleType    : TextType<CWhitespaceUtils::ws_Preserve> {};
struct string           : TextType<CWhitespaceUtils::ws_Preserve> {};
struct normalizedString : TextType<CWhitespaceUtils::ws_Replace> {};
struct token            : TextType<CWhitespaceUtils::ws_Collapse> {};
struct anyURI           : TextType<CWhitespaceUtils::ws_Collapse> {};
// clang-format on

// The grammars of names and the like, for a text whose whitespace is collapsed.
BXXMLLIB5_API bool IsLanguage(std::u16string_view text);
BXXMLLIB5_API bool IsNmtoken(std::u16string_view text);
BXXMLLIB5_API bool IsName(std::u16string_view text);
BXXMLLIB5_API bool IsNCName(std::u16string_view text);
BXXMLLIB5_API bool IsQName(std::u16string_view text);

// clang-format off
struct language : FormType<&IsLanguage> {};
struct NMTOKEN  : FormType<&IsNmtoken> {};
struct Name     : FormType<&IsName> {};
struct NCName   : FormType<&IsNCName> {};
struct ID       : FormType<&IsNCName> {};
struct IDREF    : FormType<&IsNCName> {};
struct ENTITY   : FormType<&IsNCName> {};
struct QName    : FormType<&IsQName> {};   ///< The text as it stands: prefixes have no meaning here.
struct NOTATION : FormType<&IsQName> {};

struct NMTOKENS : List<NMTOKEN> { static constexpr Facets kFacets{.minLength = 1}; };
struct IDREFS   : List<IDREF>   { static constexpr Facets kFacets{.minLength = 1}; };
struct ENTITIES : List<ENTITY>  { static constexpr Facets kFacets{.minLength = 1}; };
// clang-format on

struct boolean {
    using Value = bool;
    BXXMLLIB5_API static bool FromText(std::u16string_view text);
    BXXMLLIB5_API static wstring ToText(bool value);
};

/// Digits that CDecimal would round away are refused.
struct decimal {
    using Value = CDecimal;
    BXXMLLIB5_API static CDecimal FromText(std::u16string_view text);
    static void AppendText(wstring& text, CDecimal const& value) { value.AppendTo(text); }
};

struct integer {
    using Value = CBigInteger;
    BXXMLLIB5_API static CBigInteger FromText(std::u16string_view text);
    BXXMLLIB5_API static wstring ToText(CBigInteger const& value);
};

// clang-format off
struct nonPositiveInteger : Restriction<integer> { static constexpr Facets kFacets{.maxInclusive = u"0"}; };
struct negativeInteger    : Restriction<integer> { static constexpr Facets kFacets{.maxInclusive = u"-1"}; };
struct nonNegativeInteger : Restriction<integer> { static constexpr Facets kFacets{.minInclusive = u"0"}; };
struct positiveInteger    : Restriction<integer> { static constexpr Facets kFacets{.minInclusive = u"1"}; };

struct long_         : IntegerType<std::int64_t> {};
struct int_          : IntegerType<std::int32_t> {};
struct short_        : IntegerType<std::int16_t> {};
struct byte          : IntegerType<std::int8_t> {};
struct unsignedLong  : IntegerType<std::uint64_t> {};
struct unsignedInt   : IntegerType<std::uint32_t> {};
struct unsignedShort : IntegerType<std::uint16_t> {};
struct unsignedByte  : IntegerType<std::uint8_t> {};

struct float_  : FloatType<float> {};
struct double_ : FloatType<double> {};

struct dateTime   : DateType<CDateTime::dt_dateTime> {};
struct date       : DateType<CDateTime::dt_date> {};
struct time       : DateType<CDateTime::dt_time> {};
struct gYearMonth : DateType<CDateTime::dt_gYearMonth> {};
struct gYear      : DateType<CDateTime::dt_gYear> {};
struct gMonthDay  : DateType<CDateTime::dt_gMonthDay> {};
struct gDay       : DateType<CDateTime::dt_gDay> {};
struct gMonth     : DateType<CDateTime::dt_gMonth> {};
// clang-format on

struct duration {
    using Value = CSchemaDuration;
    BXXMLLIB5_API static CSchemaDuration FromText(std::u16string_view text);
    static wstring ToText(CSchemaDuration const& value) { return value.GetText(); }
};

struct hexBinary {
    using Value = CBinaryData;
    BXXMLLIB5_API static CBinaryData FromText(std::u16string_view text);
    BXXMLLIB5_API static wstring ToText(CBinaryData const& value);
};

struct base64Binary {
    using Value = CBinaryData;
    BXXMLLIB5_API static CBinaryData FromText(std::u16string_view text);
    BXXMLLIB5_API static wstring ToText(CBinaryData const& value);
};

}  // namespace Xs

}  // namespace BxXmlLib5::Generated
