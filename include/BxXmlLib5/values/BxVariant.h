// The carrier of one value between generated classes and the library.
#pragma once

#include <cstdint>
#include <string_view>

#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"
#include "BxXmlLib5/values/ItemType.h"

namespace BxXmlLib5 {

class CBigInteger;
class CBinaryData;
class CDateTime;
class CDateTimeSpan;
class CDecimal;
class CXmlCollectionBase;
class CXmlObjectBase;

/// Holds one value of any kind of ItemType, or none: it is then invalid, which stands for a property that is
/// not set.
///
/// A setter drops what was held and takes the new value with its kind. A getter must be the one of the kind
/// that is held: nothing is tested and nothing converted. An invalid variant answers the getters of text,
/// value classes and objects with an empty value, and so does one of those kinds whose pointer is null.
///
/// The variant owns text and value classes. Of an object it holds one reference, so the object must be on the
/// heap. A copy has values of its own, shares the octets of binary data and takes a reference of its own to
/// an object; a move takes them over and leaves the source invalid. Getters on an rvalue hand text and big
/// numbers over instead of copying them: `m_name = std::move(value).GetString()`.
///
/// Setting a variant from itself, or from what it holds, is safe.
struct BXXMLLIB5_API BxVariant {
    /// The value itself, or a pointer to what is too large for the slot.
    union Value {
        std::uint64_t m_bits = 0;             ///< All of the slot.
        std::int8_t m_i1;                     ///< it_i1
        std::int16_t m_i2;                    ///< it_i2
        std::int32_t m_i4;                    ///< it_i4
        std::int64_t m_i8;                    ///< it_i8
        std::uint8_t m_ui1;                   ///< it_ui1
        std::uint16_t m_ui2;                  ///< it_ui2
        std::uint32_t m_ui4;                  ///< it_ui4
        std::uint64_t m_ui8;                  ///< it_ui8
        float m_r4;                           ///< it_r4
        double m_r8;                          ///< it_r8
        std::uint16_t m_year;                 ///< it_year
        std::uint8_t m_month;                 ///< it_month
        std::uint8_t m_day;                   ///< it_day
        char16_t m_char;                      ///< it_char
        bool m_boolean;                       ///< it_boolean
        CBinaryData* m_binary;                ///< Owned.
        CDateTimeSpan* m_duration;            ///< Owned.
        CDateTime* m_dateTime;                ///< Owned.
        wstring* m_string;                    ///< Owned.
        CDecimal* m_decimal;                  ///< Owned.
        CBigInteger* m_integer;               ///< Owned.
        CXmlObjectBase* m_xmlObject;          ///< One reference.
        CXmlCollectionBase* m_xmlCollection;  ///< One reference.
    };

    /// The kind of what is held.
    ItemType m_type = it_invalid;
    /// What is held, in the member of the kind; 0 in an invalid variant.
    Value m_value;

    /// Invalid.
    BxVariant() = default;

    /// @{
    /// A copy of the value, by the rules above.
    /// @throws CBxException if the kind of the other variant is outside ItemType; this one is then invalid
    BxVariant(BxVariant const& other);
    BxVariant const& operator=(BxVariant const& other);
    /// @}

    /// @{
    /// Takes the value over and leaves the other variant invalid.
    BxVariant(BxVariant&& other) noexcept;
    BxVariant const& operator=(BxVariant&& other) noexcept;
    /// @}

    /// Frees what the variant owns, and gives up its reference.
    ~BxVariant() { Clear(); }

    /// Drops what is held and leaves the variant invalid.
    void Clear() {
        if (IsValid()) Drop();
    }
    /// As Clear().
    void SetInvalid() { Clear(); }
    /// Whether there is a value.
    bool IsValid() const { return m_type != it_invalid; }

    /// The kind's name: that of its enumerator without the prefix.
    /// @throws CBxException if the variant is invalid or holds an object
    wstring GetType() const;

    /// The lexical form of the value, as CConversions gives it.
    /// @param format for it_r4 and it_r8 a printf format, for it_decimal the number of fraction digits; null
    ///        for the default of the kind. No other kind looks at it.
    /// @throws CBxException if the variant is invalid or holds an object, CBxInvalidParamException for a
    ///         format that CConversions does not take
    wstring ToString(char16_t const* format) const;

    /// Takes the value that a text has as a value of a kind. A text that is refused leaves the variant as it
    /// was.
    /// @throws CBxException if the type is no primitive kind, and what CConversions throws for the text
    void FromString(std::u16string_view text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);

    // Numbers, characters and booleans.

    /// @{
    /// Takes the value, with the kind that the name tells.
    void SetI1(std::int8_t value) { Start(it_i1).m_i1 = value; }
    void SetI2(std::int16_t value) { Start(it_i2).m_i2 = value; }
    void SetI4(std::int32_t value) { Start(it_i4).m_i4 = value; }
    void SetI8(std::int64_t value) { Start(it_i8).m_i8 = value; }
    void SetUI1(std::uint8_t value) { Start(it_ui1).m_ui1 = value; }
    void SetUI2(std::uint16_t value) { Start(it_ui2).m_ui2 = value; }
    void SetUI4(std::uint32_t value) { Start(it_ui4).m_ui4 = value; }
    void SetUI8(std::uint64_t value) { Start(it_ui8).m_ui8 = value; }
    void SetR4(float value) { Start(it_r4).m_r4 = value; }
    void SetR8(double value) { Start(it_r8).m_r8 = value; }
    void SetYear(std::uint16_t value) { Start(it_year).m_year = value; }
    void SetMonth(std::uint8_t value) { Start(it_month).m_month = value; }
    void SetDay(std::uint8_t value) { Start(it_day).m_day = value; }
    void SetChar(char16_t value) { Start(it_char).m_char = value; }
    void SetBoolean(bool value) { Start(it_boolean).m_boolean = value; }
    /// @}

    /// @{
    /// The value, which must be of the kind that the name tells.
    std::int8_t GetI1() const { return m_value.m_i1; }
    std::int16_t GetI2() const { return m_value.m_i2; }
    std::int32_t GetI4() const { return m_value.m_i4; }
    std::int64_t GetI8() const { return m_value.m_i8; }
    std::uint8_t GetUI1() const { return m_value.m_ui1; }
    std::uint16_t GetUI2() const { return m_value.m_ui2; }
    std::uint32_t GetUI4() const { return m_value.m_ui4; }
    std::uint64_t GetUI8() const { return m_value.m_ui8; }
    float GetR4() const { return m_value.m_r4; }
    double GetR8() const { return m_value.m_r8; }
    std::uint16_t GetYear() const { return m_value.m_year; }
    std::uint8_t GetMonth() const { return m_value.m_month; }
    std::uint8_t GetDay() const { return m_value.m_day; }
    char16_t GetChar() const { return m_value.m_char; }
    bool GetBoolean() const { return m_value.m_boolean; }
    /// @}

    // Text and value classes.

    /// @{
    /// Takes the value, with the kind that the name tells; the variant owns it.
    void SetString(wstring value);
    void SetHexBinary(CBinaryData value);
    void SetBase64Binary(CBinaryData value);
    void SetDuration(CDateTimeSpan value);
    void SetYearMonth(CDateTime value);
    void SetMonthDay(CDateTime value);
    void SetDate(CDateTime value);
    void SetDateTime(CDateTime value);
    void SetTime(CDateTime value);
    void SetDecimal(CDecimal value);
    void SetInteger(CBigInteger value);
    /// @}

    /// @{
    /// The value, which must be of the kind that the name tells, or an empty one where the variant is
    /// invalid. Of an rvalue, text and big numbers are handed over.
    wstring GetString() const&;
    wstring GetString() &&;
    CBinaryData GetHexBinary() const;
    CBinaryData GetBase64Binary() const;
    CDateTimeSpan GetDuration() const;
    CDateTime GetYearMonth() const;
    CDateTime GetMonthDay() const;
    CDateTime GetDate() const;
    CDateTime GetDateTime() const;
    CDateTime GetTime() const;
    CDecimal GetDecimal() const&;
    CDecimal GetDecimal() &&;
    CBigInteger GetInteger() const&;
    CBigInteger GetInteger() &&;
    /// @}

    // Objects.

    /// @{
    /// Takes a reference to an object on the heap.
    /// @param value null is taken too
    void SetXmlObject(CXmlObjectBase* value);
    void SetXmlCollection(CXmlCollectionBase* value);
    /// @}
    /// @{
    /// The object with a reference of its own, or null where the variant is invalid.
    CSmartPtr<CXmlObjectBase> GetXmlObject() const;
    CSmartPtr<CXmlCollectionBase> GetXmlCollection() const;
    /// @}

private:
    void Drop();

    /// Drops what is held and gives the slot for a value of this kind.
    Value& Start(ItemType type) {
        Clear();
        m_type = type;
        return m_value;
    }

    template <class T>
    void Own(ItemType type, T* Value::*member, T&& value);
};

}  // namespace BxXmlLib5
