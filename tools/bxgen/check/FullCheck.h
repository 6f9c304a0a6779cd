// A check of schemas by all rules of the standard, where the tool was built with a checker.
#pragma once

#include <string>
#include <vector>

#include "Diagnostics.h"
#include "schema/SchemaSet.h"

namespace BxGen {

/// Checks schemas with Xerces-C, whose messages are errors with the code "check". It runs in a process of its own, with
/// limits of time and memory: if that crashes or does not end, this is the error. What would take too long, the rules
/// for content models where there are bounds of a thousand and more, is left out, with a warning.
/// An error too if the tool was built without Xerces-C.
/// @param files the schemas of the command line
/// @param set the same and all that they refer to, read without an error
void CheckFully(std::vector<std::string> const& files, SchemaSet const& set, Diagnostics& diagnostics);

/// True if the tool was built with Xerces-C.
bool HasFullCheck();

}  // namespace BxGen
