#include "BxXmlLib5/generated/CSchemaDuration.h"

#include <array>
#include <limits>
#include <optional>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/generated/Xs.h"
#include "generated/Instant.h"
#include "generated/Scan.h"
#include "values/Calendar.h"

namespace BxXmlLib5::Generated {

namespace {

enum Part { kYears, kMonths, kDays, kHours, kMinutes, kSeconds, kParts };

struct Designator {
    char16_t letter;
    bool isTime;
    std::uint64_t most;  // of a CDateTimeSpan
};

constexpr std::uint64_t kMost32 = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t kMost64 = std::numeric_limits<std::uint64_t>::max();
constexpr Designator kDesignators[kParts] = {
    {u'Y', false, 65535},  {u'M', false, kMost32}, {u'D', false, kMost32},
    {u'H', true, kMost32}, {u'M', true, kMost64},  {u'S', true, kMost64},
};

struct Counts {
    bool isNegative = false;
    std::array<std::int64_t, kParts> of{};
    std::u16string_view fraction;  // of the seconds
};

std::optional<Counts> ReadCounts(std::u16string_view literal) {
    Scan scan(literal);
    Counts counts;
    counts.isNegative = scan.Take(u'-');
    if (!scan.Take(u'P')) return std::nullopt;
    bool isTime = false;
    int next = kYears;
    do {
        if (!isTime && scan.Take(u'T')) isTime = true;
        std::u16string_view const digits = scan.TakeDigits();
        bool const hasFraction = scan.StartsWith(u'.');
        if (digits.empty() || !scan.TakeFraction(counts.fraction)) return std::nullopt;
        while (next < kParts &&
               (kDesignators[next].isTime != isTime || !scan.Take(kDesignators[next].letter))) {
            ++next;
        }
        if (next == kParts || (hasFraction && next != kSeconds)) return std::nullopt;
        counts.of[static_cast<std::size_t>(next++)] = NumberOf(digits, literal);
    } while (!scan.AtEnd());
    return counts;
}

/// What a duration adds to an instant: months, and days and less, rounded down.
class Length {
public:
    /// @param text the literal, which must outlive the object
    explicit Length(std::u16string_view text) {
        Counts const counts = ReadCounts(text).value_or(Counts());
        auto const& of = counts.of;
        m_months = of[kYears] * 12 + of[kMonths];
        std::int64_t const seconds =
            of[kHours] % 24 * 3600 + of[kMinutes] % 1440 * 60 + of[kSeconds] % kSecondsOfDay;
        m_rest = {of[kDays] + of[kHours] / 24 + of[kMinutes] / 1440 + of[kSeconds] / kSecondsOfDay +
                      seconds / kSecondsOfDay,
                  seconds % kSecondsOfDay, counts.fraction};
        if (counts.isNegative) Negate();
    }

    /// @param year, month of the instant, which is the start of the month
    Instant After(std::int64_t year, std::int64_t month) const {
        auto const [years, months] = FloorDivide(year * 12 + month - 1 + m_months, 12);
        return {DayNumber(years, months + 1, 1) + m_rest.days, m_rest.seconds, m_rest.fraction};
    }

private:
    void Negate() {
        m_months = -m_months;
        bool const hasFraction = !m_rest.fraction.empty();
        auto const [over, seconds] = FloorDivide(-m_rest.seconds - (hasFraction ? 1 : 0), kSecondsOfDay);
        if (hasFraction) {
            // What is missing to 1: nines less the digits, and one more in the last place.
            for (char16_t const digit : m_rest.fraction)
                m_complement += static_cast<char16_t>(u'0' + u'9' - digit);
            ++m_complement.back();
        }
        m_rest = {-m_rest.days + over, seconds, m_complement};
    }

    std::int64_t m_months = 0;
    Instant m_rest;
    wstring m_complement;  // the fraction refers to it
};

}  // namespace

CSchemaDuration::CSchemaDuration(CDateTimeSpan const& value) : m_value(value) {
    wstring const text = GetText();
    if (!ReadCounts(text)) ThrowBadForm(text);
}

CSchemaDuration::CSchemaDuration(std::u16string_view text) {
    auto const counts = ReadCounts(text);
    if (!counts) ThrowBadForm(text);
    m_hasValue = counts->fraction.size() <= 9;
    for (std::size_t i = 0; i < kParts; ++i) {
        m_hasValue = m_hasValue && static_cast<std::uint64_t>(counts->of[i]) <= kDesignators[i].most;
    }
    if (m_hasValue) {
        auto const at = [&](Part part) { return static_cast<std::uint64_t>(counts->of[part]); };
        auto const thousandths = [&](std::size_t from) { return Thousandths(counts->fraction, from); };
        m_value =
            CDateTimeSpan(static_cast<std::uint16_t>(at(kYears)), static_cast<std::uint32_t>(at(kMonths)),
                          static_cast<std::uint32_t>(at(kDays)), static_cast<std::uint32_t>(at(kHours)),
                          at(kMinutes), at(kSeconds), thousandths(0), thousandths(3), thousandths(6));
        if (counts->isNegative) m_value.Negate();
    }
    if (!m_hasValue || GetText() != text) m_text = KeptText(text);
}

wstring CSchemaDuration::GetText() const {
    if (m_text) return *m_text;
    wstring text = m_value.ToString();
    if (text.ends_with(u'P')) text += u"T0S";
    return text;
}

CDateTimeSpan const& CSchemaDuration::GetSpan() const {
    if (m_hasValue) return m_value;
    throw CBxInvalidValueException(
        FormatString(u"The value [%s] is beyond what CDateTimeSpan can hold", GetText().c_str()));
}

std::partial_ordering CSchemaDuration::operator<=>(CSchemaDuration const& other) const {
    wstring const text = GetText();
    wstring const otherText = other.GetText();
    Length const left(text);
    Length const right(otherText);
    constexpr std::pair<std::int64_t, std::int64_t> kReferences[] = {
        {1696, 9}, {1697, 2}, {1903, 3}, {1903, 7}};
    std::optional<std::strong_ordering> order;
    for (auto const& [year, month] : kReferences) {
        auto const here = left.After(year, month) <=> right.After(year, month);
        if (order && *order != here) return std::partial_ordering::unordered;
        order = here;
    }
    return *order;
}

bool CSchemaDuration::operator==(CSchemaDuration const& other) const {
    return (*this <=> other) == std::partial_ordering::equivalent;
}

}  // namespace BxXmlLib5::Generated
