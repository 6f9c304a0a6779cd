// What a piece of work takes in a process that has not worked before.
#pragma once

#include <cstddef>
#include <functional>

namespace BxBench {

struct Taken {
    std::size_t m_octets = 0;  ///< by which the resident memory rose at most
    double m_seconds = 0;      ///< of the processor
};

/// Runs the work in a child process. Call it before the process has much memory to reuse.
/// @return nothing taken if it could not be measured
Taken RunInChild(std::function<void()> const& work);

}  // namespace BxBench
