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
