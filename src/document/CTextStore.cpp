#include "document/CTextStore.h"

#include <algorithm>

namespace BxXmlLib5 {

std::u16string_view CTextStore::Add(std::u16string_view text) {
    char16_t* const copy = Allocate(text.size());
    std::copy(text.begin(), text.end(), copy);
    return {copy, text.size()};
}

void CTextStore::Clear() {
    m_blocks.clear();
    m_next = nullptr;
    m_left = 0;
    m_blockSize = 0;
}

char16_t* CTextStore::Allocate(std::size_t size) {
    if (size > m_left) {
        // Blocks grow, so that a small document stays small. A text that would fill half a block gets one of
        // its own.
        constexpr std::size_t kFirst = 256;
        constexpr std::size_t kLargest = 128 * 1024;
        m_blockSize = std::clamp(m_blockSize * 2, kFirst, kLargest);
        bool const isLarge = size > m_blockSize / 2;
        m_blocks.push_back(std::make_unique_for_overwrite<char16_t[]>(isLarge ? size : m_blockSize));
        if (isLarge) return m_blocks.back().get();
        m_next = m_blocks.back().get();
        m_left = m_blockSize;
    }
    char16_t* const allocated = m_next;
    m_next += size;
    m_left -= size;
    return allocated;
}

}  // namespace BxXmlLib5
