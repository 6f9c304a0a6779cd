// Where bxconvert writes to.
#pragma once

#include <span>
#include <string>

namespace BxConvert {

/// Writes octets to a file or a stream. A regular file is replaced by a new one once that is complete; after
/// a failure it is as it was. A symbolic link stays, and the file behind it is replaced. A device, a pipe or
/// an open file under /dev/fd is written to as it is.
/// @param name as given on the command line
/// @throws std::system_error
void WriteOutput(std::string const& name, std::span<unsigned char const> octets);

}  // namespace BxConvert
