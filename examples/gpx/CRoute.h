// Routes.
#pragma once

#include "CObjectCol.h"
#include "CPath.h"
#include "CWaypoint.h"

namespace Gpx {

/// The element rte (rteType): points that lead to a destination.
class CRoute : public CPath<CRoute, CWaypointCol> {
public:
    static constexpr char16_t kTypeName[] = u"rteType";
    static constexpr char16_t kPartName[] = u"rtept";

    explicit CRoute(char16_t const* elementName = u"rte") : CPath(elementName) {}

    /// The collection itself, never null; its elements are rtept.
    CSmartPtr<CWaypointCol> GetPoints() const { return GetParts(); }
};

class CRouteCol : public CObjectCol<CRoute> {
public:
    using CObjectCol::CObjectCol;
};

}  // namespace Gpx
