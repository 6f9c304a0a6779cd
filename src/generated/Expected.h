// How messages name what a schema asks for.
#pragma once

#include "generated/Model.h"

namespace BxXmlLib5::Generated {

/// Whether the particle is an element or wildcard that may occur more often than once.
inline bool IsRepeated(Particle const& particle) {
    return !particle.IsGroup() && (particle.max < 0 || particle.max > 1);
}

/// What a particle may begin with: "the element [a]", "one of the elements [a] [b]".
wstring Expected(Particle const& particle);

}  // namespace BxXmlLib5::Generated
