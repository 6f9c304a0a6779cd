// Storage for the texts of a tree.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
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

    /// A text that comes in parts, and lies in the store from the first one on. Nothing else may be added until it
    /// is closed.
    /// @return false, with nothing done, if there is no room for the part behind the others
    bool Append(std::u16string_view part) {
        if (part.size() > m_left - m_openSize) return false;
        std::copy_n(part.data(), part.size(), m_next + m_openSize);
        m_openSize += part.size();
        return true;
    }
    /// @return the text of the parts, empty if there are none, which lives until Clear()
    std::u16string_view Close() {
        std::u16string_view const text = TakeBack();
        m_next += text.size();
        m_left -= text.size();
        return text;
    }
    /// @return the same, but it lasts until the next call
    std::u16string_view TakeBack() { return {m_next, std::exchange(m_openSize, 0)}; }

    void Clear();
    /// The same, but the last block is kept for the texts that come next.
    void Empty();

private:
    std::vector<std::unique_ptr<char16_t[]>> m_blocks;
    std::unique_ptr<char16_t[]> m_largeRoom;  // that Reserve gave outside of a block
    std::size_t m_current = 0;                // the block that m_next is in
    char16_t* m_next = nullptr;
    std::size_t m_left = 0;
    std::size_t m_openSize = 0;  // of what was appended, from m_next on
    std::size_t m_blockSize = 0;
};

}  // namespace BxXmlLib5
