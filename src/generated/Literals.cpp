// The lexical forms of the built-in simple types (XML Schema Part 2, 3).

#include <charconv>
#include <cmath>
#include <type_traits>

#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/generated/Xs.h"
#include "BxXmlLib5/values/CConversions.h"
#include "platform/TextView.h"
#include "values/NumberText.h"

namespace BxXmlLib5::Generated {

void ThrowBadForm(std::u16string_view literal) {
    throw CBxInvalidValueException(
        FormatString(u"The value [%s] has not the form of its type", wstring(literal).c_str()));
}

namespace {

/// Reads a literal from its front.
class Scan {
public:
    explicit Scan(std::u16string_view text) : m_rest(text) {}

    bool AtEnd() const { return m_rest.empty(); }
    std::u16string_view Rest() const { return m_rest; }
    bool Take(char16_t c) {
        if (!m_rest.starts_with(c)) return false;
        m_rest.remove_prefix(1);
        return true;
    }
    bool TakeSign() { return Take(u'-') || Take(u'+'); }
    /// @return how many there are
    std::size_t TakeDigits() {
        std::size_t const count = SkipDigits(m_rest, 0);
        m_rest.remove_prefix(count);
        return count;
    }

private:
    std::u16string_view m_rest;
};

bool IsInteger(std::u16string_view text) {
    Scan scan(text);
    scan.TakeSign();
    return scan.TakeDigits() > 0 && scan.AtEnd();
}

/// Takes digits with a point among or beside them.
bool TakeDecimal(Scan& scan) {
    scan.TakeSign();
    std::size_t digits = scan.TakeDigits();
    if (scan.Take(u'.')) digits += scan.TakeDigits();
    return digits > 0;
}

bool IsDecimal(std::u16string_view text) {
    Scan scan(text);
    return TakeDecimal(scan) && scan.AtEnd();
}

bool IsFloat(std::u16string_view text) {
    Scan scan(text);
    if (!TakeDecimal(scan)) return false;
    if (scan.Take(u'e') || scan.Take(u'E')) {
        scan.TakeSign();
        if (scan.TakeDigits() == 0) return false;
    }
    return scan.AtEnd();
}

/// Counts behind which these designators may stand, in this order.
bool TakeCounts(Scan& scan, std::u16string_view designators, bool& isEmpty) {
    isEmpty = true;
    while (!scan.AtEnd()) {
        Scan const before = scan;
        if (scan.TakeDigits() == 0) return true;
        bool const hasFraction = scan.Take(u'.');
        if (hasFraction && scan.TakeDigits() == 0) return false;
        while (!designators.empty() && !scan.Take(designators.front())) designators.remove_prefix(1);
        if (designators.empty() || (hasFraction && designators.front() != u'S')) {
            scan = before;
            return false;
        }
        designators.remove_prefix(1);
        isEmpty = false;
    }
    return true;
}

bool IsDuration(std::u16string_view text) {
    Scan scan(text);
    scan.Take(u'-');
    bool hasNoDate = false;
    if (!scan.Take(u'P') || !TakeCounts(scan, u"YMD", hasNoDate)) return false;
    if (scan.AtEnd()) return !hasNoDate;
    bool hasNoTime = false;
    return scan.Take(u'T') && TakeCounts(scan, u"HMS", hasNoTime) && !hasNoTime && scan.AtEnd();
}

/// @param form D for a digit, any other character for itself
bool TakeForm(std::u16string_view& text, std::u16string_view form) {
    if (text.size() < form.size()) return false;
    for (std::size_t i = 0; i < form.size(); ++i) {
        if (form[i] == u'D' ? !IsDigit(text[i]) : text[i] != form[i]) return false;
    }
    text.remove_prefix(form.size());
    return true;
}

struct DateForm {
    CDateTime::DTType type;
    bool hasYear;
    std::u16string_view form;
};

constexpr DateForm kDateForms[] = {
    {CDateTime::dt_dateTime, true, u"DDDD-DD-DDTDD:DD:DD"},
    {CDateTime::dt_date, true, u"DDDD-DD-DD"},
    {CDateTime::dt_gYearMonth, true, u"DDDD-DD"},
    {CDateTime::dt_gYear, true, u"DDDD"},
    {CDateTime::dt_time, false, u"DD:DD:DD"},
    {CDateTime::dt_gDay, false, u"---DD"},
    {CDateTime::dt_gMonth, false, u"--DD"},
    {CDateTime::dt_gMonthDay, false, u"--DD-DD"},
};

constexpr bool HasTime(CDateTime::DTType type) {
    return type == CDateTime::dt_dateTime || type == CDateTime::dt_time;
}

bool IsDate(CDateTime::DTType type, std::u16string_view text) {
    for (DateForm const& row : kDateForms) {
        if (row.type != type) continue;
        if (row.hasYear && text.starts_with(u'-')) text.remove_prefix(1);
        // "T" stands for itself.
        if (!TakeForm(text, row.form)) return false;
        Scan scan(text);
        if (HasTime(type) && scan.Take(u'.') && scan.TakeDigits() == 0) return false;
        if (scan.AtEnd() || scan.Take(u'Z')) return scan.AtEnd();
        if (!scan.TakeSign()) return false;
        std::u16string_view zone = scan.Rest();
        return TakeForm(zone, u"DD:DD") && zone.empty();
    }
    return false;
}

/// Zones are within 14 hours of UTC, and CDateTime keeps no sign of an hour of 0.
bool HasKnownZone(CDateTime const& value, std::u16string_view text) {
    if (!value.HasTimeZone()) return true;
    int const minutes = std::abs(value.GetZoneHour()) * 60 + value.GetZoneMinute();
    bool const losesSign = value.GetZoneHour() == 0 && minutes != 0 && text[text.size() - 6] == u'-';
    return minutes <= 14 * 60 && !losesSign;
}

bool IsNameStart(char32_t c) {
    if (c < 0x80) return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':';
    return (c >= 0xC0 && c <= 0x2FF && c != 0xD7 && c != 0xF7) || (c >= 0x370 && c <= 0x1FFF && c != 0x37E) ||
           (c >= 0x200C && c <= 0x200D) || (c >= 0x2070 && c <= 0x218F) || (c >= 0x2C00 && c <= 0x2FEF) ||
           (c >= 0x3001 && c <= 0xD7FF) || (c >= 0xF900 && c <= 0xFDCF) || (c >= 0xFDF0 && c <= 0xFFFD) ||
           (c >= 0x10000 && c <= 0xEFFFF);
}

bool IsNameCharacter(char32_t c) {
    return IsNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == 0xB7 ||
           (c >= 0x300 && c <= 0x36F) || (c >= 0x203F && c <= 0x2040);
}

/// Takes a character from the front of a text that is not empty.
char32_t TakeCharacter(std::u16string_view& text) {
    char32_t c = text[0];
    text.remove_prefix(1);
    if (c >= 0xD800 && c <= 0xDBFF && !text.empty() && text[0] >= 0xDC00 && text[0] <= 0xDFFF) {
        c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<char32_t>(text[0]) - 0xDC00);
        text.remove_prefix(1);
    }
    return c;
}

}  // namespace

namespace Xs {

bool IsNmtoken(std::u16string_view text) {
    if (text.empty()) return false;
    while (!text.empty()) {
        if (!IsNameCharacter(TakeCharacter(text))) return false;
    }
    return true;
}

bool IsName(std::u16string_view text) {
    std::u16string_view rest = text;
    return !text.empty() && IsNameStart(TakeCharacter(rest)) && IsNmtoken(text);
}

bool IsNCName(std::u16string_view text) {
    return IsName(text) && text.find(u':') == text.npos;
}

bool IsQName(std::u16string_view text) {
    std::size_t const colon = text.find(u':');
    if (colon == text.npos) return IsNCName(text);
    return IsNCName(text.substr(0, colon)) && IsNCName(text.substr(colon + 1));
}

bool IsLanguage(std::u16string_view text) {
    std::size_t length = 0;
    bool isFirst = true;
    for (char16_t const c : text) {
        bool const isLetter = (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
        if (c == u'-') {
            if (length == 0) return false;
            length = 0;
            isFirst = false;
        } else if (!(isLetter || (!isFirst && IsDigit(c))) || ++length > 8) {
            return false;
        }
    }
    return length > 0;
}

bool boolean::FromText(std::u16string_view text) {
    std::u16string_view const literal = Trimmed(text);
    if (literal == u"true" || literal == u"1") return true;
    if (literal == u"false" || literal == u"0") return false;
    ThrowBadForm(literal);
}
wstring boolean::ToText(bool value) {
    return CConversions::booleanToString(value);
}

CDecimal decimal::FromText(std::u16string_view text) {
    std::u16string_view const literal = Trimmed(text);
    if (!IsDecimal(literal)) ThrowBadForm(literal);
    int const limit = CDecimal::GetMaxDecimalPlaces();
    std::size_t const point = std::cmp_greater(literal.size(), limit) ? literal.find(u'.') : literal.npos;
    if (point != literal.npos) {
        std::size_t const places = literal.find_last_not_of(u'0') - point;
        if (std::cmp_greater(places, limit)) {
            throw CBxInvalidValueException(FormatString(u"The value [%s] has more decimal places than %d",
                                                        wstring(literal).c_str(), limit));
        }
    }
    return CDecimal(literal);
}

CBigInteger integer::FromText(std::u16string_view text) {
    std::u16string_view const literal = Trimmed(text);
    if (!IsInteger(literal)) ThrowBadForm(literal);
    return CBigInteger(literal);
}
wstring integer::ToText(CBigInteger const& value) {
    return value.ToString();
}

CDateTimeSpan duration::FromText(std::u16string_view text) {
    std::u16string_view const literal = Trimmed(text);
    if (!IsDuration(literal)) ThrowBadForm(literal);
    CDateTimeSpan value;
    value.ParseXSDDuration(literal);
    return value;
}
wstring duration::ToText(CDateTimeSpan const& value) {
    wstring text = value.ToString();
    if (text.ends_with(u'P')) text += u"T0S";
    return text;
}

CBinaryData hexBinary::FromText(std::u16string_view text) {
    CBinaryData value;
    value.SetAsHexString(Trimmed(text));
    return value;
}
wstring hexBinary::ToText(CBinaryData const& value) {
    return value.GetAsHexString();
}

CBinaryData base64Binary::FromText(std::u16string_view text) {
    wstring digits;
    digits.reserve(text.size());
    std::size_t padding = 0;
    for (char16_t const c : text) {
        if (CWhitespaceUtils::IsWhiteSpace(c)) continue;
        bool const isLetter = (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
        bool const isPadding = c == u'=';
        if (!(isLetter || IsDigit(c) || c == u'+' || c == u'/' || isPadding)) ThrowBadForm(text);
        if (!isPadding && padding > 0) ThrowBadForm(text);
        padding += isPadding ? 1 : 0;
        digits += c;
    }
    if (digits.size() % 4 != 0 || padding > 2) ThrowBadForm(text);
    CBinaryData value;
    value.SetAsBase64(digits);
    return value;
}
wstring base64Binary::ToText(CBinaryData const& value) {
    return value.GetAsBase64();
}

}  // namespace Xs

template <>
wstring TextType<CWhitespaceUtils::ws_Preserve>::FromText(std::u16string_view text) {
    return CConversions::stringFromString(text, CWhitespaceUtils::ws_Preserve);
}
template <>
wstring TextType<CWhitespaceUtils::ws_Replace>::FromText(std::u16string_view text) {
    return CConversions::stringFromString(text, CWhitespaceUtils::ws_Replace);
}
template <>
wstring TextType<CWhitespaceUtils::ws_Collapse>::FromText(std::u16string_view text) {
    return CConversions::stringFromString(text, CWhitespaceUtils::ws_Collapse);
}

template <std::integral T>
T IntegerType<T>::FromText(std::u16string_view text) {
    std::u16string_view const literal = Trimmed(text);
    if (!IsInteger(literal)) ThrowBadForm(literal);
    NumberAtFront<T> const number = ReadInteger<T>(literal);
    bool const hasSign = std::unsigned_integral<T> && literal[0] == u'-' && number.value != 0;
    if (number.outOfRange || hasSign) {
        throw CBxInvalidValueException(
            FormatString(u"The value [%s] is out of the range of its type", wstring(literal).c_str()));
    }
    return number.value;
}
template <std::integral T>
wstring IntegerType<T>::ToText(T value) {
    return IntegerText(+value);
}

template <std::floating_point T>
T FloatType<T>::FromText(std::u16string_view text) {
    std::u16string_view const literal = Trimmed(text);
    if (literal == u"INF") return std::numeric_limits<T>::infinity();
    if (literal == u"-INF") return -std::numeric_limits<T>::infinity();
    if (literal == u"NaN") return std::numeric_limits<T>::quiet_NaN();
    if (!IsFloat(literal)) ThrowBadForm(literal);
    return static_cast<T>(ReadDouble(literal).value);
}
template <std::floating_point T>
wstring FloatType<T>::ToText(T value) {
    if (std::isnan(value)) return u"NaN";
    if (std::isinf(value)) return value > 0 ? u"INF" : u"-INF";
    char buffer[64];
    return Widen({buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr});
}

template <CDateTime::DTType kType>
CDateTime DateType<kType>::FromText(std::u16string_view text) {
    std::u16string_view const literal = Trimmed(text);
    if (!IsDate(kType, literal)) ThrowBadForm(literal);
    CDateTime value;
    if constexpr (kType == CDateTime::dt_dateTime) {
        value.ParseXSDDateTime(literal);
    } else if constexpr (kType == CDateTime::dt_time) {
        value.ParseXSDTime(literal);
    } else {
        value.ParseXSDDate(literal);
    }
    if (!HasKnownZone(value, literal)) ThrowBadForm(literal);
    return value;
}
template <CDateTime::DTType kType>
wstring DateType<kType>::ToText(CDateTime const& value) {
    return value.ToString();
}
template <CDateTime::DTType kType>
void DateType<kType>::TestForm(CDateTime const& value) {
    if (value.GetType() != kType) ThrowBadForm(value.ToString());
}

template struct IntegerType<std::int8_t>;
template struct IntegerType<std::int16_t>;
template struct IntegerType<std::int32_t>;
template struct IntegerType<std::int64_t>;
template struct IntegerType<std::uint8_t>;
template struct IntegerType<std::uint16_t>;
template struct IntegerType<std::uint32_t>;
template struct IntegerType<std::uint64_t>;
template struct FloatType<float>;
template struct FloatType<double>;
template struct DateType<CDateTime::dt_dateTime>;
template struct DateType<CDateTime::dt_date>;
template struct DateType<CDateTime::dt_time>;
template struct DateType<CDateTime::dt_gYearMonth>;
template struct DateType<CDateTime::dt_gYear>;
template struct DateType<CDateTime::dt_gMonthDay>;
template struct DateType<CDateTime::dt_gDay>;
template struct DateType<CDateTime::dt_gMonth>;

}  // namespace BxXmlLib5::Generated
