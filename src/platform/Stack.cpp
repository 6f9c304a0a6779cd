#include "platform/Stack.h"

#include <pthread.h>

#include <cstdint>
#include <limits>

namespace BxXmlLib5 {

namespace {

struct Extent {
    std::uintptr_t lowest = 0;
    std::size_t size = 0;
};

/// Empty if the system does not tell.
Extent ExtentOfStack() {
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return {};
    void* lowest = nullptr;
    std::size_t size = 0;
    pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    return {reinterpret_cast<std::uintptr_t>(lowest), size};
}

}  // namespace

std::size_t StackLeft() {
    thread_local Extent const stack = ExtentOfStack();  // asking takes the time of some ten matches
    std::size_t const left = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) - stack.lowest;
    return left < stack.size ? left : std::numeric_limits<std::size_t>::max();
}

}  // namespace BxXmlLib5
