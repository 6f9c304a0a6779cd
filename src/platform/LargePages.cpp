#include "platform/LargePages.h"

#include <sys/mman.h>

#include <cerrno>
#include <cstdint>
#include <new>

// There in a process with a sanitizer that looks for leaks, which knows no memory but the allocator's.
// NOLINTBEGIN(bugprone-reserved-identifier): the names are the sanitizer's
extern "C" void __lsan_register_root_region(void const* memory, std::size_t octets) __attribute__((weak));
extern "C" void __lsan_unregister_root_region(void const* memory, std::size_t octets) __attribute__((weak));
// NOLINTEND(bugprone-reserved-identifier)

namespace BxXmlLib5 {

namespace {

void Advise([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t octets,
            [[maybe_unused]] int advice) noexcept {
    int const before = errno;
    madvise(memory, octets, advice);
    errno = before;
}

/// The octets from there to where a large page may begin.
std::size_t AheadOfLargePage(void const* memory) noexcept {
    return -reinterpret_cast<std::uintptr_t>(memory) % kLargePage;
}

}  // namespace

void PreferLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t octets) noexcept {
#ifdef MADV_HUGEPAGE
    Advise(memory, octets, MADV_HUGEPAGE);
#endif
}

void PreferLargePagesWithin(void* memory, std::size_t octets) noexcept {
    std::size_t const ahead = AheadOfLargePage(memory);
    if (octets < ahead + kLargePage) return;
    PreferLargePages(static_cast<char*>(memory) + ahead, (octets - ahead) / kLargePage * kLargePage);
}

void* TakeLargePage() {
    // Twice of it has one that begins where it should.
    void* const memory =
        mmap(nullptr, 2 * kLargePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    auto* const start = static_cast<char*>(memory);
    std::size_t const ahead = AheadOfLargePage(start);
    if (ahead > 0) munmap(start, ahead);
    munmap(start + ahead + kLargePage, kLargePage - ahead);
    void* const page = start + ahead;
    PreferLargePages(page, kLargePage);
    if (__lsan_register_root_region != nullptr) __lsan_register_root_region(page, kLargePage);
    return page;
}

void GiveBackLargePage(void* page) noexcept {
    if (__lsan_unregister_root_region != nullptr) __lsan_unregister_root_region(page, kLargePage);
    munmap(page, kLargePage);
}

void GiveBackPart(void* memory, std::size_t octets) noexcept {
    Advise(memory, octets, MADV_DONTNEED);
}

}  // namespace BxXmlLib5
