#include <algorithm>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/values/CConversions.h"
#include "values/CleanText.h"

namespace BxXmlLib5 {

namespace {

/// Whether a text is a word in any mixture of ASCII's cases.
/// @param word in lower case
bool EqualsWord(std::u16string_view text, std::u16string_view word) {
    auto const lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? c - u'A' + u'a' : int{c}; };
    return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                      [&](char16_t a, char16_t b) { return lower(a) == b; });
}

}  // namespace

wstring CConversions::charToString(char16_t value) {
    return wstring(1, value);
}

char16_t CConversions::charFromString(std::u16string_view text, WhitespaceRule rule) {
    CleanText const clean(rule, text);
    if (clean.View().size() != 1) {
        throw CBxInvalidValueException(FormatString(
            u"The value [%s] can not be a char as it is either empty of greater than 1 char long",
            wstring(clean.View()).c_str()));
    }
    return clean.View()[0];
}

wstring CConversions::stringToString(wstring const& value) {
    return value;
}

wstring CConversions::stringFromString(std::u16string_view text, WhitespaceRule rule) {
    return CleanText(rule, text).Take();
}

wstring CConversions::booleanToString(bool value) {
    return value ? u"true" : u"false";
}

bool CConversions::booleanFromString(std::u16string_view text, WhitespaceRule rule) {
    CleanText const clean(rule, text);
    if (EqualsWord(clean.View(), u"true") || EqualsWord(clean.View(), u"1")) return true;
    if (EqualsWord(clean.View(), u"false") || EqualsWord(clean.View(), u"0")) return false;
    throw CBxInvalidValueException(FormatString(
        u"A Boolean Value read from an XML document was invalid [%s]. Valid values are 'true', 'false', '1', "
        u"or '0'",
        wstring(text).c_str()));
}

}  // namespace BxXmlLib5
