// The octets of a document as it grows.
#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "BxXmlLib5/values/CBinaryData.h"

namespace BxXmlLib5 {

class COctetBuffer {
public:
    COctetBuffer() = default;
    COctetBuffer(COctetBuffer const&) = delete;
    COctetBuffer& operator=(COctetBuffer const&) = delete;

    void Append(unsigned octet) { *Extend(1) = static_cast<unsigned char>(octet); }

    /// Adds room at the end.
    /// @return where it begins; the caller fills it before it appends again
    unsigned char* Extend(std::size_t count) {
        if (count > m_capacity - m_size) Grow(count);
        unsigned char* const room = m_octets.get() + m_size;
        m_size += count;
        return room;
    }

    /// Drops what is behind a size that the buffer had.
    void Truncate(std::size_t size) { m_size = size; }

    std::size_t Size() const { return m_size; }
    std::span<unsigned char const> Octets() const { return {m_octets.get(), m_size}; }

    /// The octets, which are gone from the buffer; an object without a holder if there are none.
    CBinaryData Take();

private:
    void Grow(std::size_t count);

    std::unique_ptr<unsigned char[]> m_octets;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};

}  // namespace BxXmlLib5
