// Namespace prefixes that the writers make up.
#pragma once

#include <cstddef>
#include <map>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// The generated prefix of an index: two letters, "AA" to "ZZ", for 0 to 675, then three, "AAA" on, and so
/// forth.
wstring GeneratedPrefix(std::size_t index);

/// Tells the first generated prefix that is no alias of a scope.
class CPrefixesInUse {
public:
    /// An alias may be held more than once, and is in use until each is dropped.
    void Hold(std::u16string_view alias);
    void Drop(std::u16string_view alias);

    wstring FirstFree();

private:
    std::map<std::size_t, unsigned> m_counts;  // of the generated ones, by index
    std::size_t m_allBelow = 0;                // all below this one are in use
};

}  // namespace BxXmlLib5
