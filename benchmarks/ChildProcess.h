// What a piece of work takes in a process that has not worked before.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace BxBench {

struct Taken {
    std::size_t m_octets = 0;  ///< by which the resident memory rose at most
    double m_seconds = 0;      ///< of the processor
};

/// Makes something in a child process, so that this one has no memory to reuse of it.
/// @return nothing if that failed
std::string MadeInChild(std::function<std::string()> const& make);

/// Runs the work in a child process. Call it before the process has memory to reuse: what was freed changes both the
/// time and what the allocator does with the next.
/// @return nothing taken if it could not be measured
Taken RunInChild(std::function<void()> const& work);

/// Runs a program, whose standard output goes nowhere. Call it before the process has much memory: the child begins with
/// what there is.
/// @param words the program, which is looked for in PATH, and its arguments
/// @return the most that its resident memory was, and its time; nothing if it cannot be run or fails
std::optional<Taken> RunProgram(std::vector<std::string> const& words);

}  // namespace BxBench
