// The octets of a Fast Infoset document, on their way into the reader.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "document/COctetSource.h"
#include "fastinfoset/IntegerForms.h"

namespace BxXmlLib5::FastInfoset {

/// Octets that are read once, from start to end: of one piece of memory, or of a source. Each read is tested
/// against what is left.
class COctetReader {
public:
    COctetReader() = default;
    explicit COctetReader(std::span<unsigned char const> octets) { Start(octets); }

    /// Begins anew, with other octets.
    void Start(std::span<unsigned char const> octets) {
        m_left = octets;
        m_source = nullptr;
        m_received = octets.size();
    }
    /// The same.
    /// @param source outlives the reader
    void Start(COctetSource& source) {
        m_left = {};
        m_source = &source;
        m_received = 0;
    }

    /// The next octets, which last until the next call.
    /// @throws CBxException if there are not so many, or more than a source may give at once
    std::span<unsigned char const> ReadOctets(std::uint64_t count) {
        if (count > m_left.size()) Refill(count);
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

    /// Whether no octet is left.
    bool IsAtEnd() { return m_left.empty() && !Fill(1); }

    /// How many octets came so far, and how many of them were read.
    std::uint64_t Received() const { return m_received; }
    std::uint64_t Position() const { return m_received - m_left.size(); }

private:
    void Refill(std::uint64_t count);
    bool Fill(std::size_t count);

    std::span<unsigned char const> m_left;
    COctetSource* m_source = nullptr;
    std::vector<unsigned char> m_buffer;
    std::uint64_t m_received = 0;
};

}  // namespace BxXmlLib5::FastInfoset
