// The facet pattern (XML Schema Part 2, 4.3.4).
#pragma once

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// Whether the first match of a pattern at the start of a value spans all of it. There is none if a limit of
/// core/Limits.h stops the search, or if the value has no UTF-8 form.
/// @param pattern not empty
/// @param name for the message
/// @throws CBxException if the pattern is no regular expression
bool MatchesPattern(wstring const& pattern, wstring const& value, char16_t const* name);

}  // namespace BxXmlLib5
