// What a run has read, for build systems.
#pragma once

#include <string>
#include <vector>

namespace BxGen {

/// A rule in Make's syntax: the targets depend on the files. What Make takes for more than a name is escaped.
std::string DepfileText(std::vector<std::string> const& targets, std::vector<std::string> const& files);

}  // namespace BxGen
