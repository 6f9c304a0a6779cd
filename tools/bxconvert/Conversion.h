// What bxconvert does with a document.
#pragma once

#include "Emitter.h"
#include "Options.h"
#include "document/COctetSource.h"

namespace BxConvert {

/// Reads the input and writes what is made of it, piece by piece.
/// @return what was left out
/// @throws CBxException from the library
/// @throws std::system_error if the input cannot be read, and what the sink throws
/// @throws std::runtime_error for a document that the options refuse
Losses Convert(Options const& options, Sink& sink);

/// The same for a document that comes from elsewhere, without what --info prints.
Losses Convert(Options const& options, BxXmlLib5::COctetSource& source, Sink& sink);

/// The line that tells what was left out.
/// @param what Losses::ToText
std::string NotKept(Options const& options, std::string const& what);

}  // namespace BxConvert
