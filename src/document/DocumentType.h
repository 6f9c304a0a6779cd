// The text of a document type.
#pragma once

#include <span>

#include "document/ExpatParser.h"

namespace BxXmlLib5 {

/// From <!DOCTYPE to its end, with line ends as XML has them.
/// @param parser that has parsed nothing yet
/// @param prolog what stands ahead of the root, with all of the document type
wstring DocumentTypeOf(XML_Parser parser, std::span<unsigned char const> prolog);

}  // namespace BxXmlLib5
