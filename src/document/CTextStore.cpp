#include "document/CTextStore.h"

#include <algorithm>
#include <utility>

namespace BxXmlLib5 {

std::u16string_view CTextStore::Add(std::u16string_view text) {
    std::copy(text.begin(), text.end(), Reserve(text.size()));
    return Keep(text.size());
}

char16_t* CTextStore::Reserve(std::size_t size) {
    m_largeRoom.reset();
    if (size > m_left) {
        // Blocks grow, so that a small document stays small. A text that would fill half a block gets one of
        // its own.
        constexpr std::size_t kFirst = 256;
        constexpr std::size_t kLargest = 128 * 1024;
        m_blockSize = std::clamp(m_blockSize * 2, kFirst, kLargest);
        if (size > m_blockSize / 2) {
            m_largeRoom = std::make_unique_for_overwrite<char16_t[]>(size);
            return m_largeRoom.get();
        }
        m_blocks.push_back(std::make_unique_for_overwrite<char16_t[]>(m_blockSize));
        m_current = m_blocks.size() - 1;
        m_next = m_blocks.back().get();
        m_left = m_blockSize;
    }
    return m_next;
}

std::u16string_view CTextStore::Keep(std::size_t size) {
    if (m_largeRoom) {
        m_blocks.push_back(std::move(m_largeRoom));
        return {m_blocks.back().get(), size};
    }
    std::u16string_view const text(m_next, size);
    m_next += size;
    m_left -= size;
    return text;
}

void CTextStore::Clear() {
    m_blocks.clear();
    m_largeRoom.reset();
    m_next = nullptr;
    m_left = 0;
    m_openSize = 0;
    m_blockSize = 0;
}

void CTextStore::Empty() {
    if (m_next == nullptr) return Clear();
    if (m_blocks.size() > 1) {
        std::swap(m_blocks[0], m_blocks[m_current]);
        m_blocks.resize(1);
        m_current = 0;
    }
    m_largeRoom.reset();
    m_openSize = 0;
    m_left += static_cast<std::size_t>(m_next - m_blocks[0].get());
    m_next = m_blocks[0].get();
}

}  // namespace BxXmlLib5
