#include "platform/Stack.h"

#include <pthread.h>

#include <algorithm>

namespace BxXmlLib5 {

namespace {

/// A stack without a limit would let a recursion without an end take all memory.
constexpr std::uintptr_t kMostStack = 64 * 1024 * 1024;

struct Extent {
    std::uintptr_t lowest = 0;
    std::uintptr_t end = 0;
};

/// Empty, but no longer as it was made, if the system does not tell.
Extent ExtentOfStack() {
    constexpr Extent kUnknown{1, 1};
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return kUnknown;
    void* start = nullptr;
    std::size_t size = 0;
    int const failure = pthread_attr_getstack(&attributes, &start, &size);
    pthread_attr_destroy(&attributes);
    if (failure != 0) return kUnknown;
    auto const lowest = reinterpret_cast<std::uintptr_t>(start);
    return {lowest + size - std::min(size, kMostStack), lowest + size};
}

constinit thread_local Extent t_stack;  // asked for once: for the first thread that is slow

}  // namespace

std::optional<std::size_t> StackLeft() {
    Extent& stack = t_stack;
    if (stack.end == 0) stack = ExtentOfStack();
    std::uintptr_t const here = StackAddress();
    if (here < stack.lowest || here >= stack.end) return std::nullopt;
    return here - stack.lowest;
}

}  // namespace BxXmlLib5
