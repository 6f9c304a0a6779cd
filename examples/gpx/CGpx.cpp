#include "CGpx.h"

#include "CGpxFactory.h"

namespace Gpx {

namespace {

constexpr char16_t kRoot[] = u"gpx";

/// The one version of GPX that the schema admits.
constexpr char16_t kVersion[] = u"1.1";

}  // namespace

CGpx::CGpx() : CGpxClass(kRoot) {
    CGpx::ResetContent();
}

CXmlSerializationContext CGpx::WritingContext() {
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(kNamespace);
    return context;
}

MetaData CGpx::Describe() {
    return {u"gpxType",
            {
                ObjectElement(u"metadata", kMetadata, CGpxFactory::kMetadata),
                CollectionElement(u"wpt", kWaypoints),
                CollectionElement(u"rte", kRoutes),
                CollectionElement(u"trk", kTracks),
                ObjectElement(u"extensions", kExtensions, CGpxFactory::kExtensions),
            },
            {
                Attribute(u"version", kVersionAttribute, it_string, VersionFacets()),
                Attribute(u"creator", kCreator, it_string),
            }};
}

CXmlElement* CGpx::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                               CXmlSerializationContext const& context, bool allowEmptyChoice) {
    // The library reads a root whatever its name.
    if (!DoesElementNameMatch(context, element, kRoot, kNamespace)) {
        throw CBxValidationException(FormatString(u"The element [%s] is not the root of a GPX 1.1 document",
                                                  element->GetLocalName().c_str()));
    }
    return CGpxClass::FromXml_Int(element, firstChild, context, allowEmptyChoice);
}

void CGpx::AccessProperty(int propertyIndex, bool read, BxVariant& value) {
    switch (propertyIndex) {
        case kMetadata:
            return ExchangeObject(read, value, m_metadata);
        case kWaypoints:
            return ExchangeCollection(read, value, m_waypoints);
        case kRoutes:
            return ExchangeCollection(read, value, m_routes);
        case kTracks:
            return ExchangeCollection(read, value, m_tracks);
        case kExtensions:
            return ExchangeObject(read, value, m_extensions);
        case kVersionAttribute:
            return ExchangeChecked(kVersionAttribute, read, value, m_version);
        case kCreator:
            return Exchange(read, value, m_creator);
    }
}

void CGpx::ResetContent() {
    m_version = kVersion;
    m_creator.clear();
    m_metadata = nullptr;
    m_waypoints = new CWaypointCol(u"wpt");
    m_routes = new CRouteCol(u"rte");
    m_tracks = new CTrackCol(u"trk");
    m_extensions = nullptr;
}

}  // namespace Gpx
