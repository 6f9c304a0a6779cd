// Where bxconvert writes to.
#pragma once

#include <span>
#include <string>

namespace BxConvert {

/// Writes octets to standard output or to a file, as CFileReplacement does: after a failure it is as it was.
/// @param name as given on the command line
/// @throws std::system_error
void WriteOutput(std::string const& name, std::span<unsigned char const> octets);

}  // namespace BxConvert
