// Documentation of components.
#pragma once

#include <initializer_list>
#include <string_view>

#include "Options.h"
#include "mapping/Plan.h"
#include "schema/Components.h"

namespace BxGen {

/// What is said of a component: the first paragraph of the first of the annotations that has text.
Documentation DocumentationOf(Options const& options, std::initializer_list<Annotation const*> annotations,
                              std::string_view name, Place const& place);

}  // namespace BxGen
