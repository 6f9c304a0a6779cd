#include "platform/KeyedHash.h"

#include <unistd.h>

#include <bit>
#include <chrono>
#include <cstring>

#include "platform/Stack.h"

namespace BxXmlLib5 {

namespace {

struct Key {
    std::uint64_t m_low;
    std::uint64_t m_high;
};

Key DrawKey() {
    Key key;
    if (getentropy(&key, sizeof key) == 0) return key;
    // A system that gives none still has a clock, and puts its stacks where it likes.
    return {static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()),
            StackAddress()};
}

struct State {
    std::uint64_t a, b, c, d;

    void Round() {
        a += b;
        b = std::rotl(b, 13) ^ a;
        a = std::rotl(a, 32);
        c += d;
        d = std::rotl(d, 16) ^ c;
        a += d;
        d = std::rotl(d, 21) ^ a;
        c += b;
        b = std::rotl(b, 17) ^ c;
        c = std::rotl(c, 32);
    }
    void Take(std::uint64_t word) {
        d ^= word;
        Round();
        a ^= word;
    }
};

}  // namespace

std::uint64_t KeyedHash(void const* octets, std::size_t size) {
    static Key const s_key = DrawKey();
    State state{s_key.m_low ^ 0x736f6d6570736575, s_key.m_high ^ 0x646f72616e646f6d,
                s_key.m_low ^ 0x6c7967656e657261, s_key.m_high ^ 0x7465646279746573};
    auto const* next = static_cast<unsigned char const*>(octets);
    std::size_t left = size;
    for (; left >= sizeof(std::uint64_t); left -= sizeof(std::uint64_t), next += sizeof(std::uint64_t)) {
        std::uint64_t word;
        std::memcpy(&word, next, sizeof word);
        state.Take(word);
    }
    std::uint64_t last = static_cast<std::uint64_t>(size) << 56;
    for (std::size_t i = 0; i < left; ++i) last |= static_cast<std::uint64_t>(next[i]) << 8 * i;
    state.Take(last);
    state.c ^= 0xff;
    for (int i = 0; i < 3; ++i) state.Round();
    return state.a ^ state.b ^ state.c ^ state.d;
}

}  // namespace BxXmlLib5
