// A file that a run makes.
#pragma once

#include <string>
#include <vector>

#include "Diagnostics.h"

namespace BxGen {

struct OutputFile {
    std::string m_path;
    std::string m_content;
};

/// Writes the files, each as a whole or not at all. One that has its content already is not touched, so that nothing is
/// built again because of it. What fails is told to the diagnostics.
void WriteFiles(std::vector<OutputFile> const& files, Diagnostics& diagnostics);

/// Makes a file that is empty, and new even if it was there.
void Touch(std::string const& path, Diagnostics& diagnostics);

}  // namespace BxGen
