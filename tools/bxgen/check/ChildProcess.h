// Work that may crash or not end.
#pragma once

#include <functional>
#include <string>

namespace BxGen {

/// How a piece of work ended.
struct ChildOutcome {
    std::string m_output;   ///< what it gave; cut where it ended before its time
    std::string m_failure;  ///< how it ended before its time, as part of a sentence; empty if it did not
};

/// Does a piece of work in a process of its own, of at most a minute of the processor, two of the clock, and 4 GiB.
/// @param work gives its output to what it is called with
/// @throws std::system_error if there can be no such process
ChildOutcome RunInChild(
    std::function<void(std::function<void(std::string const&)> const& write)> const& work);

}  // namespace BxGen
