// Entities that a document declares.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <optional>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

/// Knows which references lead to a declaration.
class CEntities {
public:
    /// In the thread that parses, whose stack limits how deep they may nest.
    /// @throws CBxException if too many refer to others
    void Declare(std::u16string_view name, std::u16string_view value);

    /// Calls back for each reference in a text, as markup has it, that leads to an entity without declaration, with the
    /// name of that.
    template <class Take>
    void ForEachUndeclared(std::u16string_view text, Take take) {
        ForEach(text, [&](std::u16string_view name) {
            wstring const undeclared = Undeclared(name);
            if (!undeclared.empty()) take(std::u16string_view(undeclared));
        });
    }

private:
    /// Calls back with the name of each entity that a text refers to, beside those that need no declaration.
    template <class Take>
    static void ForEach(std::u16string_view text, Take take) {
        constexpr std::u16string_view kKnown[] = {u"amp", u"lt", u"gt", u"apos", u"quot"};
        for (std::size_t at = text.find(u'&'); at != text.npos; at = text.find(u'&', at + 1)) {
            std::u16string_view const name = text.substr(at + 1, text.find(u';', at) - at - 1);
            if (!name.starts_with(u'#') && std::ranges::find(kKnown, name) == std::end(kKnown)) take(name);
        }
    }

    wstring Undeclared(std::u16string_view entity);

    std::map<wstring, wstring, LessBySize> m_values;  // of those that refer to others, else empty
    int m_nesting = 0;
    std::optional<int> m_mostNesting;
};

}  // namespace BxXmlLib5
