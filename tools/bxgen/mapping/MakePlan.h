// From the components of schemas to what is generated for them.
#pragma once

#include "Diagnostics.h"
#include "Options.h"
#include "mapping/Plan.h"
#include "schema/SchemaSet.h"

namespace BxGen {

/// Maps all components of a set. What cannot be expressed is told to the diagnostics, as a warning if the classes work
/// without it, else as an error. After an error the plan must not be used.
/// @param set must outlive the plan, which refers to places within it
Plan MakePlan(SchemaSet const& set, Options const& options, Diagnostics& diagnostics);

}  // namespace BxGen
