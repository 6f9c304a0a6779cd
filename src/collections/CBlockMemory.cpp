#include "collections/CBlockMemory.h"

#include <algorithm>
#include <atomic>
#include <new>

#include "BxXmlLib5/core/Count.h"
#include "collections/CBlockPage.h"

namespace BxXmlLib5 {

namespace {

constexpr std::size_t kFirst = 192;                   // an element without attributes and children
constexpr std::size_t kLargest = CBlockPage::kBlock;  // smaller ones keep the allocator busy when a tree dies

/// So much is taken from the allocator before there are large pages: a small document stays small.
constexpr std::size_t kMostSmall = 1024 * 1024;

/// Stands for all pieces that the owner may still take from its block.
constexpr int kOwner = 1 << 30;

}  // namespace

struct CBlockMemory::Block {
    explicit Block(CBlockPage* page) : m_page(page) {}

    void Drop(int holders) {
        if (AddToCount(m_holders, -holders, std::memory_order_acq_rel) != holders) return;
        m_page == nullptr ? ::operator delete(this) : m_page->Drop(this);
    }

    std::atomic<int> m_holders = kOwner;
    CBlockPage* const m_page;  // that the block is of, null if it is the allocator's
};

CBlockMemory::~CBlockMemory() {
    LeaveBlock();
    if (m_page != nullptr) m_page->Leave();
}

void* CBlockMemory::Take(std::size_t octets) {
    // Each piece stands behind a pointer to its block.
    std::size_t const size =
        sizeof(Block*) + (octets + alignof(Block*) - 1) / alignof(Block*) * alignof(Block*);
    if (m_size - m_used < size) {
        std::size_t const next = std::max(size + sizeof(Block), std::clamp(m_size * 2, kFirst, kLargest));
        EnterBlock(next);
    }
    char* const start = reinterpret_cast<char*>(m_block) + m_used;
    m_used += size;
    ++m_pieces;
    new (start) Block*(m_block);
    return start + sizeof(Block*);
}

void CBlockMemory::EnterBlock(std::size_t size) {
    bool const isOfPage = size == kLargest && m_small >= kMostSmall;
    if (isOfPage && m_page == nullptr) m_page = new CBlockPage;
    void* const memory = isOfPage ? m_page->Take() : ::operator new(size);
    if (!isOfPage) m_small += size;
    LeaveBlock();
    m_block = new (memory) Block(isOfPage ? m_page : nullptr);
    if (isOfPage && !m_page->HasBlocks()) m_page = nullptr;
    m_size = size;
    m_used = sizeof(Block);
}

void CBlockMemory::GiveBack(void* piece) {
    static_cast<Block**>(piece)[-1]->Drop(1);
}

void CBlockMemory::LeaveBlock() {
    if (m_block != nullptr) m_block->Drop(kOwner - m_pieces);
    m_pieces = 0;
}

}  // namespace BxXmlLib5
