// How deep documents and objects may be nested.
#pragma once

#include "core/Limits.h"
#include "platform/Stack.h"

namespace BxXmlLib5 {

/// @throws CBxException always, for elements nested more than so many levels deep
[[noreturn]] void ThrowNestedTooDeeply(std::size_t levels = kMaxElementDepth);

/// Whether enough of the stack is left for another level of a recursion. Not where nobody knows what is left.
inline bool HasStackForLevel() {
    return StackLeft().value_or(0) >= kStackForLevel;
}

/// One level of a recursion, while it lives. Each function has one that calls itself, by whatever way, for what
/// is nested in a document or by the caller.
class CNestingLevel {
public:
    /// @throws CBxException if too little of the stack is left
    CNestingLevel() {
        if (!HasStackForLevel()) LookAtStack();
    }
    CNestingLevel(CNestingLevel const&) = delete;
    CNestingLevel& operator=(CNestingLevel const&) = delete;
    ~CNestingLevel() {
        if (m_isOutermost) Leave();
    }

private:
    void LookAtStack();
    void Leave();

    bool m_isOutermost = false;  // on a stack of which nobody knows what is left
};

}  // namespace BxXmlLib5
