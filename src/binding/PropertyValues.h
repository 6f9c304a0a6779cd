// What the variant of a property must hold, for the entries and the driver.
#pragma once

#include "BxXmlLib5/binding/CElementInfo.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/values/BxVariant.h"

namespace BxXmlLib5Data {

using BxXmlLib5::CXmlCollectionBase;

/// @throws CBxException if the variant holds a value of another kind; none at all is accepted
void ThrowIfKindDiffers(BxVariant const& value, ItemType kind);

/// The object or the collection that a variant holds, null for none. It stays the variant's.
/// @throws CBxException if the variant holds a value of another kind
CXmlObjectBase* ObjectIn(BxVariant const& value);
CXmlCollectionBase* CollectionIn(BxVariant const& value);

/// @throws CBxException if there is no collection
CXmlCollectionBase& PresentCollectionIn(BxVariant const& value);

/// @throws CBxException always, for a property that should hold an object or a collection and holds none
[[noreturn]] void ThrowNothingInPlace();

/// The text of the enumerator that a variant holds.
/// @param name of the element or attribute, for the message
/// @throws CBxInvalidValueException if it is none of the enumeration
wstring EnumText(Detail::EnumToString enumToString, BxVariant const& value, wstring const& name);

/// The enumerator that a text stands for.
/// @throws CBxInvalidValueException for a text with a unit of value 0, which generated code would see cut
BxVariant EnumValue(Detail::StringToEnum stringToEnum, std::u16string_view text, wstring const& name);

}  // namespace BxXmlLib5Data
