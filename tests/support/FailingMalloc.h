// Allocations of the whole process, counted, and failing on demand. One source of a program includes this.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <new>

namespace BxTest {

/// All allocations, those of libraries below too. Under sanitizers, which have malloc() themselves, those of operator
/// new alone.
struct Memory {
    long m_taken = 0;     ///< how often memory was asked for
    long m_alive = 0;     ///< pieces that are not given back
    long m_left = -1;     ///< how many requests succeed before they fail; none fails below 0
    bool m_once = false;  ///< one request fails, not all from there on

    bool Fails() {
        ++m_taken;
        if (m_left != 0) {
            if (m_left > 0) --m_left;
            return false;
        }
        if (m_once) m_left = -1;
        errno = ENOMEM;
        return true;
    }
    void* Took(void* piece) {
        if (piece != nullptr) ++m_alive;
        return piece;
    }
    void Gave(void const* piece) {
        if (piece != nullptr) --m_alive;
    }
};
inline constinit Memory g_memory;

}  // namespace BxTest

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)

// Not inlined: the compiler would find a free() for what came from new.
[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const piece = BxTest::g_memory.Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
    return piece != nullptr ? BxTest::g_memory.Took(piece) : throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* piece) noexcept {
    BxTest::g_memory.Gave(piece);
    std::free(piece);
}
[[gnu::noinline]] void operator delete(void* piece, std::size_t) noexcept {
    operator delete(piece);
}

#else

// What the C library lets a program replace, and what it keeps for who does.
extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
void __libc_free(void*);

void* malloc(std::size_t size) noexcept {
    return BxTest::g_memory.Fails() ? nullptr : BxTest::g_memory.Took(__libc_malloc(size));
}
void* calloc(std::size_t count, std::size_t size) noexcept {
    return BxTest::g_memory.Fails() ? nullptr : BxTest::g_memory.Took(__libc_calloc(count, size));
}
void* realloc(void* piece, std::size_t size) noexcept {
    if (BxTest::g_memory.Fails()) return nullptr;
    void* const next = __libc_realloc(piece, size);
    if (next != nullptr || size == 0) BxTest::g_memory.Gave(piece);
    return BxTest::g_memory.Took(next);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return BxTest::g_memory.Fails() ? nullptr : BxTest::g_memory.Took(__libc_memalign(alignment, size));
}
void free(void* piece) noexcept {
    BxTest::g_memory.Gave(piece);
    __libc_free(piece);
}
}

#endif
