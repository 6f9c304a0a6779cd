// Complex types: what comes of their derivation.
#pragma once

#include <vector>

#include "Diagnostics.h"
#include "schema/SchemaStore.h"

namespace BxGen {

/// Works out content and attributes of all complex types of a store, and checks their derivation.
/// @param order of all types, each behind those that it rests on
void FinishComplexTypes(SchemaStore& store, std::vector<Type const*> const& order, Diagnostics& diagnostics);

/// Refuses content models that are too large when groups are put where they are referred to.
/// @param order of named groups, each behind those that it refers to
void CheckSizes(SchemaStore& store, std::vector<NamedGroup const*> const& order, Diagnostics& diagnostics);

/// True if nothing need stand for a particle.
bool MayBeEmpty(Particle const& particle);

/// True if an element or a wildcard is somewhere within.
bool HasMembers(Particle const& particle);

}  // namespace BxGen
