// How deep documents and objects may be nested.
#pragma once

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
};

}  // namespace BxXmlLib5
