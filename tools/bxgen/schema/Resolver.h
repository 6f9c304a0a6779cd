// Resolving and checking of components.
#pragma once

#include "Diagnostics.h"
#include "schema/SchemaStore.h"

namespace BxGen {

/// Makes the components of a store whole: names looked up, redefinitions put in place, derivation worked out, and all
/// that XML Schema demands of them checked as far as code that is generated from them depends on it. Stops after a
/// stage that finds errors, as later ones rely on earlier ones.
void ResolveComponents(SchemaStore& store, Diagnostics& diagnostics);

}  // namespace BxGen
