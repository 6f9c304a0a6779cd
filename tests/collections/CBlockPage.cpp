#include "collections/CBlockPage.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "support/Expect.h"

using BxXmlLib5::CBlockPage;

namespace {

constexpr int kBlocks = 32;

bool IsInMemory(void* block) {
    std::vector<unsigned char> pages(CBlockPage::kBlock / 4096);
    EXPECT_EQ(mincore(block, CBlockPage::kBlock, pages.data()), 0);
    return std::ranges::any_of(pages, [](unsigned char page) { return (page & 1) != 0; });
}

std::vector<void*> Taken(CBlockPage& page, int count) {
    std::vector<void*> blocks;
    for (; count > 0; --count) {
        EXPECT_TRUE(page.HasBlocks());
        blocks.push_back(page.Take());
        std::memset(blocks.back(), static_cast<int>(blocks.size()), CBlockPage::kBlock);
    }
    return blocks;
}

}  // namespace

TEST(CBlockPage, FewBlocksThatAreLeftAloneKeepTheirMemory) {
    auto* const page = new CBlockPage;
    std::vector<void*> const blocks = Taken(*page, kBlocks);
    EXPECT_FALSE(page->HasBlocks());
    constexpr int kLeft[] = {0, 7, 31};
    auto const isLeft = [&](int i) { return std::ranges::find(kLeft, i) != std::end(kLeft); };
    for (int i = 0; i < kBlocks; ++i) {
        if (!isLeft(i)) page->Drop(blocks[static_cast<std::size_t>(i)]);
    }
    for (int i = 0; i < kBlocks; ++i) {
        auto* const block = static_cast<unsigned char*>(blocks[static_cast<std::size_t>(i)]);
        EXPECT_EQ(IsInMemory(block), isLeft(i)) << i;
        if (!isLeft(i)) continue;
        EXPECT_TRUE(
            std::all_of(block, block + CBlockPage::kBlock, [i](int octet) { return octet == i + 1; }));
    }
    for (int const i : kLeft) page->Drop(blocks[static_cast<std::size_t>(i)]);
}

TEST(CBlockPage, WhatIsNotTakenIsGivenBack) {
    auto* const page = new CBlockPage;
    std::vector<void*> const blocks = Taken(*page, 8);
    char* const end = static_cast<char*>(blocks.back()) + CBlockPage::kBlock;
    page->Leave();
    for (void* const block : blocks) EXPECT_TRUE(IsInMemory(block));
    EXPECT_FALSE(IsInMemory(end));
    for (void* const block : blocks) page->Drop(block);
}
