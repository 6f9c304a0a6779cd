// How much memory a piece of work takes at its peak.
#pragma once

#include <cstddef>
#include <functional>

namespace BxBench {

/// Runs the work in a child process and gives the octets by which its resident memory rose at most. Call it
/// before the process has much memory to reuse.
/// @return 0 if it could not be measured
std::size_t PeakMemoryOf(std::function<void()> const& work);

}  // namespace BxBench
