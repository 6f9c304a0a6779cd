// The types and schemas that come with the tool.
#pragma once

#include <string_view>

#include "schema/SchemaStore.h"

namespace BxGen {

/// Puts the types of XML Schema Part 2, and xs:anyType, into a store.
void AddBuiltInTypes(SchemaStore& store);

/// The schema of a namespace that comes with the tool (XML, XLink, XSI); empty for others.
std::string_view BuiltInSchema(std::string_view namespaceUri);

}  // namespace BxGen
