// A pattern, a line end, a value: as a facet of XML Schema and as an expression that is compiled once. What
// matches, ends.
#include <algorithm>
#include <string>

#include "BxXmlLib5/BxXmlLib5.h"
#include "collections/PatternFacet.h"

using namespace BxXmlLib5;

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    unsigned char const* const end = std::find(data, data + size, '\n');
    wstring const pattern(data, end);
    wstring const value(end == data + size ? end : end + 1, data + size);
    try {
        if (!pattern.empty()) MatchesPattern(pattern, value, u"fuzz");
    } catch (CBxException const&) {
    }
    try {
        CCompiledPattern(pattern, pattern, u"fuzz").MatchesWhole(value);
    } catch (CBxException const&) {
    }
    return 0;
}
