// The facets of simple types (XML Schema Part 2, 4.3), applied to values of any kind.
#pragma once

#include "BxXmlLib5/values/ItemType.h"

namespace BxXmlLib5 {

class CPrimitiveRestrictions;
struct BxVariant;

/// Tests a value against the facets that its kind has; the others are not looked at. Nothing is kept from one
/// test to the next: bounds and patterns are converted for each.
/// @param name of the element or attribute, for messages
/// @throws CBxException if the value breaks a facet or is of another kind, or if the pattern is no regular
///     expression
/// @throws CBxInvalidValueException if the kind has no test, and what CConversions throws for a bound
void CheckRestrictions(ItemType type, CPrimitiveRestrictions const& facets, char16_t const* name,
                       BxVariant const& value);

}  // namespace BxXmlLib5
