// Tests of values against the facets of their type.
#pragma once

#include "BxXmlLib5/collections/CPrimitiveRestrictions.h"
#include "BxXmlLib5/values/BxVariant.h"

namespace BxXmlLib5 {

/// @param name of the element or attribute, for messages
/// @throws CBxException if there is a facet
void CheckRestrictions(ItemType type, CPrimitiveRestrictions const& facets, char16_t const* name,
                       BxVariant const& value);

}  // namespace BxXmlLib5
