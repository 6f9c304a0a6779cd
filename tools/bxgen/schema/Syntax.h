// The elements of schema documents, their attributes and children.
#pragma once

#include "Diagnostics.h"
#include "xml/XmlElement.h"

namespace BxGen {

/// Checks a schema document against the table of its elements, as the schema for schemas does (XML Schema Part 1,
/// appendix A): children, their order, attributes, their values. What XML Schema 1.1 adds is refused by name.
/// @return true if nothing is wrong; what reads components from the document relies on that
bool CheckSyntax(XmlElement const& schema, Diagnostics& diagnostics);

}  // namespace BxGen
