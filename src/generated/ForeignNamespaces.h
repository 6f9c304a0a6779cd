// Which namespaces the untyped content of an object has.
#pragma once

#include <set>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5::Generated {

class CObject;

struct ForeignNamespaces {
    std::set<wstring> m_namespaces;  ///< Of elements and attributes, but for that of the prefix xml.
    bool m_hasElementInNone = false;
};

/// @throws CBxException if objects are nested too deeply
ForeignNamespaces FindForeignNamespaces(CObject const& object);

}  // namespace BxXmlLib5::Generated
