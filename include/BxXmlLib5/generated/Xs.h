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

// Literals. The forms are those of the standard and no others: the conversions of the library take more.
// Whitespace at the ends is passed over. FromText() throws CBxInvalidValueException for what is no literal of
// the type; ToText() gives the literal of a value.

/// A type whose value is text under a whitespace rule.
template <CWhitespaceUtils::WhitespaceRule kItsRule>
struct TextType {
    using Value = wstring;                                               ///< the text that the rule leaves
    static constexpr CWhitespaceUtils::WhitespaceRule kRule = kItsRule;  ///< the whitespace rule
    /// The text under the rule.
    static wstring FromText(std::u16string_view text);
    /// The text itself.
    static wstring ToText(wstring const& value) { return value; }
};
/// @cond
template <>
BXXMLLIB5_API wstring TextType<CWhitespaceUtils::ws_Preserve>::FromText(std::u16string_view text);
template <>
BXXMLLIB5_API wstring TextType<CWhitespaceUtils::ws_Replace>::FromText(std::u16string_view text);
template <>
BXXMLLIB5_API wstring TextType<CWhitespaceUtils::ws_Collapse>::FromText(std::u16string_view text);
/// @endcond

/// @throws CBxInvalidValueException always, for a literal that has not the form of its type
[[noreturn]] BXXMLLIB5_API void ThrowBadForm(std::u16string_view literal);

/// A text with a grammar that a pattern could give, but a function gives faster.
template <bool (*IsForm)(std::u16string_view)>
struct FormType : TextType<CWhitespaceUtils::ws_Collapse> {
    /// @throws CBxInvalidValueException if the text has not the form
    static void TestForm(std::u16string_view value) {
        if (!IsForm(value)) ThrowBadForm(value);
    }
};

/// An integer of 8 to 64 bits.
template <std::integral T>
struct IntegerType {
    using Value = T;  ///< the integer
    /// The value of a literal.
    BXXMLLIB5_API static T FromText(std::u16string_view text);
    /// The literal of a value.
    BXXMLLIB5_API static wstring ToText(T value);
};

/// A floating point number: the shortest text that gives the number again, INF, -INF or NaN.
template <std::floating_point T>
struct FloatType {
    using Value = T;  ///< the number
    /// The value of a literal.
    BXXMLLIB5_API static T FromText(std::u16string_view text);
    /// The literal of a value.
    BXXMLLIB5_API static wstring ToText(T value);
};

/// One of the eight date and time types.
template <CDateTime::DTType kType>
struct DateType {
    using Value = CSchemaDate;  ///< which is a CDateTime where that can hold the value
    /// The value of a literal.
    BXXMLLIB5_API static CSchemaDate FromText(std::u16string_view text);
    /// The literal of a value.
    static wstring ToText(CSchemaDate const& value) { return value.GetText(); }
    /// @throws CBxInvalidValueException for a value of another of the types
    BXXMLLIB5_API static void TestForm(CSchemaDate const& value);
};

/// The built-in types. Names that are keywords of C++ end with an underscore.
namespace Xs {

// clang-format off
struct anySimpleType    : TextType<CWhitespaceUtils::ws_Preserve> {};  ///< Any text, as it stands.
struct string           : TextType<CWhitespaceUtils::ws_Preserve> {};  ///< Text as it stands.
struct normalizedString : TextType<CWhitespaceUtils::ws_Replace> {};  ///< A blank for each whitespace character.
struct token            : TextType<CWhitespaceUtils::ws_Collapse> {};  ///< A blank for each run of whitespace, none at the ends.
struct anyURI           : TextType<CWhitespaceUtils::ws_Collapse> {};  ///< As a token: its form is not tested.
// clang-format on

// The grammars of names and the like, for a text whose whitespace is collapsed.
/// @{
/// Whether the text has the form of the type.
BXXMLLIB5_API bool IsLanguage(std::u16string_view text);
BXXMLLIB5_API bool IsNmtoken(std::u16string_view text);
BXXMLLIB5_API bool IsName(std::u16string_view text);
BXXMLLIB5_API bool IsNCName(std::u16string_view text);
BXXMLLIB5_API bool IsQName(std::u16string_view text);
/// @}

// clang-format off
struct language : FormType<&IsLanguage> {};  ///< a tag as RFC 3066 has it
struct NMTOKEN  : FormType<&IsNmtoken> {};  ///< characters of names
struct Name     : FormType<&IsName> {};  ///< a name of XML
struct NCName   : FormType<&IsNCName> {};  ///< a name without a colon
struct ID       : FormType<&IsNCName> {};  ///< As an NCName: that it is unique is not tested.
struct IDREF    : FormType<&IsNCName> {};  ///< As an NCName: that the ID exists is not tested.
struct ENTITY   : FormType<&IsNCName> {};  ///< As an NCName: that it is declared is not tested.
struct QName    : FormType<&IsQName> {};   ///< The text as it stands: prefixes have no meaning here.
struct NOTATION : FormType<&IsQName> {};  ///< As a QName.
// clang-format on

/// One or more.
struct NMTOKENS : List<NMTOKEN> {
    static constexpr Facets kFacets{.minLength = 1};  ///< its own
};
/// One or more.
struct IDREFS : List<IDREF> {
    static constexpr Facets kFacets{.minLength = 1};  ///< its own
};
/// One or more.
struct ENTITIES : List<ENTITY> {
    static constexpr Facets kFacets{.minLength = 1};  ///< its own
};

/// true, false, 1 and 0.
struct boolean {
    using Value = bool;  ///< the value
    /// @{
    /// From and to a literal.
    BXXMLLIB5_API static bool FromText(std::u16string_view text);
    BXXMLLIB5_API static wstring ToText(bool value);
    /// @}
};

/// Digits that CDecimal would round away are refused.
struct decimal {
    using Value = CDecimal;  ///< the value
    /// @{
    /// From and to a literal.
    BXXMLLIB5_API static CDecimal FromText(std::u16string_view text);
    static void AppendText(wstring& text, CDecimal const& value) { value.AppendTo(text); }
    /// @}
};

/// An integer of any size.
struct integer {
    using Value = CBigInteger;  ///< the value
    /// @{
    /// From and to a literal.
    BXXMLLIB5_API static CBigInteger FromText(std::u16string_view text);
    BXXMLLIB5_API static wstring ToText(CBigInteger const& value);
    /// @}
};

/// 0 and below.
struct nonPositiveInteger : Restriction<integer> {
    static constexpr Facets kFacets{.maxInclusive = u"0"};  ///< its own
};
/// Below 0.
struct negativeInteger : Restriction<integer> {
    static constexpr Facets kFacets{.maxInclusive = u"-1"};  ///< its own
};
/// 0 and above.
struct nonNegativeInteger : Restriction<integer> {
    static constexpr Facets kFacets{.minInclusive = u"0"};  ///< its own
};
/// Above 0.
struct positiveInteger : Restriction<integer> {
    static constexpr Facets kFacets{.minInclusive = u"1"};  ///< its own
};

// clang-format off
struct long_         : IntegerType<std::int64_t> {};  ///< 64 bits
struct int_          : IntegerType<std::int32_t> {};  ///< 32 bits
struct short_        : IntegerType<std::int16_t> {};  ///< 16 bits
struct byte          : IntegerType<std::int8_t> {};  ///< 8 bits
struct unsignedLong  : IntegerType<std::uint64_t> {};  ///< 64 bits
struct unsignedInt   : IntegerType<std::uint32_t> {};  ///< 32 bits
struct unsignedShort : IntegerType<std::uint16_t> {};  ///< 16 bits
struct unsignedByte  : IntegerType<std::uint8_t> {};  ///< 8 bits

struct float_  : FloatType<float> {};  ///< 32 bits
struct double_ : FloatType<double> {};  ///< 64 bits

struct dateTime   : DateType<CDateTime::dt_dateTime> {};  ///< `2026-05-01T12:00:00Z`
struct date       : DateType<CDateTime::dt_date> {};  ///< `2026-05-01`
struct time       : DateType<CDateTime::dt_time> {};  ///< `12:00:00`
struct gYearMonth : DateType<CDateTime::dt_gYearMonth> {};  ///< `2026-05`
struct gYear      : DateType<CDateTime::dt_gYear> {};  ///< `2026`
struct gMonthDay  : DateType<CDateTime::dt_gMonthDay> {};  ///< `--05-01`
struct gDay       : DateType<CDateTime::dt_gDay> {};  ///< `---01`
struct gMonth     : DateType<CDateTime::dt_gMonth> {};  ///< `--05`
// clang-format on

/// `P1Y2M3DT4H5M6.7S`
struct duration {
    using Value = CSchemaDuration;  ///< which is a CDateTimeSpan where that can hold the value
    /// @{
    /// From and to a literal.
    BXXMLLIB5_API static CSchemaDuration FromText(std::u16string_view text);
    static wstring ToText(CSchemaDuration const& value) { return value.GetText(); }
    /// @}
};

/// Two hexadecimal digits for each octet.
struct hexBinary {
    using Value = CBinaryData;  ///< the octets
    /// @{
    /// From and to a literal.
    BXXMLLIB5_API static CBinaryData FromText(std::u16string_view text);
    BXXMLLIB5_API static wstring ToText(CBinaryData const& value);
    /// @}
};

/// Base64 (RFC 2045), with whitespace between its characters.
struct base64Binary {
    using Value = CBinaryData;  ///< the octets
    /// @{
    /// From and to a literal.
    BXXMLLIB5_API static CBinaryData FromText(std::u16string_view text);
    BXXMLLIB5_API static wstring ToText(CBinaryData const& value);
    /// @}
};

}  // namespace Xs

}  // namespace BxXmlLib5::Generated
