// The stack of the calling thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace BxXmlLib5 {

/// Where the stack of the caller stands. Stacks grow downwards.
[[gnu::always_inline]] inline std::uintptr_t StackAddress() {
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
}

/// The addresses of a thread's stack, once they were asked for.
struct StackExtent {
    std::uintptr_t m_lowest = 0;
    std::uintptr_t m_size = 0;
};

// Every level of a recursion looks at it, and this is the model of access that takes no call.
[[gnu::visibility("hidden"),
  gnu::tls_model("initial-exec")]] extern constinit thread_local StackExtent t_stackExtent;

/// Asks the system, the first time.
std::optional<std::size_t> AskForStackLeft();

/// Octets of stack that are left to the caller. Nothing where that is not known, as on a stack that the program
/// made for itself.
inline std::optional<std::size_t> StackLeft() {
    std::uintptr_t const left = StackAddress() - t_stackExtent.m_lowest;
    return left < t_stackExtent.m_size ? left : AskForStackLeft();
}

}  // namespace BxXmlLib5
