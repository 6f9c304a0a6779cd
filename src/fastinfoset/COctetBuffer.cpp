#include "fastinfoset/COctetBuffer.h"

#include <algorithm>
#include <utility>

namespace BxXmlLib5 {

namespace {

constexpr std::size_t kLeastCapacity = 256;

}  // namespace

void COctetBuffer::Grow(std::size_t count) {
    std::size_t const capacity = std::max({kLeastCapacity, m_size + count, 2 * m_size});
    auto octets = std::make_unique_for_overwrite<unsigned char[]>(capacity);
    std::copy_n(m_octets.get(), m_size, octets.get());
    m_octets = std::move(octets);
    m_capacity = capacity;
}

CBinaryData COctetBuffer::Take() {
    if (m_size == 0) return {};
    m_capacity = 0;
    return {std::move(m_octets), std::exchange(m_size, 0)};
}

}  // namespace BxXmlLib5
