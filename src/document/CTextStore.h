// Storage for the texts of a tree.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace BxXmlLib5 {

/// Texts that die together. Their addresses stay.
class CTextStore {
public:
    /// A copy of the text, which lives until Clear().
    std::u16string_view Add(std::u16string_view text);

    /// Room for a text that is still to be made, of at most so many units. It lasts until the next call.
    char16_t* Reserve(std::size_t size);
    /// The text that was made in that room, which lives until Clear().
    std::u16string_view Keep(std::size_t size);

    void Clear();
    /// The same, but the last block is kept for the texts that come next.
    void Empty();

private:
    std::vector<std::unique_ptr<char16_t[]>> m_blocks;
    std::unique_ptr<char16_t[]> m_largeRoom;  // that Reserve gave outside of a block
    std::size_t m_current = 0;                // the block that m_next is in
    char16_t* m_next = nullptr;
    std::size_t m_left = 0;
    std::size_t m_blockSize = 0;
};

}  // namespace BxXmlLib5
