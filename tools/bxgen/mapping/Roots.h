// Which elements documents begin with.
#pragma once

#include <vector>

#include "mapping/Mapping.h"

namespace BxGen {

/// The global elements that get classes of roots, in order: those of --root-element; else those that nothing refers
/// to and that are not abstract; if that leaves none, all that are not abstract.
std::vector<ElementDeclaration const*> FindRoots(Mapping const& mapping);

}  // namespace BxGen
