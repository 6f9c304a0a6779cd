#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/values/CConversions.h"
#include "BxXmlLib5/values/CDateTime.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "BxXmlLib5/values/CDecimal.h"
#include "values/CleanText.h"
#include "values/NumberText.h"

namespace BxXmlLib5 {

namespace {

/// The value that a parsing operation of its class makes of the cleaned text.
template <class T>
T Parsed(void (T::*parse)(std::u16string_view), std::u16string_view text, CConversions::WhitespaceRule rule) {
    T value;
    (value.*parse)(CleanText(rule, text).View());
    return value;
}

}  // namespace

wstring CConversions::hexBinaryToString(CBinaryData const& value) {
    return value.GetAsHexString();
}
wstring CConversions::base64BinaryToString(CBinaryData const& value) {
    return value.GetAsBase64();
}
CBinaryData CConversions::hexBinaryFromString(std::u16string_view text, WhitespaceRule rule) {
    return Parsed<CBinaryData>(&CBinaryData::SetAsHexString, text, rule);
}
CBinaryData CConversions::base64BinaryFromString(std::u16string_view text, WhitespaceRule rule) {
    return Parsed<CBinaryData>(&CBinaryData::SetAsBase64, text, rule);
}

wstring CConversions::durationToString(CDateTimeSpan const& value) {
    return value.ToString();
}
CDateTimeSpan CConversions::durationFromString(std::u16string_view text, WhitespaceRule rule) {
    return Parsed<CDateTimeSpan>(&CDateTimeSpan::ParseXSDDuration, text, rule);
}

wstring CConversions::datetimeToString(CDateTime const& value) {
    return value.ToString();
}
wstring CConversions::dateToString(CDateTime const& value) {
    return datetimeToString(value);
}
wstring CConversions::timeToString(CDateTime const& value) {
    return datetimeToString(value);
}
wstring CConversions::yearMonthToString(CDateTime const& value) {
    return datetimeToString(value);
}
wstring CConversions::monthDayToString(CDateTime const& value) {
    return datetimeToString(value);
}

CDateTime CConversions::datetimeFromString(std::u16string_view text, WhitespaceRule rule) {
    return Parsed<CDateTime>(&CDateTime::ParseXSDDateTime, text, rule);
}
CDateTime CConversions::timeFromString(std::u16string_view text, WhitespaceRule rule) {
    return Parsed<CDateTime>(&CDateTime::ParseXSDTime, text, rule);
}
CDateTime CConversions::dateFromString(std::u16string_view text, WhitespaceRule rule) {
    return Parsed<CDateTime>(&CDateTime::ParseXSDDate, text, rule);
}
CDateTime CConversions::yearMonthFromString(std::u16string_view text, WhitespaceRule rule) {
    return dateFromString(text, rule);
}
CDateTime CConversions::monthDayFromString(std::u16string_view text, WhitespaceRule rule) {
    return dateFromString(text, rule);
}

wstring CConversions::yearToString(std::uint16_t value) {
    return ui2ToString(value);
}
wstring CConversions::monthToString(std::uint8_t value) {
    return FormatString(u"--%02u", unsigned{value});
}
wstring CConversions::dayToString(std::uint8_t value) {
    return FormatString(u"---%02u", unsigned{value});
}

std::uint16_t CConversions::yearFromString(std::u16string_view text, WhitespaceRule rule) {
    return static_cast<std::uint16_t>(dateFromString(text, rule).GetYear());
}
std::uint8_t CConversions::monthFromString(std::u16string_view text, WhitespaceRule rule) {
    return dateFromString(text, rule).GetMonth();
}
std::uint8_t CConversions::dayFromString(std::u16string_view text, WhitespaceRule rule) {
    return dateFromString(text, rule).GetDay();
}

wstring CConversions::decimalToString(CDecimal const& value, char16_t const* format) {
    return format == nullptr ? value.ToString() : value.ToString(ReadInteger<std::int32_t>(format).value);
}
CDecimal CConversions::decimalFromString(std::u16string_view text, WhitespaceRule rule) {
    return CDecimal(CleanText(rule, text).View());
}

wstring CConversions::integerToString(CBigInteger const& value) {
    return value.ToString();
}
CBigInteger CConversions::integerFromString(std::u16string_view text, WhitespaceRule rule) {
    return CBigInteger(CleanText(rule, text).View());
}

}  // namespace BxXmlLib5
