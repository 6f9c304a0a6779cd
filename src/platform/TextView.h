// Small steps on UTF-16 text that the whole library shares.
#pragma once

#include <cstring>
#include <string_view>

namespace BxXmlLib5 {

/// A text argument, for which null means the empty text.
inline std::u16string_view TextOf(char16_t const* text) {
    return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

/// Compares by memcmp, which the comparison of std::u16string does not. The first unit decides on most texts
/// that differ, without a call.
inline bool Equal(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    return a.empty() || a.data() == b.data() ||
           (a[0] == b[0] && std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0);
}

constexpr bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

/// An order for tables of names: by size, then by memory. No choice of names makes it slow, as it could a
/// hash.
struct LessBySize {
    using is_transparent = void;

    bool operator()(std::u16string_view a, std::u16string_view b) const {
        if (a.size() != b.size()) return a.size() < b.size();
        return Compare(a, b) < 0;
    }

    /// Texts of one size.
    static int Compare(std::u16string_view a, std::u16string_view b) {
        return a.empty() ? 0 : std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t));
    }
};

}  // namespace BxXmlLib5
