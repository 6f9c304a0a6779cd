// Where bxconvert reads from.
#pragma once

#include <cstdint>
#include <string>

#include "BxXmlLib5/document/CXmlDocument.h"

namespace BxConvert {

/// Loads a document from a file or a stream.
/// @param name as given on the command line
/// @return the octets that were read
/// @throws CBxException from the document
/// @throws std::system_error if a stream cannot be read
std::uintmax_t LoadInput(BxXmlLib5::CXmlDocument& document, std::string const& name);

}  // namespace BxConvert
