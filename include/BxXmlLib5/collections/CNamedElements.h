// Those of an element's children that have one name.
#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/collections/CBxIterator.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// A range of T, which is CElement or CElement const, for a loop. It keeps the children alive, whatever
/// becomes of the element. An iterator lasts as long as the range, and as its child is not taken out.
template <class T>
class CNamedElements {
public:
    /// Walks the children of the name, as pointers that are not null.
    class Iterator {
    public:
        /// @{
        /// What the standard asks of a forward iterator.
        using iterator_category = std::forward_iterator_tag;
        using value_type = T*;
        using difference_type = std::ptrdiff_t;
        using pointer = T* const*;
        using reference = T*;
        /// @}

        /// Behind the last child.
        Iterator() = default;

        /// @{
        /// The child.
        T* operator*() const { return m_item; }
        T* operator->() const { return m_item; }
        /// @}
        /// Goes on to the next child of the name.
        Iterator& operator++() {
            m_node = m_node->m_next;
            Settle();
            return *this;
        }
        /// Goes on to the next child of the name. @return where it was
        Iterator operator++(int) {
            Iterator const before = *this;
            ++*this;
            return before;
        }
        /// Whether both are at the same child.
        bool operator==(Iterator const& other) const { return m_node == other.m_node; }

    private:
        friend class CNamedElements;

        Iterator(CNode* node, CNamedElements const* range) : m_node(node), m_range(range) { Settle(); }

        /// Goes on to a child of the name.
        void Settle() {
            for (; m_node != nullptr; m_node = m_node->m_next) {
                m_item = *CBxIterator<T>(m_node);
                if (m_item != nullptr && m_item->HasName(m_range->m_name, m_range->m_namespace)) return;
            }
            m_item = nullptr;
        }

        CNode* m_node = nullptr;
        CNamedElements const* m_range = nullptr;
        T* m_item = nullptr;
    };

    /// @{
    /// The children in document order.
    Iterator begin() const { return {m_first, this}; }
    Iterator end() const { return {}; }
    /// @}
    /// Whether there is none.
    bool empty() const { return begin() == end(); }

private:
    friend class CElement;

    /// @param children the collection, which may be null
    CNamedElements(CXmlObjectBase* children, CNode* first, std::u16string_view name, std::u16string_view ns)
        : m_children(children), m_first(first), m_name(name), m_namespace(ns) {}

    CSmartPtr<CXmlObjectBase> m_children;
    CNode* m_first;
    wstring m_name;
    wstring m_namespace;
};

}  // namespace BxXmlLib5
