// Memory for the blocks that a tree lies in.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <vector>

namespace BxXmlLib5 {

/// Blocks that are freed together. Those of a large document come from chunks of large pages, which the kernel
/// gives by one fault where small ones take 512.
class CBlockStore {
public:
    /// The most octets of a block that shares a chunk with others.
    static constexpr std::size_t kLargest = 64 * 1024;

    /// @return memory for objects of any type, until Clear()
    void* Allocate(std::size_t octets);

    void Clear();

    /// Whether there is so little memory that no chunk was needed.
    bool IsSmall() const { return m_small < kMostSmall; }

private:
    /// As many octets as a document has in blocks of their own before it gets chunks: a small one stays small.
    static constexpr std::size_t kMostSmall = 1024 * 1024;

    struct Free {
        void operator()(void* memory) const { std::free(memory); }
    };
    using Memory = std::unique_ptr<std::byte, Free>;

    void Add(void* memory);

    std::vector<Memory> m_memory;
    std::byte* m_next = nullptr;  // in the last chunk
    std::size_t m_left = 0;
    std::size_t m_chunk = 0;  // octets of the last chunk
    std::size_t m_small = 0;  // octets in blocks of their own
};

}  // namespace BxXmlLib5
