#include "generated/PropertySet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <set>

namespace {

using BxXmlLib5::Generated::PropertySet;
using Model = std::set<std::size_t>;

TEST(PropertySet, IsAsASetOfNumbers) {
    std::minstd_rand random;
    for (int round = 0; round < 2000; ++round) {
        PropertySet sets[3];
        Model models[3];
        for (int i = 0; i < 3; ++i) {
            std::size_t const end = std::size_t{1} << random() % 9;
            for (std::size_t count = random() % 8; count > 0; --count) {
                std::size_t const index = random() % end;
                sets[i].Add(index);
                models[i].insert(index);
            }
        }
        Model const& first = models[0];
        Model const& other = models[1];
        auto const isShared = [&](std::size_t index) { return other.contains(index); };
        EXPECT_EQ(sets[0].Meets(sets[1]), std::ranges::any_of(first, isShared));
        EXPECT_EQ(sets[0].SharesOnly(sets[1], sets[2]), std::ranges::all_of(first, [&](std::size_t index) {
                      return !isShared(index) || models[2].contains(index);
                  }));
        sets[0].Add(sets[1]);
        for (std::size_t index = 0; index < 256; ++index)
            EXPECT_EQ(sets[0].Has(index), first.contains(index) || isShared(index)) << index;
    }
}

}  // namespace
