#include "BxXmlLib5/values/CWhitespaceUtils.h"

#include "values/CleanText.h"

namespace BxXmlLib5 {

wstring CWhitespaceUtils::Preserve(char16_t const* text, int length) {
    if (text == nullptr || length < 1) return {};
    return CleanText(ws_Preserve, {text, static_cast<std::size_t>(length)}).Take();
}

wstring CWhitespaceUtils::Preserve(wstring const& text) {
    return ApplyRule(ws_Preserve, text);
}
wstring CWhitespaceUtils::Replace(wstring const& text) {
    return ApplyRule(ws_Replace, text);
}
wstring CWhitespaceUtils::Collapse(wstring const& text) {
    return ApplyRule(ws_Collapse, text);
}

wstring CWhitespaceUtils::ApplyRule(WhitespaceRule rule, wstring const& text) {
    return CleanText(rule, text).Take();
}

}  // namespace BxXmlLib5
