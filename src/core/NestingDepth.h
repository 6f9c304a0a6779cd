// How deep documents and objects may be nested, and how much a read may search.
#pragma once

#include <cstddef>

namespace BxXmlLib5 {

/// @throws CBxException always, for elements nested more than kMaxElementDepth levels deep
[[noreturn]] void ThrowNestedTooDeeply();

/// Counts, while it lives, one object that is inside others on this thread: pseudo elements take stack too,
/// and no element counts them.
class CObjectLevel {
public:
    /// @throws CBxException if kMaxObjectDepth objects are inside each other
    CObjectLevel();
    CObjectLevel(CObjectLevel const&) = delete;
    CObjectLevel& operator=(CObjectLevel const&) = delete;
    ~CObjectLevel();

    /// Counts children that were looked through in vain since the outermost object. Where unknown elements
    /// are skipped, a group may look through all that is left for each of them.
    /// @throws CBxException if there are more than kMaxVainSteps
    static void CountVainSteps(std::size_t steps);
};

}  // namespace BxXmlLib5
