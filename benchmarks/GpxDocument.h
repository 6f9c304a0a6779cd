// The document that the benchmarks read and write.
#pragma once

#include <cstddef>
#include <string>

namespace BxBench {

/// The size that most figures are given for.
inline constexpr std::size_t kGpxOctets = 10'000'000;

/// A GPS track of about so many octets, the same on every call: indented, positions of six to seven decimals,
/// elevation, UTC time, satellites, hdop, and extensions at every tenth point.
std::string const& GpxDocument(std::size_t octets);

}  // namespace BxBench
