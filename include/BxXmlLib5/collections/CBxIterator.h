// The forward iterator of a collection of objects.
#pragma once

#include "BxXmlLib5/collections/CNode.h"

namespace BxXmlLib5 {

/// Walks a CXmlCollection whose items are T. It is valid as long as its node is in the list.
template <class T>
class CBxIterator {
public:
    explicit CBxIterator(CNode* node) : m_node(node) {}

    /// Whether the positions differ. Two nodes that hold the same object count as one position.
    bool operator!=(CBxIterator const& other) const {
        return m_node != other.m_node &&
               (m_node == nullptr || other.m_node == nullptr || m_node->m_item != other.m_node->m_item);
    }
    bool operator==(CBxIterator const& other) const { return !(*this != other); }

    CBxIterator& operator++() {
        m_node = m_node->m_next;
        return *this;
    }

    /// The item; null if the node holds none, or none of class T.
    T* operator*() const { return dynamic_cast<T*>(static_cast<CXmlObjectBase*>(m_node->m_item)); }
    T* operator->() const { return **this; }

private:
    CNode* m_node;
};

}  // namespace BxXmlLib5
