// The floor for reading text: Expat itself with handlers that do nothing.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

namespace BxBench {

/// Parses the document wide and with namespaces, in one call that is final: after any other, Expat counts lines.
/// @return false if Expat refuses it
bool ParseWithEmptyHandlers(std::string const& document);

/// Parses a document that comes in slices of 64 KiB, of which Expat counts the lines.
bool ParseSlicesWithEmptyHandlers(std::function<std::size_t(std::span<unsigned char>)> const& source);

}  // namespace BxBench
