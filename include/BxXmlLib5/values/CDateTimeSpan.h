// The duration of XML Schema.
#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <string_view>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CDateTime.h"

namespace BxXmlLib5 {

/// A duration (XML Schema Part 2, 3.2.6): counts of years, months, days, hours, minutes, seconds and of the
/// parts of a second, with one sign for the whole. The counts are not carried over into each other, so 90
/// minutes stay 90 minutes. No setter tests its argument.
class BXXMLLIB5_API CDateTimeSpan {
public:
    /// The duration of 0.
    CDateTimeSpan() = default;

    /// @{
    /// What is not given is 0. The sign is plus.
    CDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds);
    CDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                  std::uint64_t minutes, std::uint64_t seconds);
    CDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                  std::uint64_t minutes, std::uint64_t seconds, std::uint16_t milliSeconds,
                  std::uint16_t microSeconds, std::uint16_t nanoSeconds);
    /// @}

    /// @{
    /// Copies all counts and the sign.
    CDateTimeSpan(CDateTimeSpan const&) = default;
    CDateTimeSpan& operator=(CDateTimeSpan const&) = default;
    /// @}

    /// @{
    /// As the constructors.
    void SetDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds);
    void SetDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                         std::uint64_t minutes, std::uint64_t seconds);
    void SetDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                         std::uint64_t minutes, std::uint64_t seconds, std::uint16_t milliSeconds,
                         std::uint16_t microSeconds, std::uint16_t nanoSeconds);
    /// @}

    /// @{
    /// A count as it was set or read, without its sign.
    std::uint16_t GetYears() const { return m_years; }
    std::uint32_t GetMonths() const { return m_months; }
    std::uint32_t GetDays() const { return m_days; }
    std::uint32_t GetHours() const { return m_hours; }
    std::uint64_t GetMinutes() const { return m_minutes; }
    std::uint64_t GetSeconds() const { return m_seconds; }
    /// @}
    /// Digits 1 to 3 of the fraction of a second.
    std::uint16_t GetMilliSeconds() const { return m_milliSeconds; }
    /// Digits 4 to 6.
    std::uint16_t GetMicroSeconds() const { return m_microSeconds; }
    /// Digits 7 to 9.
    std::uint16_t GetNanoSeconds() const { return m_nanoSeconds; }

    /// @{
    /// Each sets its count and leaves the sign.
    void SetYears(std::uint16_t years) { m_years = years; }
    void SetMonths(std::uint32_t months) { m_months = months; }
    void SetDays(std::uint32_t days) { m_days = days; }
    void SetHours(std::uint32_t hours) { m_hours = hours; }
    void SetMinutes(std::uint64_t minutes) { m_minutes = minutes; }
    void SetSeconds(std::uint64_t seconds) { m_seconds = seconds; }
    void SetMilliSeconds(std::uint16_t milliSeconds) { m_milliSeconds = milliSeconds; }
    void SetMicroSeconds(std::uint16_t microSeconds) { m_microSeconds = microSeconds; }
    void SetNanoSeconds(std::uint16_t nanoSeconds) { m_nanoSeconds = nanoSeconds; }
    /// @}

    /// Whether the sign is minus. A duration of 0 may have it too.
    bool IsNegative() const { return m_negative; }
    /// Flips the sign.
    void Negate() { m_negative = !m_negative; }
    /// A copy with the sign minus, also if this one has it already.
    CDateTimeSpan GetAsNegative() const;

    /// The lexical form of XML Schema, counts of 0 left out and the fraction without trailing zeros. The
    /// duration of 0 is "P", which ParseXSDDuration() does not take.
    wstring ToString() const;

    /// @{
    /// Reads the lexical form of XML Schema in place of any value that the object had. A designator without
    /// digits counts 0, digits in front of "T" are dropped, a year may stand anywhere. A fraction has at most
    /// nine digits; "PT1." ends there.
    /// @throws CBxInvalidValueException for any other text, null included, and for a count that does not fit
    ///     its field; what was read before stays in the object
    void ParseXSDDuration(char16_t const* text);
    void ParseXSDDuration(std::u16string_view text);
    /// @}

    /// The partial order of XML Schema Part 2, 3.2.6.2: the results of adding both to each of four instants
    /// must agree.
    CDateTime::DTCompareResult CompareTo(CDateTimeSpan const& other) const;

    /// @{
    /// By CompareTo(). If that is indeterminate, only != is true.
    bool operator==(CDateTimeSpan const& other) const;
    bool operator!=(CDateTimeSpan const& other) const;
    bool operator<(CDateTimeSpan const& other) const;
    bool operator>(CDateTimeSpan const& other) const;
    /// @}
    /// The same as a standard result, unordered for dtc_indeterminate.
    template <std::same_as<CDateTimeSpan> T>
    friend std::partial_ordering operator<=>(T const& left, T const& right) {
        return left.Order(right);
    }

private:
    void Clear();
    std::partial_ordering Order(CDateTimeSpan const& other) const;
    void ReadFraction(std::u16string_view& rest, std::u16string_view text);

    std::uint16_t m_years = 0;
    std::uint32_t m_months = 0;
    std::uint32_t m_days = 0;
    std::uint32_t m_hours = 0;
    std::uint64_t m_minutes = 0;
    std::uint64_t m_seconds = 0;
    std::uint16_t m_milliSeconds = 0;
    std::uint16_t m_microSeconds = 0;
    std::uint16_t m_nanoSeconds = 0;
    bool m_negative = false;
};

}  // namespace BxXmlLib5
