#include "writers/GeneratedPrefixes.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace BxXmlLib5 {

namespace {

constexpr std::size_t kLetters = 26;
constexpr std::size_t kFewestLetters = 2;
constexpr std::size_t kMostLetters = 12;  // that can be counted in 64 bits

/// The index of a prefix, if it is one that GeneratedPrefix() forms.
std::optional<std::size_t> IndexOf(std::u16string_view prefix) {
    if (prefix.size() < kFewestLetters || prefix.size() > kMostLetters) return std::nullopt;
    std::size_t index = 0;
    std::size_t shorter = 0;  // how many prefixes have fewer letters
    std::size_t ofThisSize = kLetters;
    for (std::size_t i = 0; i < prefix.size(); ++i) {
        if (prefix[i] < u'A' || prefix[i] > u'Z') return std::nullopt;
        if (i >= kFewestLetters) shorter += ofThisSize *= kLetters;
        index = index * kLetters + (prefix[i] - u'A');
    }
    return index + shorter;
}

}  // namespace

wstring GeneratedPrefix(std::size_t index) {
    std::size_t letters = kFewestLetters;
    for (std::size_t ofThisSize = kLetters * kLetters; index >= ofThisSize; ofThisSize *= kLetters) {
        index -= ofThisSize;
        ++letters;
    }
    wstring prefix(letters, u'A');
    for (std::size_t at = letters; at-- > 0; index /= kLetters) {
        prefix[at] = static_cast<char16_t>(u'A' + index % kLetters);
    }
    return prefix;
}

void CPrefixesInUse::Hold(std::u16string_view alias) {
    if (auto const index = IndexOf(alias)) ++m_counts[*index];
}

void CPrefixesInUse::Drop(std::u16string_view alias) {
    auto const index = IndexOf(alias);
    if (!index) return;
    auto const count = m_counts.find(*index);
    if (--count->second > 0) return;
    m_counts.erase(count);
    m_allBelow = std::min(m_allBelow, *index);
}

wstring CPrefixesInUse::FirstFree() {
    while (m_counts.contains(m_allBelow)) ++m_allBelow;
    return GeneratedPrefix(m_allBelow);
}

}  // namespace BxXmlLib5
