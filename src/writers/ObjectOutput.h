// What the entry points that write a document have in common.
#pragma once

#include "BxXmlLib5/binding/Enumerations.h"

namespace BxXmlLib5 {

/// @throws CBxException for a compression that files do not have
void ThrowIfNotForFiles(CompressionType compression);

}  // namespace BxXmlLib5
