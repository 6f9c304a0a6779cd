// The stack of the calling thread.
#pragma once

#include <cstddef>

namespace BxXmlLib5 {

/// Octets of stack that are left to the caller; the greatest number where that is not known, as on a stack
/// that the program made for itself.
std::size_t StackLeft();

}  // namespace BxXmlLib5
