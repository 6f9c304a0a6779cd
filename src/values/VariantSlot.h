// The value in the slot of a variant, where it stands.
#pragma once

#include <type_traits>
#include <utility>

#include "BxXmlLib5/values/BxVariant.h"
#include "core/NeverDestroyed.h"

namespace BxXmlLib5 {

/// The type of a member of the slot.
template <auto Member>
using SlotType = std::remove_reference_t<decltype(std::declval<BxVariant::Value&>().*Member)>;

/// A value that lies in the slot itself.
template <class T>
T const& ReadSlot(T const& slot) {
    return slot;
}

/// A value that the slot points to; an empty one for a null pointer.
template <class T>
T const& ReadSlot(T* const& slot) {
    static NeverDestroyed<T> const s_empty;
    return slot == nullptr ? *s_empty : *slot;
}

/// @name References that a variant holds
/// Defined beside the classes of objects, which are above the values.
/// @{
void AddReference(CXmlObjectBase* object);
void AddReference(CXmlCollectionBase* collection);
void DropReference(CXmlObjectBase* object);
void DropReference(CXmlCollectionBase* collection);
/// @}

}  // namespace BxXmlLib5
