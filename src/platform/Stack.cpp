#include "platform/Stack.h"

#include <pthread.h>

#include <algorithm>

namespace BxXmlLib5 {

namespace {

/// A stack without a limit would let a recursion without an end take all memory.
constexpr std::uintptr_t kMostStack = 64 * 1024 * 1024;

/// Of no address, but no longer as it was made, if the system does not tell.
StackExtent ExtentOfStack() {
    constexpr StackExtent kUnknown{1, 0};
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return kUnknown;
    void* start = nullptr;
    std::size_t size = 0;
    int const failure = pthread_attr_getstack(&attributes, &start, &size);
    pthread_attr_destroy(&attributes);
    if (failure != 0) return kUnknown;
    std::size_t const most = std::min(size, kMostStack);
    return {reinterpret_cast<std::uintptr_t>(start) + size - most, most};
}

}  // namespace

constinit thread_local StackExtent t_stackExtent;

std::optional<std::size_t> AskForStackLeft() {
    if (t_stackExtent.m_lowest == 0) t_stackExtent = ExtentOfStack();  // for the first thread that is slow
    std::uintptr_t const left = StackAddress() - t_stackExtent.m_lowest;
    return left < t_stackExtent.m_size ? std::optional(left) : std::nullopt;
}

}  // namespace BxXmlLib5
