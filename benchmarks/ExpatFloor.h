// The floor for reading text: Expat itself with handlers that do nothing.
#pragma once

#include <string>

namespace BxBench {

/// Parses the document as the library has it parsed: wide, with namespaces, in one call.
/// @return false if Expat refuses it
bool ParseWithEmptyHandlers(std::string const& document);

}  // namespace BxBench
