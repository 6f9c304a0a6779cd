// Where bxconvert writes to.
#pragma once

#include <string>
#include <string_view>

namespace BxConvert {

/// Writes octets to a file or a stream. A regular file is replaced by a new one once that is complete; after
/// a failure it is as it was. A symbolic link stays, and the file behind it is replaced. A device, a pipe or
/// an open file under /dev/fd is written to as it is.
/// @param name as given on the command line
/// @throws std::system_error
void WriteOutput(std::string const& name, std::string_view octets);

}  // namespace BxConvert
