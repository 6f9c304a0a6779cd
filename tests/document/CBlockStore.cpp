#include "document/CBlockStore.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <utility>

using BxXmlLib5::CBlockStore;

/// Enough for blocks of their own and for chunks of several sizes; blocks of every alignment and those that end with
/// a chunk. Each is filled with its number, so that two which share an octet show it.
TEST(CBlockStore, GivesBlocksApart) {
    CBlockStore store;
    for (int round = 0; round < 2; ++round) {
        std::vector<std::pair<unsigned char*, std::size_t>> blocks;
        for (std::size_t total = 0; total < 12'000'000; total += blocks.back().second) {
            std::size_t const number = blocks.size();
            std::size_t const size =
                number % 3 == 0 ? CBlockStore::kLargest : 1 + number * 977 % CBlockStore::kLargest;
            auto* const block = static_cast<unsigned char*>(store.Allocate(size));
            ASSERT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0u) << number;
            std::memset(block, static_cast<int>(number % 251), size);
            blocks.emplace_back(block, size);
        }
        for (std::size_t number = 0; number < blocks.size(); ++number) {
            auto const [block, size] = blocks[number];
            ASSERT_EQ(block[0], number % 251);
            ASSERT_EQ(std::memcmp(block, block + 1, size - 1), 0) << number;
        }
        store.Clear();
    }
}
