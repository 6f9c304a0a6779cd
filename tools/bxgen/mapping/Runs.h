// Repeated groups within repeated groups.
#pragma once

#include "Diagnostics.h"
#include "mapping/Content.h"

namespace BxGen {

/// Warns of repeated groups in which another one may come last and first, with bounds that tell only from what follows
/// whether it goes on or the outer one begins again: the reader takes it to go on as long as it may.
void WarnOfRuns(ContentNode const& node, Diagnostics& diagnostics);

}  // namespace BxGen
