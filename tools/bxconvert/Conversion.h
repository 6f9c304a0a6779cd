// What bxconvert does with a document.
#pragma once

#include "BxXmlLib5/values/CBinaryData.h"
#include "Options.h"
#include "Statistics.h"

namespace BxConvert {

/// Reads the input and gives what is to be written.
/// @param statistics set to those of the document
/// @throws CBxException from the library
/// @throws std::system_error if a stream cannot be read
/// @throws std::runtime_error for a document that the options refuse
BxXmlLib5::CBinaryData Convert(Options const& options, Statistics& statistics);

}  // namespace BxConvert
