// Content models: whether documents can be read by them in one way only.
#pragma once

#include "Diagnostics.h"
#include "schema/SchemaStore.h"

namespace BxGen {

/// Refuses content models in which an element of a document could belong to two particles (Unique Particle
/// Attribution, XML Schema Part 1, section 3.8.6), and those in which elements of one name have different types. The
/// cost does not depend on bounds of occurrence.
void CheckContentModels(SchemaStore& store, Diagnostics& diagnostics);

}  // namespace BxGen
