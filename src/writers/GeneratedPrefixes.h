// Namespace prefixes that the writers make up.
#pragma once

#include <map>
#include <vector>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// The generated prefix of an index: two letters, "AA" to "ZZ", for 0 to 675, then three, "AAA" on, and so
/// forth.
/// @param index 0 or more
wstring GeneratedPrefix(int index);

/// Gives the generated prefixes that are no aliases of one scope, lowest first, each once. Making one costs
/// no walk over the scope.
class CPrefixSource {
public:
    explicit CPrefixSource(std::map<wstring, wstring> const& aliases);

    wstring Next();

private:
    std::vector<bool> m_used;  // by index; what lies beyond is free
    std::size_t m_next = 0;
};

}  // namespace BxXmlLib5
