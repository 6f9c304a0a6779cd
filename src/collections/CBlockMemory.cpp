#include "collections/CBlockMemory.h"

#include <algorithm>
#include <atomic>
#include <new>

namespace BxXmlLib5 {

namespace {

constexpr std::size_t kFirst = 192;          // an element without attributes and children
constexpr std::size_t kLargest = 64 * 1024;  // smaller ones keep the allocator busy when a tree dies

/// Stands for all pieces that the owner may still take from its block.
constexpr int kOwner = 1 << 30;

}  // namespace

struct CBlockMemory::Block {
    std::atomic<int> m_holders = kOwner;

    void Drop(int holders) {
        if (m_holders.fetch_sub(holders, std::memory_order_acq_rel) == holders) ::operator delete(this);
    }
};

CBlockMemory::~CBlockMemory() {
    LeaveBlock();
}

void* CBlockMemory::Take(std::size_t octets) {
    // Each piece stands behind a pointer to its block.
    std::size_t const size =
        sizeof(Block*) + (octets + alignof(Block*) - 1) / alignof(Block*) * alignof(Block*);
    if (m_size - m_used < size) {
        std::size_t const next = std::max(size + sizeof(Block*), std::clamp(m_size * 2, kFirst, kLargest));
        void* const memory = ::operator new(next);
        LeaveBlock();
        m_block = new (memory) Block;
        m_size = next;
        m_used = sizeof(Block*);
    }
    char* const start = reinterpret_cast<char*>(m_block) + m_used;
    m_used += size;
    ++m_pieces;
    new (start) Block*(m_block);
    return start + sizeof(Block*);
}

void CBlockMemory::GiveBack(void* piece) {
    static_cast<Block**>(piece)[-1]->Drop(1);
}

void CBlockMemory::LeaveBlock() {
    if (m_block != nullptr) m_block->Drop(kOwner - m_pieces);
    m_pieces = 0;
}

}  // namespace BxXmlLib5
