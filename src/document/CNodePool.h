// Storage for the nodes of a tree.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
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
        if (m_next == m_end) EnterBlock();
        T* const node = new (m_next) T(std::forward<Args>(args)...);
        ++m_next;
        return node;
    }

    /// Destroys the nodes. Their memory is the store's to free.
    void Clear() {
        Empty();
        m_blocks.clear();
    }

    /// Destroys the nodes, and keeps their memory for those that come next.
    void Empty() {
        for (std::size_t i = 0; i < m_entered; ++i) {
            auto const [nodes, size] = m_blocks[i];
            std::destroy_n(nodes, i + 1 < m_entered ? size : static_cast<std::size_t>(m_next - nodes));
        }
        m_entered = 0;
        m_next = m_end = nullptr;
    }

private:
    struct Block {
        T* m_nodes;
        std::size_t m_size;
    };

    void EnterBlock() {
        if (m_entered == m_blocks.size()) AddBlock();
        auto const [nodes, size] = m_blocks[m_entered++];
        m_next = nodes;
        m_end = nodes + size;
    }

    /// Blocks grow, so that a small document stays small.
    void AddBlock() {
        constexpr std::size_t kFirst = 8;
        constexpr std::size_t kLargest = CBlockStore::kLargest / sizeof(T);
        std::size_t const size = m_blocks.empty() ? kFirst : std::min(m_blocks.back().m_size * 4, kLargest);
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
