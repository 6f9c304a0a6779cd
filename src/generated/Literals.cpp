// The lexical forms of the built-in simple types (XML Schema Part 2, 3).

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <type_traits>
#include <utility>

#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/generated/Xs.h"
#include "BxXmlLib5/values/CConversions.h"
#include "generated/Scan.h"
#include "platform/TextView.h"
#include "platform/Utf.h"
#include "platform/XmlCharacters.h"
#include "values/NumberText.h"

namespace BxXmlLib5::Generated {

void ThrowBadForm(std::u16string_view literal) {
    throw CBxInvalidValueException(
        FormatString(u"The value [%s] has not the form of its type", wstring(literal).c_str()));
}

namespace {

bool IsInteger(std::u16string_view text) {
    Scan scan(text);
    scan.TakeSign();
    return !scan.TakeDigits().empty() && scan.AtEnd();
}

/// Takes digits with a point among or beside them.
bool TakeDecimal(Scan& scan) {
    scan.TakeSign();
    std::size_t digits = scan.TakeDigits().size();
    if (scan.Take(u'.')) digits += scan.TakeDigits().size();
    return digits > 0;
}

bool IsFloat(std::u16string_view text) {
    Scan scan(text);
    if (!TakeDecimal(scan)) return false;
    if (scan.Take(u'e') || scan.Take(u'E')) {
        scan.TakeSign();
        if (scan.TakeDigits().empty()) return false;
    }
    return scan.AtEnd();
}

bool IsLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsHexDigit(char16_t c) {
    return IsDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

bool IsBase64Digit(char16_t c) {
    return IsLetter(c) || IsDigit(c) || c == u'+' || c == u'/';
}

}  // namespace

namespace Xs {

bool IsNmtoken(std::u16string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (!IsNameCharacter(Utf::Next(text, at))) return false;
    }
    return !text.empty();
}

bool IsName(std::u16string_view text) {
    std::size_t at = 0;
    return !text.empty() && IsNameStart(Utf::Next(text, at)) && IsNmtoken(text);
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
        if (c == u'-') {
            if (length == 0) return false;
            length = 0;
            isFirst = false;
        } else if (!(IsLetter(c) || (!isFirst && IsDigit(c))) || ++length > 8) {
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
    std::optional<CDecimal> value = CDecimal::FromLiteral(literal);
    if (!value) ThrowBadForm(literal);
    int const limit = CDecimal::GetMaxDecimalPlaces();
    std::size_t const point = std::cmp_greater(literal.size(), limit) ? literal.find(u'.') : literal.npos;
    if (point != literal.npos) {
        std::size_t const places = literal.find_last_not_of(u'0') - point;
        if (std::cmp_greater(places, limit)) {
            throw CBxInvalidValueException(FormatString(u"The value [%s] has more decimal places than %d",
                                                        wstring(literal).c_str(), limit));
        }
    }
    return *std::move(value);
}

CBigInteger integer::FromText(std::u16string_view text) {
    std::u16string_view const literal = Trimmed(text);
    if (!IsInteger(literal)) ThrowBadForm(literal);
    return CBigInteger(literal);
}
wstring integer::ToText(CBigInteger const& value) {
    return value.ToString();
}

CSchemaDuration duration::FromText(std::u16string_view text) {
    return CSchemaDuration(Trimmed(text));
}

CBinaryData hexBinary::FromText(std::u16string_view text) {
    std::u16string_view const digits = Trimmed(text);
    if (digits.size() % 2 != 0 || !std::ranges::all_of(digits, IsHexDigit)) ThrowBadForm(digits);
    CBinaryData value;
    value.SetAsHexString(digits);
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
        bool const isPadding = c == u'=';
        if (!(isPadding || IsBase64Digit(c)) || (!isPadding && padding > 0)) ThrowBadForm(text);
        padding += isPadding ? 1 : 0;
        digits += c;
    }
    if (digits.size() % 4 != 0 || padding > 2) ThrowBadForm(text);
    // The last digit has no bits that the padding drops.
    constexpr std::u16string_view kLast[] = {{}, u"AEIMQUYcgkosw048", u"AQgw"};
    if (padding > 0 && kLast[padding].find(digits[digits.size() - padding - 1]) == kLast[padding].npos) {
        ThrowBadForm(text);
    }
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
    return ReadFloating<T>(literal).value;
}
template <std::floating_point T>
wstring FloatType<T>::ToText(T value) {
    if (std::isnan(value)) return u"NaN";
    if (std::isinf(value)) return value > 0 ? u"INF" : u"-INF";
    char buffer[64];
    return Widen({buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr});
}

template <CDateTime::DTType kType>
CSchemaDate DateType<kType>::FromText(std::u16string_view text) {
    return {kType, Trimmed(text)};
}
template <CDateTime::DTType kType>
void DateType<kType>::TestForm(CSchemaDate const& value) {
    if (value.GetType() != kType) ThrowBadForm(value.GetText());
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
