#include "BxXmlLib5/values/CDateTimeSpan.h"

#include <limits>
#include <optional>
#include <span>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "platform/TextView.h"
#include "values/DigitText.h"
#include "values/WideDate.h"

namespace BxXmlLib5 {

namespace {

constexpr std::uint64_t kMost16 = std::numeric_limits<std::uint16_t>::max();
constexpr std::uint64_t kMost32 = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t kMost64 = std::numeric_limits<std::uint64_t>::max();

/// What has been read last.
enum class Stage { Start, Years, Months, Days, Time, Hours, Minutes, Seconds };

/// A letter that may follow in the stages from one to another. It stores the number in front of it, or drops
/// it where there is nothing to store it in.
struct Designator {
    char16_t letter;
    Stage first;
    Stage last;
    Stage next;
    std::uint64_t most;
    void (*store)(CDateTimeSpan& span, std::uint64_t number);
};

void StoreSeconds(CDateTimeSpan& span, std::uint64_t number) {
    span.SetSeconds(number);
}

constexpr Designator kDesignators[] = {
    {u'Y', Stage::Start, Stage::Seconds, Stage::Years, kMost16,
     [](auto& span, auto number) { span.SetYears(static_cast<std::uint16_t>(number)); }},
    {u'M', Stage::Start, Stage::Years, Stage::Months, kMost32,
     [](auto& span, auto number) { span.SetMonths(static_cast<std::uint32_t>(number)); }},
    {u'D', Stage::Start, Stage::Months, Stage::Days, kMost32,
     [](auto& span, auto number) { span.SetDays(static_cast<std::uint32_t>(number)); }},
    {u'T', Stage::Start, Stage::Days, Stage::Time, 0, nullptr},
    {u'H', Stage::Time, Stage::Time, Stage::Hours, kMost32,
     [](auto& span, auto number) { span.SetHours(static_cast<std::uint32_t>(number)); }},
    {u'M', Stage::Time, Stage::Hours, Stage::Minutes, kMost64,
     [](auto& span, auto number) { span.SetMinutes(number); }},
    {u'S', Stage::Time, Stage::Minutes, Stage::Seconds, kMost64, StoreSeconds},
    {u'.', Stage::Time, Stage::Minutes, Stage::Seconds, kMost64, StoreSeconds},
};

Designator const* FindDesignator(std::u16string_view text, Stage stage) {
    for (Designator const& row : kDesignators) {
        if (text.starts_with(row.letter) && stage >= row.first && stage <= row.last) return &row;
    }
    return nullptr;
}

/// Takes the digits from the front of a text, none for 0; empty if the number has more than 64 bits.
std::optional<std::uint64_t> TakeNumber(std::u16string_view& text) {
    std::uint64_t number = 0;
    bool fits = true;
    for (; !text.empty() && IsDigit(text[0]); text.remove_prefix(1)) {
        auto const digit = static_cast<std::uint64_t>(text[0] - u'0');
        fits = fits && number <= (kMost64 - digit) / 10;
        number = number * 10 + digit;
    }
    return fits ? std::optional(number) : std::nullopt;
}

/// @param text the whole duration
void Require(bool isValid, std::u16string_view text) {
    if (isValid) return;
    throw CBxInvalidValueException(FormatString(
        u"Invalid XSD Duration [%s] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]", wstring(text).c_str()));
}

/// The months that begin the four instants of XML Schema Part 2, 3.2.6.2.
struct Reference {
    std::int16_t year;
    std::uint8_t month;
};
constexpr Reference kReferences[] = {{1696, 9}, {1697, 2}, {1903, 3}, {1903, 7}};

CDateTime::DTCompareResult CompareAt(Reference const& reference, CDateTimeSpan const& left,
                                     CDateTimeSpan const& right) {
    auto const after = [&reference](CDateTimeSpan const& span) {
        WideDate date{
            CDateTime::dt_dateTime, {.year = reference.year, .month = reference.month, .day = 1}, true};
        date.Add(span);
        return date;
    };
    return Compare(after(left), after(right));
}

}  // namespace

CDateTimeSpan::CDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds)
    : CDateTimeSpan(0, 0, 0, hours, minutes, seconds) {}

CDateTimeSpan::CDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days,
                             std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds)
    : CDateTimeSpan(years, months, days, hours, minutes, seconds, 0, 0, 0) {}

CDateTimeSpan::CDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days,
                             std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds,
                             std::uint16_t milliSeconds, std::uint16_t microSeconds,
                             std::uint16_t nanoSeconds)
    : m_years(years),
      m_months(months),
      m_days(days),
      m_hours(hours),
      m_minutes(minutes),
      m_seconds(seconds),
      m_milliSeconds(milliSeconds),
      m_microSeconds(microSeconds),
      m_nanoSeconds(nanoSeconds) {}

void CDateTimeSpan::SetDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds) {
    *this = CDateTimeSpan(hours, minutes, seconds);
}

void CDateTimeSpan::SetDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days,
                                    std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds) {
    *this = CDateTimeSpan(years, months, days, hours, minutes, seconds);
}

void CDateTimeSpan::SetDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days,
                                    std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds,
                                    std::uint16_t milliSeconds, std::uint16_t microSeconds,
                                    std::uint16_t nanoSeconds) {
    *this =
        CDateTimeSpan(years, months, days, hours, minutes, seconds, milliSeconds, microSeconds, nanoSeconds);
}

void CDateTimeSpan::Clear() {
    *this = CDateTimeSpan();
}

CDateTimeSpan CDateTimeSpan::GetAsNegative() const {
    CDateTimeSpan result = *this;
    result.m_negative = true;
    return result;
}

wstring CDateTimeSpan::ToString() const {
    CDigitText out;
    auto const putCount = [&out](std::uint64_t count, char16_t designator) {
        if (count == 0) return;
        out.PutNumber(count);
        out.Put(designator);
    };
    bool const hasFraction = m_milliSeconds != 0 || m_microSeconds != 0 || m_nanoSeconds != 0;
    bool const hasSeconds = m_seconds != 0 || hasFraction;
    if (m_negative) out.Put(u'-');
    out.Put(u'P');
    putCount(m_years, u'Y');
    putCount(m_months, u'M');
    putCount(m_days, u'D');
    if (m_hours != 0 || m_minutes != 0 || hasSeconds) out.Put(u'T');
    putCount(m_hours, u'H');
    putCount(m_minutes, u'M');
    if (hasSeconds) {
        out.PutNumber(m_seconds);
        out.PutFraction({m_milliSeconds, m_microSeconds, m_nanoSeconds});
        out.Put(u'S');
    }
    return out.Text();
}

void CDateTimeSpan::ParseXSDDuration(char16_t const* text) {
    Clear();
    if (text == nullptr) throw CBxInvalidValueException(u"Invalid XSD Duration (Null String)");
    ParseXSDDuration(std::u16string_view(text));
}

void CDateTimeSpan::ParseXSDDuration(std::u16string_view text) {
    Clear();
    std::u16string_view rest = text;
    if (rest.empty()) throw CBxInvalidValueException(u"Invalid XSD Duration (Empty String)");
    m_negative = rest[0] == u'-';
    if (m_negative) rest.remove_prefix(1);
    Require(rest.starts_with(u'P'), text);
    rest.remove_prefix(1);
    Stage stage = Stage::Start;
    while (!rest.empty()) {
        auto const number = TakeNumber(rest);
        Designator const* const designator = FindDesignator(rest, stage);
        Require(designator != nullptr, text);
        rest.remove_prefix(1);
        if (designator->store != nullptr) {
            Require(number && *number <= designator->most, text);
            designator->store(*this, *number);
        }
        if (designator->letter == u'.' && !rest.empty()) ReadFraction(rest, text);
        stage = designator->next;
    }
    Require(stage != Stage::Start && stage != Stage::Time, text);
}

void CDateTimeSpan::ReadFraction(std::u16string_view& rest, std::u16string_view text) {
    Fraction const fraction = TakeFraction(rest);
    m_milliSeconds = fraction.milli;
    m_microSeconds = fraction.micro;
    m_nanoSeconds = fraction.nano;
    if (!rest.empty() && IsDigit(rest[0])) {
        throw CBxInvalidValueException(
            FormatString(u"Invalid XSD Duration [%s] Fraction part too long", wstring(text).c_str()));
    }
    Require(rest.starts_with(u'S'), text);
    rest.remove_prefix(1);
}

CDateTime::DTCompareResult CDateTimeSpan::CompareTo(CDateTimeSpan const& other) const {
    CDateTime::DTCompareResult const first = CompareAt(kReferences[0], *this, other);
    for (Reference const& reference : std::span(kReferences).subspan(1)) {
        if (CompareAt(reference, *this, other) != first) return CDateTime::dtc_indeterminate;
    }
    return first;
}

std::partial_ordering CDateTimeSpan::Order(CDateTimeSpan const& other) const {
    return AsOrdering(CompareTo(other));
}

bool CDateTimeSpan::operator==(CDateTimeSpan const& other) const {
    return CompareTo(other) == CDateTime::dtc_equal;
}

bool CDateTimeSpan::operator!=(CDateTimeSpan const& other) const {
    return CompareTo(other) != CDateTime::dtc_equal;
}

bool CDateTimeSpan::operator<(CDateTimeSpan const& other) const {
    return CompareTo(other) == CDateTime::dtc_lessThan;
}

bool CDateTimeSpan::operator>(CDateTimeSpan const& other) const {
    return CompareTo(other) == CDateTime::dtc_greaterThan;
}

}  // namespace BxXmlLib5
