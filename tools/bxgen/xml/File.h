// Files as octets.
#pragma once

#include <string>

namespace BxGen {

/// Reads a file, a pipe or the like as a whole.
/// @throws std::system_error if that fails, for a folder too, and for more than 1 GiB
std::string ReadFile(std::string const& path);

}  // namespace BxGen
