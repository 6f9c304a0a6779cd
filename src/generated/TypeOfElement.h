// The classes that xsi:type names (XML Schema Part 1, 2.6.1).
#pragma once

#include "BxXmlLib5/generated/CObject.h"

namespace BxXmlLib5::Generated {

/// A new object for an element: of the class that it names, or of the one that the schema gives.
/// @throws CBxValidationException if it names none that derives from that, or the class is abstract
CObject* MakeFor(CXmlElement const& element, Class const& declared);

/// The class whose name stands in xsi:type for an object of a class: that of its type.
Class const& TypeClass(Class const& of);

}  // namespace BxXmlLib5::Generated
