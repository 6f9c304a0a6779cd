#include <algorithm>
#include <charconv>
#include <cmath>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/values/CConversions.h"
#include "core/FormatSpec.h"
#include "values/CleanText.h"
#include "values/NumberText.h"

namespace BxXmlLib5 {

namespace {

/// Whether a format takes one double and nothing else, and has no width or precision that nobody means.
bool IsFloatFormat(std::u16string_view format) {
    constexpr int kMost = 9999;
    int conversions = 0;
    for (;;) {
        format.remove_prefix(std::min(format.find(u'%'), format.size()));
        if (format.empty()) return conversions == 1;
        format.remove_prefix(1);
        if (format.starts_with(u'%')) {
            format.remove_prefix(1);
            continue;
        }
        FormatSpec const spec = TakeFormatSpec(format);
        bool const isDouble = spec.size == FormatSpec::Size::Plain || spec.size == FormatSpec::Size::Long;
        bool const isFloat = std::u16string_view(u"eEfgG").find(spec.letter) != format.npos;
        if (!isDouble || !isFloat || spec.width > kMost || spec.precision > kMost) return false;
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
    NumberAtFront<double> const number = ReadFloating<double>(clean.View());
    if (number.length != clean.View().size()) {
        throw CBxInvalidValueException(
            FormatString(u"The value [%s] can not be converted to a r8", wstring(clean.View()).c_str()));
    }
    return number.value;
}

}  // namespace BxXmlLib5
