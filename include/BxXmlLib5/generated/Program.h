// The program that a schema compiler adds to its classes.
#pragma once

#include <span>

#include "BxXmlLib5/generated/Class.h"
#include "BxXmlLib5/platform/Export.h"

namespace BxXmlLib5::Generated {

/// The main of a program that reads documents of the roots and writes them again:
///
///     NAME [--check] [--to xml|finf] [--compact] INPUT [-o OUTPUT]
///
/// INPUT is a file in any form that CXmlDocument reads, "-" for standard input. Without -o, or with "-" as
/// OUTPUT, the result goes to standard output. With --check nothing is written. Messages go to standard
/// error.
/// @param roots classes of roots
/// @return 0, 1 if the command line makes no sense, 2 if the document does not fit, 3 if a file cannot be
/// read or written
BXXMLLIB5_API int RunProgram(int argc, char const* const* argv, std::span<Class const* const> roots);

}  // namespace BxXmlLib5::Generated
