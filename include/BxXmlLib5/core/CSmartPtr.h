// The counting pointer of the object tree.
#pragma once

#include <type_traits>
#include <utility>

/// Holds one reference on an object that counts its own: T has AddRef() and Release(), as every descendant of
/// CXmlObjectBase does. The object is deleted when its last reference goes.
///
/// It converts from and to a plain pointer, so it compares and tests like one. Null by default. An object on
/// the stack, or inside another object, must never be put into one: it would be deleted.
///
/// Copies of one pointer may be used by different threads, since the count is atomic; one pointer may not.
template <class T>
class CSmartPtr {
public:
    /// Null.
    CSmartPtr() noexcept = default;

    /// Takes a reference of its own; null is accepted.
    CSmartPtr(T* object) : m_object(object) { Take(); }
    /// Takes a reference of its own.
    CSmartPtr(CSmartPtr const& other) : m_object(other.m_object) { Take(); }
    /// Takes over the reference; the other pointer is null afterwards.
    CSmartPtr(CSmartPtr&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}

    /// Takes a reference of its own, from a pointer to a derived class.
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    CSmartPtr(CSmartPtr<U> const& other) : CSmartPtr(static_cast<U*>(other)) {}

    /// Gives up its reference.
    ~CSmartPtr() {
        if (m_object != nullptr) m_object->Release();
    }

    /// Takes the new reference before it drops the old one, so `p = p->m_next` is safe.
    CSmartPtr& operator=(CSmartPtr other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }

    /// The plain pointer, null for none.
    operator T*() const noexcept { return m_object; }
    /// @{
    /// The object; there must be one.
    T& operator*() const noexcept { return *m_object; }
    T* operator->() const noexcept { return m_object; }
    /// @}

private:
    void Take() {
        if (m_object != nullptr) m_object->AddRef();
    }

    T* m_object = nullptr;
};
