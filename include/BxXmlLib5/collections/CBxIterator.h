// The forward iterator of a collection of objects.
#pragma once

#include <cstddef>
#include <iterator>
#include <type_traits>

#include "BxXmlLib5/collections/CNode.h"

namespace BxXmlLib5 {

/// Walks a CXmlCollection whose items are T, which may be const. It is valid as long as its node is in the
/// list.
template <class T>
class CBxIterator {
public:
    /// @{
    /// What the standard asks of a forward iterator. What it leads to is a pointer to the item.
    using iterator_category = std::forward_iterator_tag;
    using value_type = T*;
    using difference_type = std::ptrdiff_t;
    using pointer = T*;
    using reference = T*;
    /// @}

    /// Behind the last item.
    CBxIterator() = default;
    /// At a node; null for behind the last item.
    explicit CBxIterator(CNode* node) : m_node(node) {}

    /// The same position, for items that are not to be changed.
    operator CBxIterator<T const>() const requires(!std::is_const_v<T>) {
        return CBxIterator<T const>(m_node);
    }

    /// Whether the positions differ. Two nodes that hold the same object count as one position.
    bool operator!=(CBxIterator const& other) const {
        return m_node != other.m_node &&
               (m_node == nullptr || other.m_node == nullptr || m_node->m_item != other.m_node->m_item);
    }
    /// Whether the positions are the same, as != sees them.
    bool operator==(CBxIterator const& other) const { return !(*this != other); }

    /// Goes on to the next node; not behind the last one.
    CBxIterator& operator++() {
        m_node = m_node->m_next;
        return *this;
    }
    /// Goes on to the next node. @return where it was
    CBxIterator operator++(int) {
        CBxIterator const before = *this;
        ++*this;
        return before;
    }

    /// @{
    /// The item; null if the node holds none, or none of class T.
    T* operator*() const { return dynamic_cast<T*>(static_cast<CXmlObjectBase*>(m_node->m_item)); }
    T* operator->() const { return **this; }
    /// @}

private:
    CNode* m_node = nullptr;
};

}  // namespace BxXmlLib5
