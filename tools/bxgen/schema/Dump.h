// Components as text.
#pragma once

#include <string>

#include "schema/SchemaSet.h"

namespace BxGen {

/// The components of a set, resolved, a line each, what they hold indented below. The text depends on the schemas alone:
/// files are named without their folders.
std::string Dump(SchemaSet const& set);

}  // namespace BxGen
