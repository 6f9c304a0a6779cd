// The floor for reading text: Expat itself with handlers that do nothing.
#pragma once

#include <string>

namespace BxBench {

/// Parses the document wide and with namespaces, in one call that is final: after any other, Expat counts lines.
/// @return false if Expat refuses it
bool ParseWithEmptyHandlers(std::string const& document);

}  // namespace BxBench
