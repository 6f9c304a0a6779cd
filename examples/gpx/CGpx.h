// A GPX document.
#pragma once

#include "CExtensions.h"
#include "CGpxClass.h"
#include "CMetadata.h"
#include "CRoute.h"
#include "CTrack.h"
#include "CWaypoint.h"

namespace Gpx {

/// The root of a document (gpxType). It is read and written by the entry points of CXmlObjectBase:
///
///     Gpx::CGpx gpx;
///     gpx.FromXmlFile(u"track.gpx", CXmlSerializationContext::GetDefaultContext());
///     for (Gpx::CTrack* track : *gpx.GetTracks()) ...
///     gpx.ToXmlFile(u"out.gpx", true, true, enc_UTF8, eol_LF, gpx.WritingContext(), cmp_None);
///
/// What breaks the schema is refused on reading, with a CBxException that says what it is.
class CGpx : public CGpxClass<CGpx> {
public:
    CGpx();

    /// A context for writing the document as it is now, which takes a walk over it. The namespace of GPX is the
    /// default one, unless an extension has an element in no namespace, which has no prefix to tell it from GPX.
    /// Each namespace has an alias too, as readers of Fast Infoset want it.
    /// @throws CBxException for what cannot be written
    CXmlSerializationContext WritingContext() const;

    /// The program that made the document.
    wstring const& GetCreator() const { return m_creator; }
    void SetCreator(wstring creator) { m_creator = std::move(creator); }

    /// Null for none.
    CSmartPtr<CMetadata> GetMetadata() const { return m_metadata; }
    void SetMetadata(CMetadata* metadata) { StoreObject(m_metadata, metadata, u"metadata"); }

    /// The collections themselves, never null.
    CSmartPtr<CWaypointCol> GetWaypoints() const { return m_waypoints; }
    CSmartPtr<CRouteCol> GetRoutes() const { return m_routes; }
    CSmartPtr<CTrackCol> GetTracks() const { return m_tracks; }

    /// Null for none.
    CSmartPtr<CExtensions> GetExtensions() const { return m_extensions; }
    void SetExtensions(CExtensions* extensions) { StoreObject(m_extensions, extensions, u"extensions"); }

    static MetaData Describe();

protected:
    /// @throws CBxValidationException if the element is not the root of GPX
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;
    using CXmlObjectBase::FromXml_Int;

    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    void ResetContent() override;

private:
    enum Property { kMetadata, kWaypoints, kRoutes, kTracks, kExtensions, kVersionAttribute, kCreator };

    wstring m_version;
    wstring m_creator;
    CSmartPtr<CMetadata> m_metadata;
    CSmartPtr<CWaypointCol> m_waypoints;
    CSmartPtr<CRouteCol> m_routes;
    CSmartPtr<CTrackCol> m_tracks;
    CSmartPtr<CExtensions> m_extensions;
};

}  // namespace Gpx
