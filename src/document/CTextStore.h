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
    void Clear();

private:
    char16_t* Allocate(std::size_t size);

    std::vector<std::unique_ptr<char16_t[]>> m_blocks;
    char16_t* m_next = nullptr;
    std::size_t m_left = 0;
    std::size_t m_blockSize = 0;
};

}  // namespace BxXmlLib5
