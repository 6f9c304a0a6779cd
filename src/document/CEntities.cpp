#include "document/CEntities.h"

#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "document/InputLimits.h"
#include "platform/Stack.h"

namespace BxXmlLib5 {

namespace {

/// Expat recurses once for each level of reference, so what is left of the stack counts.
int MostNestingEntities() {
    std::size_t const left = StackLeft().value_or(kStackForLevel + kUnknownStack);
    std::size_t const most = (left - std::min(left, kStackForLevel)) / kStackOfEntity;
    return static_cast<int>(std::min<std::size_t>(most, kMaxNestingEntities));
}

}  // namespace

void CEntities::Declare(std::u16string_view name, std::u16string_view value) {
    bool const isNesting = value.find(u'&') != value.npos;
    m_values.emplace(name, isNesting ? value : std::u16string_view());
    if (!isNesting) return;
    if (!m_mostNesting) m_mostNesting = MostNestingEntities();
    if (++m_nesting <= *m_mostNesting) return;
    throw CBxException(
        FormatString(u"More than %d entities refer to others, which is the limit", *m_mostNesting));
}

/// An entity without declaration that another one refers to, or is; empty if there is none.
wstring CEntities::Undeclared(std::u16string_view entity) {
    auto const known = m_values.find(entity);
    if (known == m_values.end()) return wstring(entity);
    wstring const value = std::exchange(known->second, {});  // once is enough
    wstring undeclared;
    ForEach(value, [&](std::u16string_view name) {
        if (undeclared.empty()) undeclared = Undeclared(name);
    });
    if (!undeclared.empty()) known->second = u'&' + undeclared + u';';
    return undeclared;
}

}  // namespace BxXmlLib5
