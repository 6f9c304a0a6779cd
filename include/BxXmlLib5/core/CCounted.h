// The count of references of an object that CSmartPtr holds.
#pragma once

#include <atomic>
#include <cstdint>

#include "BxXmlLib5/core/Count.h"

namespace BxXmlLib5 {

/// The base of a class T whose objects delete themselves with their last reference. The count is atomic, and
/// a copy starts with none.
template <class T>
class CCounted {
public:
    /// No reference yet.
    CCounted() = default;
    /// No reference yet, however many the other object has.
    CCounted(CCounted const&) {}
    /// Leaves both counts as they are.
    CCounted& operator=(CCounted const&) { return *this; }

    /// Takes a reference.
    void AddRef() const { AddToCount(m_refCount, 1, std::memory_order_relaxed); }
    /// Gives one up, and deletes the object if it was the last.
    void Release() const {
        if (AddToCount(m_refCount, -1, std::memory_order_acq_rel) == 1) delete static_cast<T const*>(this);
    }

private:
    mutable std::atomic<std::int32_t> m_refCount = 0;
};

}  // namespace BxXmlLib5
