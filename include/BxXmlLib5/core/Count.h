// Counts that several threads may share.
#pragma once

#include <atomic>

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

namespace BxXmlLib5 {

/// Whether the process has no other thread, as far as the C library tells. It is always true when it says so.
inline bool IsSingleThreaded() noexcept {
#if __has_include(<sys/single_threaded.h>)
    return __libc_single_threaded != 0;
#else
    return false;
#endif
}

/// Adds to a count, as fetch_add() does; but for the only thread it needs no locked step, which takes several times
/// as long.
/// @return what it was before
template <class T>
T AddToCount(std::atomic<T>& count, T by, std::memory_order order) noexcept {
    if (!IsSingleThreaded()) return count.fetch_add(by, order);
    T const before = count.load(std::memory_order_relaxed);
    count.store(static_cast<T>(before + by), std::memory_order_relaxed);
    return before;
}

}  // namespace BxXmlLib5
