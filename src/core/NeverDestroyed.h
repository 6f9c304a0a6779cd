// Objects of static storage that outlive all others.
#pragma once

#include <cstddef>
#include <new>
#include <utility>

namespace BxXmlLib5 {

/// An object that is never destroyed, for static storage inside a function: constructors and destructors of the
/// application's own static objects may use it at any time. Every static object of the library with a destructor
/// is one.
template <class T>
class NeverDestroyed {
public:
    template <class... Args>
    explicit NeverDestroyed(Args&&... args) {
        new (m_storage) T(std::forward<Args>(args)...);
    }
    NeverDestroyed(NeverDestroyed const&) = delete;
    NeverDestroyed& operator=(NeverDestroyed const&) = delete;

    T& operator*() { return *std::launder(reinterpret_cast<T*>(m_storage)); }
    T const& operator*() const { return *std::launder(reinterpret_cast<T const*>(m_storage)); }

private:
    alignas(T) std::byte m_storage[sizeof(T)];
};

}  // namespace BxXmlLib5
