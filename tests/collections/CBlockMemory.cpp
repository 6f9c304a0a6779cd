#include "collections/CBlockMemory.h"

#include <cstring>
#include <random>
#include <thread>
#include <vector>

#include "support/Expect.h"

using BxXmlLib5::CBlockMemory;

TEST(CBlockMemory, PiecesStandApartAndMayOutliveIt) {
    struct Piece {
        unsigned char* m_octets;
        std::size_t m_size;
        unsigned char m_mark;
    };
    std::mt19937 random(5);
    std::vector<Piece> pieces;
    auto const giveBack = [&](std::size_t at) {
        Piece const piece = pieces[at];
        for (std::size_t i = 0; i < piece.m_size; ++i) ASSERT_EQ(piece.m_octets[i], piece.m_mark);
        CBlockMemory::GiveBack(piece.m_octets);
        pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(at));
    };
    for (int round = 0; round < 5; ++round) {
        CBlockMemory memory;
        for (int i = 0; i < 500; ++i) {
            std::size_t const size = random() % 8 == 0 ? random() % 70'000 : 1 + random() % 200;
            Piece const piece{static_cast<unsigned char*>(memory.Take(size)), size,
                              static_cast<unsigned char>(random())};
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece.m_octets) % alignof(void*), 0U);
            std::memset(piece.m_octets, piece.m_mark, size);
            pieces.push_back(piece);
            if (random() % 2 == 0) giveBack(random() % pieces.size());
        }
    }
    // By several threads.
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < 4; ++t) {
        threads.emplace_back([&pieces, t] {
            for (std::size_t i = t; i < pieces.size(); i += 4) CBlockMemory::GiveBack(pieces[i].m_octets);
        });
    }
    for (std::thread& thread : threads) thread.join();
}
