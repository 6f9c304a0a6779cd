// Simple types: what they inherit, and whether their facets make sense.
#pragma once

#include <vector>

#include "Diagnostics.h"
#include "schema/SchemaStore.h"
#include "schema/ValueChecker.h"

namespace BxGen {

/// Works out and checks all simple types of a store, those whose base is known.
/// @param order of all types, each behind those that it rests on
void FinishSimpleTypes(SchemaStore& store, std::vector<Type const*> const& order, Diagnostics& diagnostics);

/// The same for one, whose base is finished.
void FinishSimpleType(SchemaStore& store, SimpleType& type, ValueChecker& values, Diagnostics& diagnostics);

/// Sets what facets hold for a type: its own, else those of its base.
void InheritFacets(SimpleType& type, SimpleType const& base);

/// True if a type may stand where another is expected: it derives from it, or from a member of the union that it is.
bool MayReplace(Type const& type, Type const& expected);

}  // namespace BxGen
