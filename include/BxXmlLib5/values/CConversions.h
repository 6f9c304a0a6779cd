// Values and their lexical forms.
#pragma once

#include <cstdint>
#include <string_view>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"

namespace BxXmlLib5 {

class CBigInteger;
class CBinaryData;
class CDateTime;
class CDateTimeSpan;
class CDecimal;

/// A function to text and one from text for each primitive kind of ItemType, named for the kind. They depend
/// on nothing but their arguments; in particular, not on the locale of the process.
///
/// From text, every function first applies the whitespace rule; what that leaves is called the cleaned text.
/// @throws CBxException if the rule is none of the three
/// @throws CBxInvalidValueException if the text is no value of the kind
class BXXMLLIB5_API CConversions {
public:
    /// What is applied to a text before it becomes a value.
    using WhitespaceRule = CWhitespaceUtils::WhitespaceRule;

    // Integers of 8 to 64 bits, signed (i) and unsigned (ui).

    /// @{
    /// Decimal digits, behind a minus if need be.
    static wstring i1ToString(std::int8_t value);
    static wstring i2ToString(std::int16_t value);
    static wstring i4ToString(std::int32_t value);
    static wstring i8ToString(std::int64_t value);
    static wstring ui1ToString(std::uint8_t value);
    static wstring ui2ToString(std::uint16_t value);
    static wstring ui4ToString(std::uint32_t value);
    static wstring ui8ToString(std::uint64_t value);
    /// @}

    /// @{
    /// Whitespace, a sign and decimal digits, each of them optional, but a text that is not empty must have
    /// digits. An empty text is 0. ui4 and ui8 take a minus too, and wrap: "-1" is their greatest value. A
    /// number that is too large is reported as such, whatever stands behind it.
    static std::int8_t i1FromString(std::u16string_view text, WhitespaceRule rule);
    static std::int16_t i2FromString(std::u16string_view text, WhitespaceRule rule);
    static std::int32_t i4FromString(std::u16string_view text, WhitespaceRule rule);
    static std::int64_t i8FromString(std::u16string_view text, WhitespaceRule rule);
    static std::uint8_t ui1FromString(std::u16string_view text, WhitespaceRule rule);
    static std::uint16_t ui2FromString(std::u16string_view text, WhitespaceRule rule);
    static std::uint32_t ui4FromString(std::u16string_view text, WhitespaceRule rule);
    static std::uint64_t ui8FromString(std::u16string_view text, WhitespaceRule rule);
    /// @}

    // Floating point numbers of 32 (r4) and 64 (r8) bits.

    /// @{
    /// By default seven significant digits for r4 and sixteen for r8, as printf's %.7g and %.16g write them.
    /// A format is a printf format with one conversion of a double (e, E, f, g or G, with flags, width and
    /// precision of up to four digits) and no other; its result may be of any length. Infinite values and
    /// not-a-number are "INF", "-INF" and "NaN" (XML Schema Part 2, 3.2.4), whatever the format.
    /// @throws CBxInvalidParamException for any other format
    static wstring r4ToString(float value, char16_t const* format);
    static wstring r8ToString(double value, char16_t const* format);
    /// @}
    /// @{
    /// Whitespace, a sign, decimal digits with an optional point, and an exponent. An empty text is 0. A
    /// value past the range gives an infinity, one too close to 0 gives 0. The texts of infinite values and
    /// of not-a-number, and hexadecimal digits, are not accepted. An r4 is the nearest r8, rounded once more.
    static float r4FromString(std::u16string_view text, WhitespaceRule rule);
    static double r8FromString(std::u16string_view text, WhitespaceRule rule);
    /// @}

    // Characters, strings and booleans.

    /// A text of this unit.
    static wstring charToString(char16_t value);
    /// The cleaned text must be a single 16-bit unit.
    static char16_t charFromString(std::u16string_view text, WhitespaceRule rule);

    /// The text itself.
    static wstring stringToString(wstring const& value);
    /// The cleaned text.
    static wstring stringFromString(std::u16string_view text, WhitespaceRule rule);

    /// "true" or "false".
    static wstring booleanToString(bool value);
    /// "true" and "1", "false" and "0", in upper or lower case.
    static bool booleanFromString(std::u16string_view text, WhitespaceRule rule);

    // Value classes. To text and from text are operations of the classes: the forms are described there, and
    // their failures pass through.

    /// As CBinaryData::GetAsHexString().
    static wstring hexBinaryToString(CBinaryData const& value);
    /// @throws CBxException if the text is not hexadecimal
    static CBinaryData hexBinaryFromString(std::u16string_view text, WhitespaceRule rule);

    /// As CBinaryData::GetAsBase64().
    static wstring base64BinaryToString(CBinaryData const& value);
    /// A text that is not Base64 gives no octets.
    static CBinaryData base64BinaryFromString(std::u16string_view text, WhitespaceRule rule);

    /// As CDateTimeSpan::ToString().
    static wstring durationToString(CDateTimeSpan const& value);
    /// As CDateTimeSpan::ParseXSDDuration().
    static CDateTimeSpan durationFromString(std::u16string_view text, WhitespaceRule rule);

    /// @param format a text that begins with the number of fraction digits, as CDecimal::ToString(int) takes
    ///        it; null for all that the value has
    /// @throws CBxInvalidParamException for a negative number of digits
    static wstring decimalToString(CDecimal const& value, char16_t const* format);
    /// As the constructor of CDecimal from text.
    static CDecimal decimalFromString(std::u16string_view text, WhitespaceRule rule);

    /// As CBigInteger::ToString().
    static wstring integerToString(CBigInteger const& value);
    /// As CBigInteger::Parse().
    static CBigInteger integerFromString(std::u16string_view text, WhitespaceRule rule);

    // Dates and times.

    /// @{
    /// The form is that of the value's type, not of the function's name: all five do the same.
    static wstring yearMonthToString(CDateTime const& value);
    static wstring monthDayToString(CDateTime const& value);
    static wstring dateToString(CDateTime const& value);
    static wstring datetimeToString(CDateTime const& value);
    static wstring timeToString(CDateTime const& value);
    /// @}

    /// @{
    /// As CDateTime::ParseXSDDate(): each takes every form without a time, and the form gives the value its
    /// type.
    static CDateTime yearMonthFromString(std::u16string_view text, WhitespaceRule rule);
    static CDateTime monthDayFromString(std::u16string_view text, WhitespaceRule rule);
    static CDateTime dateFromString(std::u16string_view text, WhitespaceRule rule);
    /// @}
    /// As CDateTime::ParseXSDDateTime().
    static CDateTime datetimeFromString(std::u16string_view text, WhitespaceRule rule);
    /// As CDateTime::ParseXSDTime().
    static CDateTime timeFromString(std::u16string_view text, WhitespaceRule rule);

    // Years, months and days as plain numbers, without a time zone.

    /// Digits without a fill.
    static wstring yearToString(std::uint16_t value);
    /// "--MM"
    static wstring monthToString(std::uint8_t value);
    /// "---DD"
    static wstring dayToString(std::uint8_t value);
    /// @{
    /// The field, from every form without a time that has it. A year before the common era comes as its
    /// 16-bit two's complement.
    /// @throws CBxInvalidStateException if the form has no such field
    static std::uint16_t yearFromString(std::u16string_view text, WhitespaceRule rule);
    static std::uint8_t monthFromString(std::u16string_view text, WhitespaceRule rule);
    static std::uint8_t dayFromString(std::u16string_view text, WhitespaceRule rule);
    /// @}
};

}  // namespace BxXmlLib5
