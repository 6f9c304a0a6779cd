// What reading makes untyped content of. These differ from their bases in where they lie, and in that an
// element and an attribute bring the node along that holds them in the collection that they are read for.
#pragma once

#include <typeinfo>
#include <utility>

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "collections/CBlockMemory.h"

namespace BxXmlLib5 {

template <class Base>
class CReadItem final : public Base, public CInBlockMemory {
public:
    template <class... Args>
    explicit CReadItem(Args&&... args) : Base(std::forward<Args>(args)...) {}
    using CInBlockMemory::operator new, CInBlockMemory::operator delete;

    CNode m_node;
};

template <class Base>
class CReadCol final : public Base, public CInBlockMemory {
public:
    template <class... Args>
    explicit CReadCol(Args&&... args) : Base(std::forward<Args>(args)...) {}
    using CInBlockMemory::operator new, CInBlockMemory::operator delete;
};

/// Whether the item brought this node along.
inline bool IsOwnNode(CNode const* node, CXmlObjectBase const& item) {
    auto const isNodeOf = [&](auto const* asRead) { return node == &asRead->m_node; };
    // The classes are of this library alone, which has one record of each.
    std::type_info const* const type = &typeid(item);
    if (type == &typeid(CReadItem<CElement>)) return isNodeOf(static_cast<CReadItem<CElement> const*>(&item));
    if (type == &typeid(CReadItem<CAttribute>))
        return isNodeOf(static_cast<CReadItem<CAttribute> const*>(&item));
    return false;
}

}  // namespace BxXmlLib5
