// A large page of memory, in blocks.
#pragma once

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "platform/LargePages.h"

namespace BxXmlLib5 {

/// A large page that is taken block by block. It goes when all of them were dropped, by whichever threads. Where few
/// are left, these alone keep their memory.
class CBlockPage {
public:
    static constexpr std::size_t kBlock = 64 * 1024;

    /// @throws std::bad_alloc
    CBlockPage() : m_memory(static_cast<char*>(TakeLargePage())) {}
    CBlockPage(CBlockPage const&) = delete;
    CBlockPage& operator=(CBlockPage const&) = delete;

    /// Whoever took the last block, or calls Leave(), does not know the page any longer.
    bool HasBlocks() const { return m_taken < kBlocks; }
    void* Take() { return m_memory + kBlock * m_taken++; }
    /// No more of the blocks that there are will be taken.
    void Leave() {
        GiveBack(kAll << m_taken);
        Drop(kAll << m_taken);
    }

    void Drop(void* block) {
        Drop(1U << static_cast<std::size_t>(static_cast<char*>(block) - m_memory) / kBlock);
    }

private:
    using Blocks = std::uint32_t;  // a bit for each

    static constexpr std::size_t kBlocks = kLargePage / kBlock;
    static constexpr Blocks kAll = ~Blocks{0};
    static_assert(kBlocks == 32);

    /// To give back a part takes more time than the whole, which is what comes next where all die together.
    static constexpr int kFew = 4;

    ~CBlockPage() { GiveBackLargePage(m_memory); }

    void Drop(Blocks blocks) {
        // Ahead of the step that lets others delete the page.
        Blocks const dropped = m_dropped.load(std::memory_order_acquire) | blocks;
        if (dropped != kAll && std::popcount(~dropped) <= kFew) GiveBack(dropped);
        if ((m_dropped.fetch_or(blocks, std::memory_order_acq_rel) | blocks) == kAll) delete this;
    }

    void GiveBack(Blocks blocks) {
        while (blocks != 0) {
            int const first = std::countr_zero(blocks);
            int const count = std::countr_one(blocks >> first);
            GiveBackPart(m_memory + kBlock * static_cast<std::size_t>(first),
                         kBlock * static_cast<std::size_t>(count));
            blocks &= blocks + (Blocks{1} << first);  // which clears these
        }
    }

    char* const m_memory;
    std::size_t m_taken = 0;
    std::atomic<Blocks> m_dropped = 0;
};

}  // namespace BxXmlLib5
