// Which namespaces an object needs prefixes for, beside those of its elements.
#pragma once

#include <set>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5::Generated {

class CObject;

struct ForeignNamespaces {
    std::set<wstring>
        m_namespaces;  ///< Of untyped elements and of all attributes, but for that of the prefix xml.
    bool m_hasElementInNone = false;
};

/// @throws CBxException if objects are nested too deeply
ForeignNamespaces FindForeignNamespaces(CObject const& object);

}  // namespace BxXmlLib5::Generated
