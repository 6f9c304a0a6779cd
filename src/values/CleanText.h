// Text under a whitespace rule.
#pragma once

#include <string_view>
#include <utility>

#include "BxXmlLib5/values/CWhitespaceUtils.h"
#include "platform/UnitScan.h"

namespace BxXmlLib5 {

/// What a whitespace rule makes of a text. Text that the rule leaves alone, or only trims, is viewed where it
/// stands, so it must outlive this object.
class CleanText {
public:
    /// @throws CBxException if the rule is none of the three
    CleanText(CWhitespaceUtils::WhitespaceRule rule, std::u16string_view text) : m_view(text) {
        bool const hasBlankOrBelow =
            HasUnit(text, [](std::uint64_t units) { return UnitsBelow(units, u' ' + 1); });
        if (hasBlankOrBelow || !IsKnown(rule)) Rewrite(rule);
    }
    CleanText(CleanText const&) = delete;
    CleanText& operator=(CleanText const&) = delete;

    /// The rule applied to a text that is given up: if it stays as it is, its memory stays too.
    static wstring Of(CWhitespaceUtils::WhitespaceRule rule, wstring&& text) {
        CleanText clean(rule, text);
        bool const isWhole = clean.m_view.data() == text.data() && clean.m_view.size() == text.size();
        return isWhole ? std::move(text) : std::move(clean).Take();
    }

    std::u16string_view View() const { return m_view; }
    wstring Take() && { return m_rewritten.empty() ? wstring(m_view) : std::move(m_rewritten); }

private:
    static bool IsKnown(CWhitespaceUtils::WhitespaceRule rule) {
        return rule >= CWhitespaceUtils::ws_Preserve && rule <= CWhitespaceUtils::ws_Collapse;
    }
    void Rewrite(CWhitespaceUtils::WhitespaceRule rule);

    std::u16string_view m_view;
    wstring m_rewritten;
};

}  // namespace BxXmlLib5
