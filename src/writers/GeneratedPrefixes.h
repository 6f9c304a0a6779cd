// Namespace prefixes that the writers make up.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// The generated prefix of an index: two letters, "AA" to "ZZ", for 0 to 675, then three, "AAA" on, and so
/// forth.
wstring GeneratedPrefix(std::size_t index);

/// Gives the generated prefixes that are no aliases of one scope, lowest first, each once. Only making a
/// source walks over the scope; a copy goes on where its original stands.
class CPrefixSource {
public:
    explicit CPrefixSource(std::map<wstring, wstring> const& aliases);

    wstring Next();

private:
    std::shared_ptr<std::vector<std::size_t> const> m_used;  // indexes, ascending, each once
    std::size_t m_usedBelow = 0;                             // how many of them are below m_next
    std::size_t m_next = 0;
};

}  // namespace BxXmlLib5
