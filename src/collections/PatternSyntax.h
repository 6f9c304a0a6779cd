// The language of pattern facets.
#pragma once

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// The pattern of a schema for PCRE2: the escapes for names are replaced wherever they stand, and what PCRE2
/// refuses though the classic PCRE took it is spelled as both take it. All else stays as it is.
wstring TranslatePattern(wstring pattern);

}  // namespace BxXmlLib5
