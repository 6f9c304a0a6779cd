// Restrictions of complex content.
#pragma once

#include "Diagnostics.h"
#include "schema/SchemaStore.h"

namespace BxGen {

/// Compares content with that of the base that it restricts, by what follows from the rules of XML Schema Part 1,
/// section 3.9.6: elements and wildcards have a place in the base, types derive from those there, and there are not
/// fewer or more of them. The order of elements is not compared. What classes cannot express is an error, the rest a
/// warning. Content that is too large is passed over.
void CheckRestrictions(SchemaStore& store, Diagnostics& diagnostics);

}  // namespace BxGen
