#include "writers/GeneratedPrefixes.h"

#include <optional>
#include <string_view>

namespace BxXmlLib5 {

namespace {

constexpr int kLetters = 26;
constexpr std::size_t kFewestLetters = 2;

/// The index of a prefix as GeneratedPrefix() forms it, if it is below the bound.
std::optional<std::size_t> IndexOf(std::u16string_view prefix, std::size_t bound) {
    if (prefix.size() < kFewestLetters) return std::nullopt;
    std::size_t index = 0;
    std::size_t shorter = 0;  // how many prefixes are shorter
    std::size_t ofThisSize = kLetters;
    for (std::size_t i = 0; i < prefix.size(); ++i) {
        if (prefix[i] < u'A' || prefix[i] > u'Z') return std::nullopt;
        if (i >= kFewestLetters) shorter += ofThisSize *= kLetters;
        index = index * kLetters + (prefix[i] - u'A');
        if (shorter >= bound || index >= bound) return std::nullopt;
    }
    return index + shorter < bound ? std::optional(index + shorter) : std::nullopt;
}

}  // namespace

wstring GeneratedPrefix(int index) {
    std::size_t letters = kFewestLetters;
    int ofThisSize = kLetters * kLetters;
    while (index >= ofThisSize) {
        index -= ofThisSize;
        ofThisSize *= kLetters;
        ++letters;
    }
    wstring prefix(letters, u'A');
    for (std::size_t at = letters; at-- > 0; index /= kLetters) {
        prefix[at] = static_cast<char16_t>(u'A' + index % kLetters);
    }
    return prefix;
}

CPrefixSource::CPrefixSource(std::map<wstring, wstring> const& aliases) : m_used(aliases.size() + 1) {
    for (auto const& [namespaceUri, alias] : aliases) {
        if (auto const index = IndexOf(alias, m_used.size())) m_used[*index] = true;
    }
}

wstring CPrefixSource::Next() {
    while (m_next < m_used.size() && m_used[m_next]) ++m_next;
    return GeneratedPrefix(static_cast<int>(m_next++));
}

}  // namespace BxXmlLib5
