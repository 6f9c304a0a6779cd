// A counted object that is made when it is first asked for.
#pragma once

#include <atomic>

#include "BxXmlLib5/core/CSmartPtr.h"

namespace BxXmlLib5 {

/// Holds one reference on an object, or none as long as nobody asked for it. Several threads may ask at once.
template <class T>
class CMadeOnce {
public:
    /// Nothing is made yet.
    CMadeOnce() = default;
    /// Takes a reference on an object that is there already.
    explicit CMadeOnce(T& object) { Set(&object); }
    /// @{
    /// Who wants a copy copies the object.
    CMadeOnce(CMadeOnce const&) = delete;
    CMadeOnce& operator=(CMadeOnce const&) = delete;
    /// @}
    /// Gives up the reference.
    ~CMadeOnce() {
        // Nobody else may ask any more, so no locked step is needed.
        if (T* const object = Get()) object->Release();
    }

    /// Null if it was not made.
    T* Get() const { return m_object.load(std::memory_order_acquire); }

    /// The object, which is made if nobody asked before; of two threads that make one at the same time, one
    /// throws its own away.
    /// @param make gives a new object
    template <class Make>
    T& GetOrMake(Make make) const {
        if (T* const known = Get()) return *known;
        CSmartPtr<T> const made = make();
        made->AddRef();
        T* known = nullptr;
        if (m_object.compare_exchange_strong(known, made, std::memory_order_acq_rel)) return *made;
        made->Release();
        return *known;
    }

    /// Takes another object, or none.
    void Set(T* object) {
        if (object != nullptr) object->AddRef();
        if (T* const old = m_object.exchange(object, std::memory_order_acq_rel)) old->Release();
    }

private:
    mutable std::atomic<T*> m_object = nullptr;
};

}  // namespace BxXmlLib5
