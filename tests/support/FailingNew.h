// Allocations that fail on demand. One source of a program includes this: it replaces the global operator
// new.
#pragma once

#include <cstdlib>
#include <new>

namespace BxTest {

/// How many allocations of this thread succeed before they fail; none fails below 0.
inline thread_local int t_allocationsLeft = -1;

}  // namespace BxTest

// Not inlined: the compiler would find a free() for what came from new.
[[gnu::noinline]] void* operator new(std::size_t size) {
    int& left = BxTest::t_allocationsLeft;
    if (left == 0) throw std::bad_alloc();
    if (left > 0) --left;
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
