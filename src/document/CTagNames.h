// The names of elements by what their tags say.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace BxXmlLib5 {

struct CXmlName;

/// Recalls the names of elements by the octets of their tags, of which there are fewer than an expanded name has units.
/// They mean the same as long as no declaration of a namespace begins or ends.
class CTagNames {
public:
    struct Entry {
        std::array<std::uint64_t, 2> m_octets{};
        std::uint64_t m_age = 0;
        CXmlName const* m_name = nullptr;
    };

    /// @param input from the < of a tag on, in an encoding that is ASCII as far as ASCII goes
    /// @return the entry of the name, which is null in there if it is not known, and is to be put there then; or null,
    ///         if there is no entry for such a name
    Entry* Find(std::string_view input) {
        Octets const octets = NameIn(input);
        if (octets[0] == 0) return nullptr;
        Entry& entry = m_entries[((octets[0] ^ octets[1]) * 0x9E37'79B9'7F4A'7C15) >> (64 - kBits)];
        if (entry.m_octets != octets || entry.m_age != m_age) entry = {octets, m_age};
        return &entry;
    }

    void Forget() { ++m_age; }

private:
    using Octets = std::array<std::uint64_t, 2>;
    static constexpr unsigned kBits = 5;

    /// The name of at most 16 octets behind the <, with zeros behind it; nothing but zeros if there is none.
    static Octets NameIn(std::string_view input) {
        Octets octets{};
        if (std::endian::native != std::endian::little || input.size() <= sizeof octets || input[0] != '<')
            return {};
        std::memcpy(&octets, input.data() + 1, sizeof octets);
        std::uint64_t const end = EndsIn(octets[0]);
        if (end != 0) return {Until(octets[0], end), 0};
        std::uint64_t const secondEnd = EndsIn(octets[1]);
        return secondEnd == 0 ? Octets() : Octets{octets[0], Until(octets[1], secondEnd)};
    }

    /// The highest bit of the first octet that ends a name, and some of those behind it.
    static std::uint64_t EndsIn(std::uint64_t octets) {
        constexpr std::uint64_t kEach = 0x0101'0101'0101'0101;
        std::uint64_t const slash = octets ^ (kEach * '/'), greater = octets ^ (kEach * '>');
        return (((octets - kEach * 0x21) & ~octets) | ((slash - kEach) & ~slash) |
                ((greater - kEach) & ~greater)) &
               (kEach * 0x80);
    }

    static std::uint64_t Until(std::uint64_t octets, std::uint64_t end) {
        return octets & ((end & -end) / 0x80 - 1);
    }

    std::array<Entry, 1 << kBits> m_entries;
    std::uint64_t m_age = 1;
};

}  // namespace BxXmlLib5
