#include "BxXmlLib5/generated/SimpleTypes.h"

#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/generated/Property.h"
#include "BxXmlLib5/values/CConversions.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"
#include "platform/TextView.h"

namespace BxXmlLib5::Generated {

std::u16string_view Trimmed(std::u16string_view text) {
    while (!text.empty() && CWhitespaceUtils::IsWhiteSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && CWhitespaceUtils::IsWhiteSpace(text.back())) text.remove_suffix(1);
    return text;
}

wstring Collapsed(std::u16string_view text) {
    return CWhitespaceUtils::Collapse(wstring(text));
}

std::optional<std::u16string_view> TakeItem(std::u16string_view& list) {
    list = Trimmed(list);
    if (list.empty()) return std::nullopt;
    std::size_t end = 0;
    while (end < list.size() && !CWhitespaceUtils::IsWhiteSpace(list[end])) ++end;
    std::u16string_view const item = list.substr(0, end);
    list.remove_prefix(end);
    return item;
}

int FindText(std::span<char16_t const* const> texts, std::u16string_view literal) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (Equal(texts[i], literal)) return static_cast<int>(i);
    }
    return -1;
}

int FindEnumerator(std::span<char16_t const* const> texts, std::u16string_view text,
                   CWhitespaceUtils::WhitespaceRule rule) {
    int const index = FindText(texts, text);
    if (index >= 0 || rule == CWhitespaceUtils::ws_Preserve) return index;
    return FindText(texts, CConversions::stringFromString(text, rule));
}

bool StartsWithAny(std::u16string_view text, std::u16string_view characters) {
    std::u16string_view const literal = Trimmed(text);
    return !literal.empty() && characters.find(literal[0]) != characters.npos;
}

wstring OtherSpelling(wstring const& text, std::size_t index) {
    struct Spelling {
        std::u16string_view before;
        std::u16string_view behind;
    };
    static constexpr Spelling kSpellings[] = {
        {u"", u".0"}, {u"", u"e0"}, {u"", u"0"}, {u"+", u""}, {u"0", u""}};
    if (text == u"true" || text == u"false")
        return index == 0 ? wstring(text == u"true" ? u"1" : u"0") : wstring();
    if (index < std::size(kSpellings))
        return wstring(kSpellings[index].before).append(text).append(kSpellings[index].behind);
    wstring small = text;
    for (char16_t& c : small) c = c >= u'A' && c <= u'F' ? static_cast<char16_t>(c + 0x20) : c;
    return index == std::size(kSpellings) && small != text ? small : wstring();
}

void ThrowNoEnumerator(std::u16string_view literal) {
    throw CBxInvalidValueException(
        FormatString(u"The value [%s] is none of the enumeration", wstring(literal).c_str()));
}
void ThrowNoEnumerator(int value) {
    throw CBxInvalidValueException(FormatString(u"The enumerator %d is none of the enumeration", value));
}
void ThrowNoMember(std::u16string_view literal) {
    throw CBxInvalidValueException(
        FormatString(u"The value [%s] is one of no member of the union", wstring(literal).c_str()));
}

void ThrowNotSet() {
    throw CBxInvalidStateException(u"The property is not set");
}
void ThrowNoIndex(int index) {
    throw CBxInvalidParamException(FormatString(u"There is nothing at the index %d", index));
}
void ThrowNotFixed(std::u16string_view fixed, std::u16string_view text) {
    throw CBxInvalidValueException(FormatString(u"The value [%s] is not the fixed one, [%s]",
                                                wstring(text).c_str(), wstring(fixed).c_str()));
}

}  // namespace BxXmlLib5::Generated
