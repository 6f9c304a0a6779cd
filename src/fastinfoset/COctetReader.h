// The octets of a Fast Infoset document, on their way into the reader.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "BxXmlLib5/core/CBxException.h"
#include "fastinfoset/IntegerForms.h"

namespace BxXmlLib5::FastInfoset {

/// Octets that are read once, from start to end. Each read is tested against what is left.
class COctetReader {
public:
    COctetReader() = default;
    explicit COctetReader(std::span<unsigned char const> octets) : m_left(octets) {}

    /// Begins anew, with other octets.
    void Start(std::span<unsigned char const> octets) { m_left = octets; }

    /// The next octets.
    /// @throws CBxException if there are not so many
    std::span<unsigned char const> ReadOctets(std::uint64_t count) {
        if (count > m_left.size()) {
            throw CBxException(u"Failed to parse FastInfoset. Unexpected End of File.");
        }
        auto const octets = m_left.first(static_cast<std::size_t>(count));
        m_left = m_left.subspan(octets.size());
        return octets;
    }

    unsigned char ReadOctet() { return ReadOctets(1).front(); }

    /// An integer of a kind.
    /// @param first the octet in which it starts, which has been read; bits ahead of it do not count
    /// @return 0 if it is in none of the forms
    /// @throws CBxException if the octets end inside it
    template <std::size_t kCount>
    std::uint64_t ReadInteger(unsigned char first, IntegerForms<kCount> const& forms) {
        for (IntegerForm const& form : forms) {
            if (!form.Matches(first)) continue;
            std::uint64_t value = first & form.m_valueMask;
            for (int i = 0; i < form.m_moreOctets; ++i) value = value << 8 | ReadOctet();
            return value + form.m_base;
        }
        return 0;
    }

private:
    std::span<unsigned char const> m_left;
};

}  // namespace BxXmlLib5::FastInfoset
