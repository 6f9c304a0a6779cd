// Memory for many small objects that are made together.
#pragma once

#include <cstddef>

namespace BxXmlLib5 {

class CBlockPage;

/// Takes memory in blocks and hands it out in pieces. A block goes when all of its pieces were given back, by
/// whichever threads; the pieces may outlive this object. Blocks grow with what is taken, to 64 KiB; where there are
/// many, they are cut from large pages.
class CBlockMemory {
public:
    CBlockMemory() = default;
    CBlockMemory(CBlockMemory const&) = delete;
    CBlockMemory& operator=(CBlockMemory const&) = delete;
    ~CBlockMemory();

    /// A piece, aligned for pointers.
    void* Take(std::size_t octets);
    static void GiveBack(void* piece);

private:
    struct Block;

    void EnterBlock(std::size_t size);
    void LeaveBlock();

    Block* m_block = nullptr;
    std::size_t m_size = 0;  // of the block
    std::size_t m_used = 0;
    int m_pieces = 0;
    CBlockPage* m_page = nullptr;  // that has more blocks
    std::size_t m_small = 0;       // octets of blocks that are the allocator's
};

/// A base of classes whose objects lie in such memory.
class CInBlockMemory {
public:
    static void* operator new(std::size_t size, CBlockMemory& memory) { return memory.Take(size); }
    static void operator delete(void* object, CBlockMemory&) { CBlockMemory::GiveBack(object); }
    static void operator delete(void* object) { CBlockMemory::GiveBack(object); }
};

}  // namespace BxXmlLib5
