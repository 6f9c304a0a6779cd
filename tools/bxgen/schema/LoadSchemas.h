// From files to components.
#pragma once

#include <string>
#include <vector>

#include "Diagnostics.h"
#include "schema/SchemaSet.h"
#include "xml/Catalog.h"

namespace BxGen {

/// Reads schemas and all that they include, import and redefine, resolves and checks them. Nothing is fetched from
/// the net. Whatever is wrong with the schemas is told to the diagnostics; if they have an error afterwards, the set
/// is not whole and must not be used.
/// @param files paths, as messages shall name them
/// @param catalog where locations and namespaces lead
SchemaSet LoadSchemas(std::vector<std::string> const& files, Catalog const& catalog,
                      Diagnostics& diagnostics);

}  // namespace BxGen
