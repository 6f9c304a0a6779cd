// The fixed values of elements that are objects, or untyped (XML Schema Part 1, 3.3.4).
#pragma once

#include <string_view>

#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/generated/CObject.h"

namespace BxXmlLib5::Generated {

/// @throws CBxInvalidValueException unless the object has the text as its value, and nothing but it
void TestFixed(CObject const& object, std::u16string_view fixed);

/// The same for an untyped element, whose value is its text; it may be empty, which stands for the value.
void TestFixed(CElement const& element, std::u16string_view fixed);

}  // namespace BxXmlLib5::Generated
