// One run of bxgen.
#pragma once

#include <span>
#include <string>

namespace BxGen {

enum ExitStatus { kSuccess = 0, kWrongUsage = 1, kWrongSchema = 2, kFileTrouble = 3 };

/// Does what a command line asks for.
/// @param arguments without the name of the program
/// @param output what goes to standard output
/// @param messages what goes to standard error
ExitStatus Run(std::span<char const* const> arguments, std::string& output, std::string& messages);

}  // namespace BxGen
