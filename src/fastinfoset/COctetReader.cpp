#include "fastinfoset/COctetReader.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"

namespace BxXmlLib5::FastInfoset {

void COctetReader::Refill(std::uint64_t count) {
    if (m_source != nullptr && count > kMaxOctetsOfToken) {
        throw CBxException(FormatString(
            u"Failed to parse FastInfoset. A string has more than %d octets, which is the limit.",
            static_cast<int>(kMaxOctetsOfToken)));
    }
    if (!Fill(static_cast<std::size_t>(count))) {
        throw CBxException(u"Failed to parse FastInfoset. Unexpected End of File.");
    }
}

/// Gets so many octets from the source, what is left included. The buffer grows as they come, not as they are
/// announced.
/// @return false if there are less
bool COctetReader::Fill(std::size_t count) {
    if (m_source == nullptr) return false;
    constexpr std::size_t kSlice = 64 * 1024;
    if (m_buffer.empty()) m_buffer.resize(kSlice);
    std::ranges::copy(m_left, m_buffer.begin());
    std::size_t size = m_left.size();
    while (size < count) {
        if (size == m_buffer.size()) m_buffer.resize(2 * size);
        std::size_t const more = m_source->Read(std::span(m_buffer).subspan(size));
        if (more == 0) break;
        size += more;
        m_received += more;
    }
    m_left = std::span(m_buffer).first(size);
    return size >= count;
}

}  // namespace BxXmlLib5::FastInfoset
