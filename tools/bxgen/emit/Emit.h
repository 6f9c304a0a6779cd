// From a plan to the text of files.
#pragma once

#include <vector>

#include "Options.h"
#include "emit/OutputFile.h"
#include "mapping/Plan.h"

namespace BxGen {

/// The files of a plan, those of each namespace of C++ in turn: declarations ahead (NameFwd.h), header (Name.h), sources
/// (Name.cpp, or Name-1.cpp ... where there are more), and last the program if one is wanted. Nothing depends on the
/// folder in which it runs.
std::vector<OutputFile> Emit(Plan const& plan, Options const& options);

}  // namespace BxGen
