// Dates and times as XML Schema has them.
#pragma once

#include <compare>
#include <memory>
#include <string_view>

#include "BxXmlLib5/generated/KeptText.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CDateTime.h"

namespace BxXmlLib5::Generated {

/// A value of one of the eight date and time types (XML Schema Part 2, 3.2.7 to 3.2.14), whole: years of up to
/// 15 digits, fractions of a second of any length, the hour 24. It keeps the text that it was made from. It is a
/// CDateTime where that can hold the value, and converts from and to it as such:
///
///     order.Due = CDateTime(2026, 5, 1);
///     CDateTime const due = *order.Due;
///     short const year = order.Due->GetYear();
class BXXMLLIB5_API CSchemaDate {
public:
    /// No value, of type dt_yearZero.
    CSchemaDate() = default;
    /// @throws CBxInvalidValueException for what is no value of its type: a year of 0, an offset beyond 14 hours
    CSchemaDate(CDateTime const& value);
    /// @param text a literal of the type, without whitespace at its ends
    /// @throws CBxInvalidValueException for any other text
    CSchemaDate(CDateTime::DTType type, std::u16string_view text);

    /// Which of the eight types the value is of; dt_yearZero for none.
    CDateTime::DTType GetType() const { return m_value.GetType(); }

    /// The literal that the value was made from, or that of the CDateTime.
    wstring GetText() const;

    /// Whether a CDateTime can hold the value. The hour 24 is the hour 0 of the next day.
    bool HasDateTime() const { return m_hasValue; }
    /// @{
    /// @throws CBxInvalidValueException for a value that a CDateTime cannot hold: years beyond 9999, more
    ///     than nine digits of a fraction, offsets from -00:01 to -00:59
    CDateTime const& GetDateTime() const;
    operator CDateTime const&() const { return GetDateTime(); }
    CDateTime const* operator->() const { return &GetDateTime(); }
    /// @}

    /// @{
    /// The partial order of the standard (3.2.7.3): a value with a zone and one without can be compared only if
    /// they are more than 14 hours apart. Values of different types cannot.
    std::partial_ordering operator<=>(CSchemaDate const& other) const;
    bool operator==(CSchemaDate const& other) const;
    /// @}
    /// Whether the two are the same instant of the same type.
    bool operator==(CDateTime const& other) const { return *this == CSchemaDate(other); }

private:
    CDateTime m_value;  // of the right type, but else empty, if it does not fit
    bool m_hasValue = false;
    KeptText m_text;  // none if that of the CDateTime is the same
};

}  // namespace BxXmlLib5::Generated
