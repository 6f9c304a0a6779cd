// Tracks.
#pragma once

#include "CObjectCol.h"
#include "CPath.h"
#include "CWaypoint.h"

namespace Gpx {

/// The element trkseg (trksegType): points that follow each other without a break.
class CTrackSegment : public CGpxClass<CTrackSegment> {
public:
    explicit CTrackSegment(char16_t const* elementName = u"trkseg");

    /// The collection itself, never null; its elements are trkpt.
    CSmartPtr<CWaypointCol> GetPoints() const { return m_points; }

    /// Null for none.
    CSmartPtr<CExtensions> GetExtensions() const { return m_extensions; }
    void SetExtensions(CExtensions* extensions) { StoreObject(m_extensions, extensions, u"extensions"); }

    static MetaData Describe();

protected:
    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    void ResetContent() override;

private:
    enum Property { kPoints, kExtensions };

    CSmartPtr<CWaypointCol> m_points;
    CSmartPtr<CExtensions> m_extensions;
};

class CTrackSegmentCol : public CObjectCol<CTrackSegment> {
public:
    using CObjectCol::CObjectCol;
};

/// The element trk (trkType): where somebody has been.
class CTrack : public CPath<CTrack, CTrackSegmentCol> {
public:
    static constexpr char16_t kTypeName[] = u"trkType";
    static constexpr char16_t kPartName[] = u"trkseg";

    explicit CTrack(char16_t const* elementName = u"trk") : CPath(elementName) {}

    /// The collection itself, never null.
    CSmartPtr<CTrackSegmentCol> GetSegments() const { return GetParts(); }
};

class CTrackCol : public CObjectCol<CTrack> {
public:
    using CObjectCol::CObjectCol;
};

}  // namespace Gpx
