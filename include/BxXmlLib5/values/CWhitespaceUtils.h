// The whiteSpace facet of XML Schema, applied to text before it becomes a value.
#pragma once

#include <cstdint>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// Rewrites text by a whitespace rule (XML Schema Part 2, 4.3.6). Unlike there, every carriage return is
/// dropped: line ends have one form, whatever the document had.
class BXXMLLIB5_API CWhitespaceUtils {
public:
    /// Callers pass the rules as numbers, so the values are fixed.
    enum WhitespaceRule : std::int32_t {
        ws_Preserve = 0,  ///< as Preserve()
        ws_Replace = 1,   ///< as Replace()
        ws_Collapse = 2,  ///< as Collapse()
    };

    /// The first units of a text without its carriage returns.
    /// @param text at least length units; null counts as empty
    /// @param length below 1 for none
    static wstring Preserve(char16_t const* text, int length);
    /// The text without its carriage returns.
    static wstring Preserve(wstring const& text);

    /// A blank for each tab, line feed and blank; carriage returns dropped.
    static wstring Replace(wstring const& text);

    /// A blank for each run of whitespace, none at either end. A run of carriage returns alone is no
    /// whitespace: it is dropped, and the text on its two sides joined.
    static wstring Collapse(wstring const& text);

    /// @throws CBxException if the rule is none of the three
    static wstring ApplyRule(WhitespaceRule rule, wstring const& text);

    /// Blank, tab, carriage return and line feed, the whitespace of XML.
    static bool IsWhiteSpace(char16_t c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }
};

}  // namespace BxXmlLib5
