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
        Reserve(1);
        Block& block = m_blocks.back();
        T* const node = new (block.m_nodes + block.m_used) T(std::forward<Args>(args)...);
        ++block.m_used;
        return node;
    }

    /// @return where the next ones, so many, will lie one behind the other
    T* Reserve(std::size_t count) {
        if (m_blocks.empty() || m_blocks.back().m_size - m_blocks.back().m_used < count) AddBlock(count);
        return m_blocks.back().m_nodes + m_blocks.back().m_used;
    }

    /// Destroys the nodes. Their memory is the store's to free.
    void Clear() {
        for (Block& block : m_blocks) {
            // By its class, so that no virtual destructor is looked up for each.
            for (T* node = block.m_nodes; node != block.m_nodes + block.m_used; ++node) node->T::~T();
        }
        m_blocks.clear();
    }

private:
    struct Block {
        T* m_nodes;
        std::size_t m_size;
        std::size_t m_used;
    };

    /// Blocks grow, so that a small document stays small.
    void AddBlock(std::size_t least) {
        constexpr std::size_t kFirst = 8;
        constexpr std::size_t kLargest = CBlockStore::kLargest / sizeof(T);
        std::size_t const usual = m_blocks.empty() ? kFirst : std::min(m_blocks.back().m_size * 4, kLargest);
        std::size_t const size = std::max(usual, least);
        if (m_blocks.size() == m_blocks.capacity()) m_blocks.reserve(2 * m_blocks.size() + 4);
        m_blocks.push_back({static_cast<T*>(m_store.Allocate(size * sizeof(T))), size, 0});
    }

    CBlockStore& m_store;
    std::vector<Block> m_blocks;
};

}  // namespace BxXmlLib5
