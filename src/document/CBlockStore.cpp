#include "document/CBlockStore.h"

#include <algorithm>
#include <cstddef>
#include <new>

#include "platform/LargePages.h"

namespace BxXmlLib5 {

namespace {

/// Chunks grow, since what is between two of them is no large page. What is not used of one takes no memory.
constexpr std::size_t kLargestChunk = 8 * kLargePage;

/// Behind a chunk, for what the allocator writes there: a small page that is in use keeps a large one from being had.
constexpr std::size_t kSmallPage = 4096;

}  // namespace

void CBlockStore::Add(void* memory) {
    if (memory == nullptr) throw std::bad_alloc();
    m_memory.emplace_back(static_cast<std::byte*>(memory));
}

void* CBlockStore::Allocate(std::size_t octets) {
    if (m_memory.size() == m_memory.capacity()) m_memory.reserve(2 * m_memory.size() + 8);
    if (m_small < kMostSmall || octets > kLargest) {
        Add(std::malloc(octets));
        m_small += octets;
        return m_memory.back().get();
    }
    constexpr std::size_t kAlignment = alignof(std::max_align_t);
    octets = (octets + kAlignment - 1) / kAlignment * kAlignment;
    if (octets > m_left) {
        m_chunk = std::clamp(2 * m_chunk, kLargePage, kLargestChunk);
        void* chunk = nullptr;
        Add(posix_memalign(&chunk, kLargePage, m_chunk + kSmallPage) == 0 ? chunk : nullptr);
        m_next = m_memory.back().get();
        m_left = m_chunk;
        PreferLargePages(m_next, m_chunk);
    }
    std::byte* const block = m_next;
    m_next += octets;
    m_left -= octets;
    return block;
}

void CBlockStore::Clear() {
    m_memory.clear();
    m_next = nullptr;
    m_left = 0;
    m_chunk = 0;
    m_small = 0;
}

}  // namespace BxXmlLib5
