#include "CGpx.h"

#include <set>
#include <string>

#include "CGpxFactory.h"

namespace Gpx {

namespace {

constexpr char16_t kRoot[] = u"gpx";
constexpr char16_t kXmlNamespace[] = u"http://www.w3.org/XML/1998/namespace";

/// Writes nothing, and finds out which namespaces a document has.
class CNamespaceSurvey : public CXmlWriter {
public:
    CNamespaceSurvey() : CXmlWriter(u"CNamespaceSurvey") {}

    void WriteStartElement(wstring const&, wstring const& ns) override {
        m_hasElementWithoutNamespace |= ns.empty();
        Enter(ns);
    }
    void WriteAttribute(wstring const&, wstring const& ns, wstring const&) override { Enter(ns); }
    void WriteXsiType(wstring const& ns, wstring const&) override { Enter(ns); }
    void WriteText(wstring const&) override {}
    void WriteEndElement() override {}
    void WriteComment(wstring const&) override {}
    void WriteProcessingInstruction(wstring const&) override {}
    void WriteInLineSchema(wstring const&) override {}

    bool m_hasElementWithoutNamespace = false;
    std::set<wstring> m_foreign;  // neither that of GPX nor that of XML

private:
    void Enter(wstring const& ns) {
        if (!ns.empty() && ns != kNamespace && ns != kXmlNamespace) m_foreign.insert(ns);
    }
};

/// The one version of GPX that the schema admits.
constexpr char16_t kVersion[] = u"1.1";

}  // namespace

CGpx::CGpx() : CGpxClass(kRoot) {
    CGpx::ResetContent();
}

CXmlSerializationContext CGpx::WritingContext() const {
    CNamespaceSurvey survey;
    CXmlSerializationContext context;
    ToXml_Int(&survey, true, kNamespace, context, false);
    if (!survey.m_hasElementWithoutNamespace) context.SetDefaultNamespaceURI(kNamespace);
    CNamespaceAliasMap& aliases = context.GetNamespaceAliases();
    aliases.Add(kRoot, kNamespace);
    for (wstring const& ns : survey.m_foreign) {
        std::string const number = std::to_string(aliases.GetNamespaceCount());
        aliases.Add(FromUtf8("ns" + number).c_str(), ns.c_str());
    }
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
