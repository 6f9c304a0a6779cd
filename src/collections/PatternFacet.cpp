#include "collections/PatternFacet.h"

#include "BxXmlLib5/collections/CCompiledPattern.h"
#include "collections/PatternSyntax.h"

namespace BxXmlLib5 {

bool MatchesPattern(wstring const& pattern, wstring const& value, char16_t const* name) {
    return CCompiledPattern(TranslatePattern(pattern), pattern, name).MatchesWhole(value);
}

}  // namespace BxXmlLib5
