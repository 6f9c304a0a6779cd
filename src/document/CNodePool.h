// Storage for the nodes of a tree.
#pragma once

#include <algorithm>
#include <cstddef>
#include <new>
#include <utility>
#include <vector>

#include "document/CBlockStore.h"

namespace BxXmlLib5 {

/// Objects of one class that die together. Their addresses stay. A tree of them is destroyed by a loop,
/// however deep it is, and costs an allocation for many nodes.
template <class T>
class CNodePool {
public:
    /// @param blocks where the nodes lie; to be cleared only after this pool
    explicit CNodePool(CBlockStore& blocks) : m_store(blocks) {}
    CNodePool(CNodePool const&) = delete;
    CNodePool& operator=(CNodePool const&) = delete;
    ~CNodePool() { Clear(); }

    template <class... Args>
    T* Create(Args&&... args) {
        if (m_next == m_end) EnterBlock(1);
        T* const node = new (m_next) T(std::forward<Args>(args)...);
        ++m_next;
        return node;
    }

    /// @return where the next ones, so many, will lie one behind the other
    T* Reserve(std::size_t count) {
        if (static_cast<std::size_t>(m_end - m_next) < count) EnterBlock(count);
        return m_next;
    }

    /// Destroys the nodes. Their memory is the store's to free.
    void Clear() {
        Empty();
        m_blocks.clear();
    }

    /// Destroys the nodes, and keeps their memory for those that come next.
    void Empty() {
        LeaveBlock();
        for (; m_entered > 0; --m_entered) {
            auto const [nodes, size, used] = m_blocks[m_entered - 1];
            // By its class, so that no virtual destructor is looked up for each.
            for (T* node = nodes; node != nodes + used; ++node) node->T::~T();
        }
    }

private:
    struct Block {
        T* m_nodes;
        std::size_t m_size;
        std::size_t m_used = 0;  // once it is left
    };

    /// @param least of the nodes that it has room for
    void EnterBlock(std::size_t least) {
        LeaveBlock();
        while (m_entered < m_blocks.size() && m_blocks[m_entered].m_size < least)
            m_blocks[m_entered++].m_used = 0;
        if (m_entered == m_blocks.size()) AddBlock(least);
        Block const& block = m_blocks[m_entered++];
        m_next = block.m_nodes;
        m_end = block.m_nodes + block.m_size;
    }

    void LeaveBlock() {
        if (m_next != nullptr) {
            Block& block = m_blocks[m_entered - 1];
            block.m_used = static_cast<std::size_t>(m_next - block.m_nodes);
        }
        m_next = m_end = nullptr;
    }

    /// Blocks grow, so that a small document stays small.
    void AddBlock(std::size_t least) {
        constexpr std::size_t kFirst = 8;
        constexpr std::size_t kLargest = CBlockStore::kLargest / sizeof(T);
        std::size_t const usual = m_blocks.empty() ? kFirst : std::min(m_blocks.back().m_size * 4, kLargest);
        std::size_t const size = std::max(usual, least);
        if (m_blocks.size() == m_blocks.capacity()) m_blocks.reserve(2 * m_blocks.size() + 4);
        m_blocks.push_back({static_cast<T*>(m_store.Allocate(size * sizeof(T))), size});
    }

    CBlockStore& m_store;
    std::vector<Block> m_blocks;
    std::size_t m_entered = 0;  // of the blocks, the last of which may have room from m_next to m_end
    T* m_next = nullptr;
    T* m_end = nullptr;
};

}  // namespace BxXmlLib5
