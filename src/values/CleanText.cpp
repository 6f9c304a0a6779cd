#include "values/CleanText.h"

#include <algorithm>
#include <iterator>

#include "BxXmlLib5/core/CBxException.h"

namespace BxXmlLib5 {

namespace {

bool IsWhiteSpace(char16_t c) {
    return CWhitespaceUtils::IsWhiteSpace(c);
}

std::u16string_view Trimmed(std::u16string_view text) {
    while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
    return text;
}

/// Whether a text without whitespace at its ends is as Collapse leaves it.
bool IsCollapsed(std::u16string_view text) {
    bool afterBlank = false;
    for (char16_t const c : text) {
        if (IsWhiteSpace(c) && (c != u' ' || afterBlank)) return false;
        afterBlank = c == u' ';
    }
    return true;
}

wstring WithoutReturns(std::u16string_view text) {
    wstring result;
    result.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(result), [](char16_t c) { return c != u'\r'; });
    return result;
}

wstring Replaced(std::u16string_view text) {
    wstring result = WithoutReturns(text);
    std::replace_if(result.begin(), result.end(), IsWhiteSpace, u' ');
    return result;
}

wstring Collapsed(std::u16string_view trimmed) {
    wstring result = Replaced(trimmed);
    auto const bothBlank = [](char16_t a, char16_t b) { return a == u' ' && b == u' '; };
    result.erase(std::unique(result.begin(), result.end(), bothBlank), result.end());
    return result;
}

}  // namespace

void CleanText::Rewrite(CWhitespaceUtils::WhitespaceRule rule) {
    switch (rule) {
        case CWhitespaceUtils::ws_Preserve:
            if (m_view.find(u'\r') == m_view.npos) return;
            m_rewritten = WithoutReturns(m_view);
            break;
        case CWhitespaceUtils::ws_Replace:
            if (m_view.find_first_of(u"\r\n\t") == m_view.npos) return;
            m_rewritten = Replaced(m_view);
            break;
        case CWhitespaceUtils::ws_Collapse:
            m_view = Trimmed(m_view);
            if (IsCollapsed(m_view)) return;
            m_rewritten = Collapsed(m_view);
            break;
        default:
            throw CBxException(u"Unknown WhitespaceRule");
    }
    m_view = m_rewritten;
}

}  // namespace BxXmlLib5
