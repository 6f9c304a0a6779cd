// Documentation of components.
#pragma once

#include <string_view>
#include <vector>

#include "Options.h"
#include "mapping/Plan.h"
#include "schema/Components.h"

namespace BxGen {

/// What a type says for a property; null if the property names the type, where it is said already.
/// @param expression of the property's type, or its value's
Annotation const* AnnotationOf(Type const& type, TypeExpression const& expression);

/// What is said of a component: the first paragraph of the first of the annotations that has text.
/// @param annotations null stands for none
Documentation DocumentationOf(Options const& options, std::vector<Annotation const*> const& annotations,
                              std::string_view name, Place const& place);

}  // namespace BxGen
