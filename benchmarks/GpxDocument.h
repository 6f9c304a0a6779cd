// The document that the benchmarks read and write.
#pragma once

#include <cstddef>
#include <string>

namespace BxBench {

/// A GPS track of about so many octets, the same on every call: indented, positions of six to seven decimals,
/// elevation, UTC time, satellites, hdop, and extensions at every tenth point.
std::string const& GpxDocument(std::size_t octets);

}  // namespace BxBench
