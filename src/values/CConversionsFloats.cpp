#include <algorithm>
#include <charconv>
#include <cmath>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/values/CConversions.h"
#include "values/CleanText.h"
#include "values/NumberText.h"

namespace BxXmlLib5 {

namespace {

/// Moves past the units of a set at the front.
void SkipAll(std::u16string_view& text, std::u16string_view set) {
    text.remove_prefix(std::min(text.find_first_not_of(set), text.size()));
}

bool Skip(std::u16string_view& text, char16_t wanted) {
    bool const found = text.starts_with(wanted);
    if (found) text.remove_prefix(1);
    return found;
}

/// Moves past the digits of a width or a precision; false if it is one that nobody means.
bool SkipNumber(std::u16string_view& text) {
    constexpr std::size_t kMostDigits = 4;
    std::size_t const before = text.size();
    SkipAll(text, u"0123456789");
    return before - text.size() <= kMostDigits;
}

/// Whether a format takes one double and nothing else.
bool IsFloatFormat(std::u16string_view format) {
    int conversions = 0;
    for (;;) {
        format.remove_prefix(std::min(format.find(u'%'), format.size()));
        if (!Skip(format, u'%')) return conversions == 1;
        if (Skip(format, u'%')) continue;
        SkipAll(format, u"-+ #0");
        if (!SkipNumber(format) || (Skip(format, u'.') && !SkipNumber(format))) return false;
        Skip(format, u'l');
        if (format.empty() || std::u16string_view(u"eEfgG").find(format[0]) == format.npos) return false;
        format.remove_prefix(1);
        ++conversions;
    }
}

/// @param digits significant ones, where there is no format
wstring ToText(double value, int digits, char16_t const* format) {
    if (format != nullptr && !IsFloatFormat(format)) {
        throw CBxInvalidParamException(
            FormatString(u"The format [%s] is no format for one floating point number", format));
    }
    if (std::isnan(value)) return u"NaN";
    if (std::isinf(value)) return value > 0 ? u"INF" : u"-INF";
    if (format != nullptr) return FormatString(format, value);

    char buffer[32];
    char* const end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits).ptr;
    return Widen({buffer, end});
}

}  // namespace

wstring CConversions::r4ToString(float value, char16_t const* format) {
    return ToText(value, 7, format);
}
wstring CConversions::r8ToString(double value, char16_t const* format) {
    return ToText(value, 16, format);
}

float CConversions::r4FromString(std::u16string_view text, WhitespaceRule rule) {
    return static_cast<float>(r8FromString(text, rule));
}

double CConversions::r8FromString(std::u16string_view text, WhitespaceRule rule) {
    CleanText const clean(rule, text);
    NumberAtFront<double> const number = ReadDouble(clean.View());
    if (number.length != clean.View().size()) {
        throw CBxInvalidValueException(
            FormatString(u"The value [%s] can not be converted to a r8", wstring(clean.View()).c_str()));
    }
    return number.value;
}

}  // namespace BxXmlLib5
