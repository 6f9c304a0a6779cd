#include "platform/KeyedHash.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

using namespace BxXmlLib5;

// The key is drawn anew for each process, so a value cannot be told; that all octets and the size count can.
TEST(KeyedHash, TellsContentsAndSizesApart) {
    std::set<std::uint64_t> hashes;
    std::size_t count = 0;
    auto const add = [&](std::string const& octets) {
        std::uint64_t const hash = KeyedHash(octets.data(), octets.size());
        EXPECT_EQ(hash, KeyedHash(std::string(octets).data(), octets.size()));
        hashes.insert(hash);
        ++count;
    };
    for (std::size_t size = 0; size <= 24; ++size) {
        std::string octets(size, '\0');
        add(octets);
        for (char& octet : octets) {
            for (int bit = 0; bit < 8; ++bit) {
                octet = static_cast<char>(1 << bit);
                add(octets);
            }
            octet = '\0';
        }
    }
    EXPECT_EQ(hashes.size(), count);
}

}  // namespace
