// Values and their lexical forms.
#pragma once

#include <cstdint>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"

namespace BxXmlLib5 {

/// A function to text and one from text for each primitive kind of ItemType, named for the kind. They depend
/// on nothing but their arguments; in particular, not on the locale of the process.
///
/// From text, every function first applies the whitespace rule; what that leaves is called the cleaned text.
/// @throws CBxException if the rule is none of the three
/// @throws CBxInvalidValueException if the text is no value of the kind
class BXXMLLIB5_API CConversions {
public:
    using WhitespaceRule = CWhitespaceUtils::WhitespaceRule;

    /// @name Integers of 8 to 64 bits, signed (i) and unsigned (ui)
    ///
    /// To text: decimal digits, behind a minus if need be.
    ///
    /// From text: whitespace, a sign and decimal digits, each of them optional, but a text that is not empty
    /// must have digits. An empty text is 0. ui4 and ui8 take a minus too, and wrap: "-1" is their greatest
    /// value. A number that is too large is reported as such, whatever stands behind it.
    /// @{
    static wstring i1ToString(std::int8_t value);
    static wstring i2ToString(std::int16_t value);
    static wstring i4ToString(std::int32_t value);
    static wstring i8ToString(std::int64_t value);
    static wstring ui1ToString(std::uint8_t value);
    static wstring ui2ToString(std::uint16_t value);
    static wstring ui4ToString(std::uint32_t value);
    static wstring ui8ToString(std::uint64_t value);

    static std::int8_t i1FromString(wstring const& text, WhitespaceRule rule);
    static std::int16_t i2FromString(wstring const& text, WhitespaceRule rule);
    static std::int32_t i4FromString(wstring const& text, WhitespaceRule rule);
    static std::int64_t i8FromString(wstring const& text, WhitespaceRule rule);
    static std::uint8_t ui1FromString(wstring const& text, WhitespaceRule rule);
    static std::uint16_t ui2FromString(wstring const& text, WhitespaceRule rule);
    static std::uint32_t ui4FromString(wstring const& text, WhitespaceRule rule);
    static std::uint64_t ui8FromString(wstring const& text, WhitespaceRule rule);
    /// @}

    /// @name Floating point numbers of 32 (r4) and 64 (r8) bits
    ///
    /// To text: by default seven significant digits for r4 and sixteen for r8, as printf's %.7g and %.16g
    /// write them. A format is a printf format with one conversion of a double (e, E, f, g or G, with flags,
    /// width and precision in digits) and no other; its result may be of any length. Infinite values and
    /// not-a-number are "INF", "-INF" and "NaN" (XML Schema Part 2, 3.2.4), whatever the format.
    ///
    /// From text: whitespace, a sign, decimal digits with an optional point, and an exponent. An empty text
    /// is 0. A value past the range gives an infinity, one too close to 0 gives 0. The texts of infinite
    /// values and of not-a-number, and hexadecimal digits, are not accepted. An r4 is the nearest r8, rounded
    /// once more.
    /// @{

    /// @throws CBxInvalidParamException for any other format
    static wstring r4ToString(float value, char16_t const* format);
    static wstring r8ToString(double value, char16_t const* format);
    static float r4FromString(wstring const& text, WhitespaceRule rule);
    static double r8FromString(wstring const& text, WhitespaceRule rule);
    /// @}

    /// @name Characters, strings and booleans
    /// @{
    static wstring charToString(char16_t value);
    /// The cleaned text must be a single 16-bit unit.
    static char16_t charFromString(wstring const& text, WhitespaceRule rule);

    static wstring stringToString(wstring const& value);
    /// The cleaned text.
    static wstring stringFromString(wstring const& text, WhitespaceRule rule);

    /// "true" or "false".
    static wstring booleanToString(bool value);
    /// "true" and "1", "false" and "0", in upper or lower case.
    static bool booleanFromString(wstring const& text, WhitespaceRule rule);
    /// @}
};

}  // namespace BxXmlLib5
