// Octets as tests write them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace BxTest {

using Octets = std::vector<unsigned char>;

/// Pairs of hexadecimal digits and texts 'in quotes', with blanks wherever they help.
inline Octets FromHex(std::string const& notation) {
    Octets octets;
    for (std::size_t at = 0; at < notation.size();) {
        if (notation[at] == '\'') {
            std::size_t const end = notation.find('\'', ++at);
            octets.insert(octets.end(), &notation[at], &notation[end]);
            at = end + 1;
        } else if (notation[at] == ' ') {
            ++at;
        } else {
            octets.push_back(static_cast<unsigned char>(std::stoul(notation.substr(at, 2), nullptr, 16)));
            at += 2;
        }
    }
    return octets;
}

/// Pairs of hexadecimal digits, each followed by a blank.
template <class Container>
std::string ToHex(Container const& octets) {
    constexpr char const* kDigits = "0123456789ABCDEF";
    std::string text;
    for (auto const octet : octets) {
        auto const value = static_cast<unsigned char>(octet);
        text += {kDigits[value >> 4], kDigits[value & 0xF], ' '};
    }
    return text;
}

}  // namespace BxTest
