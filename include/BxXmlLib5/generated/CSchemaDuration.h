// Durations as XML Schema has them.
#pragma once

#include <compare>
#include <string_view>

#include "BxXmlLib5/generated/KeptText.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"

namespace BxXmlLib5::Generated {

/// A duration (XML Schema Part 2, 3.2.6), whole: counts of up to 15 digits and fractions of any length. It keeps
/// the text that it was made from. It is a CDateTimeSpan where that can hold the value, and converts from and to
/// it as such.
class BXXMLLIB5_API CSchemaDuration {
public:
    /// The duration of 0.
    CSchemaDuration() = default;
    /// @throws CBxInvalidValueException for counts of more than 15 digits
    CSchemaDuration(CDateTimeSpan const& value);
    /// @param text a literal of the type, without whitespace at its ends
    /// @throws CBxInvalidValueException for any other text, and for counts of more than 15 digits
    explicit CSchemaDuration(std::u16string_view text);

    /// The literal that the value was made from, or that of the CDateTimeSpan.
    wstring GetText() const;

    /// Whether a CDateTimeSpan can hold the value.
    bool HasSpan() const { return m_hasValue; }
    /// @{
    /// @throws CBxInvalidValueException for a value that a CDateTimeSpan cannot hold: more than 65,535 years,
    ///     months, days or hours of more than 32 bits, more than nine digits of a fraction
    CDateTimeSpan const& GetSpan() const;
    operator CDateTimeSpan const&() const { return GetSpan(); }
    CDateTimeSpan const* operator->() const { return &GetSpan(); }
    /// @}

    /// @{
    /// The partial order of the standard (3.2.6.2): a month is no number of days.
    std::partial_ordering operator<=>(CSchemaDuration const& other) const;
    bool operator==(CSchemaDuration const& other) const;
    /// @}
    /// Whether both are equal by the order above.
    bool operator==(CDateTimeSpan const& other) const { return *this == CSchemaDuration(other); }

private:
    CDateTimeSpan m_value;  // empty if it does not fit
    bool m_hasValue = true;
    KeptText m_text;  // none if that of the CDateTimeSpan is the same
};

}  // namespace BxXmlLib5::Generated
