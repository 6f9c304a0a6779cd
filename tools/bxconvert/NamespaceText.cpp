#include "NamespaceText.h"

#include <algorithm>
#include <iterator>

namespace BxConvert {

namespace {

struct Escape {
    char16_t m_unit;
    std::u16string_view m_text;
};

constexpr Escape kEscapes[] = {
    {u'&', u"&amp;"}, {u'<', u"&lt;"},   {u'"', u"&quot;"},
    {u'\t', u"&#9;"}, {u'\n', u"&#10;"}, {u'\r', u"&#13;"},
};

Escape const* FindEscape(char16_t unit) {
    auto const* const escape = std::ranges::find(kEscapes, unit, &Escape::m_unit);
    return escape == std::end(kEscapes) ? nullptr : escape;
}

}  // namespace

bool NeedsEscape(std::u16string_view namespaceUri) {
    return std::ranges::any_of(namespaceUri, FindEscape);
}

BxXmlLib5::wstring Escaped(std::u16string_view namespaceUri) {
    BxXmlLib5::wstring escaped;
    for (char16_t const unit : namespaceUri) {
        Escape const* const escape = FindEscape(unit);
        escaped += escape == nullptr ? std::u16string_view(&unit, 1) : escape->m_text;
    }
    return escaped;
}

}  // namespace BxConvert
