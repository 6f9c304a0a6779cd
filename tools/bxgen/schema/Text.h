// Small things about texts.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace BxGen {

inline constexpr std::string_view kWhitespace = " \t\r\n";

/// Without whitespace around.
inline std::string_view Trimmed(std::string_view text) {
    std::size_t const start = text.find_first_not_of(kWhitespace);
    if (start == text.npos) return {};
    return text.substr(start, text.find_last_not_of(kWhitespace) - start + 1);
}

/// The items of a list, at whitespace.
inline std::vector<std::string_view> Items(std::string_view text) {
    std::vector<std::string_view> items;
    for (std::size_t start = text.find_first_not_of(kWhitespace); start != text.npos;) {
        std::size_t const end = std::min(text.find_first_of(kWhitespace, start), text.size());
        items.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(kWhitespace, end);
    }
    return items;
}

/// Whitespace collapsed: runs to one blank, none around.
inline std::string Collapsed(std::string_view text) {
    std::string collapsed;
    for (std::string_view const item : Items(text)) {
        if (!collapsed.empty()) collapsed += ' ';
        collapsed += item;
    }
    return collapsed;
}

}  // namespace BxGen
