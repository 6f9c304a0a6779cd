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

/// Octets of stack that are left to the caller. Nothing where that is not known, as on a stack that the program
/// made for itself.
std::optional<std::size_t> StackLeft();

}  // namespace BxXmlLib5
