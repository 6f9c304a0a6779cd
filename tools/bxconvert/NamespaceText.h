// Namespace names as they stand in a document.
#pragma once

#include <string_view>

#include "BxXmlLib5/platform/Text.h"

namespace BxConvert {

/// Whether a namespace name cannot stand in an attribute value as it is.
bool NeedsEscape(std::u16string_view namespaceUri);

/// A namespace name as it stands in an attribute value: the writer leaves escaping to its caller.
BxXmlLib5::wstring Escaped(std::u16string_view namespaceUri);

}  // namespace BxConvert
