// How far schemas may go. Beyond, they are refused with the code "limit".
#pragma once

#include <cstddef>

namespace BxGen {

/// Steps of derivation, groups within each other (those referred to as well), unions within each other, and so on.
inline constexpr std::size_t kMaxDepth = 1024;
/// Particles of one content model, groups that are referred to counted each time.
inline constexpr std::size_t kMaxParticles = 100'000;
/// Members of a union, those of unions within counted each time.
inline constexpr std::size_t kMaxMembers = 10'000;
/// Attribute uses of all types together, inherited ones counted each time; as many of all attribute groups.
inline constexpr std::size_t kMaxAttributeUses = 20'000'000;
/// Particles of all content models together.
inline constexpr std::size_t kMaxAllParticles = 20'000'000;
/// Steps of all comparisons of content models together.
inline constexpr std::size_t kMaxContentSteps = 20'000'000;

}  // namespace BxGen
