// clang-format off
#include "Gpx.h"

namespace Gpx {

static_assert(Bx::kVersion == 1);

namespace {

constexpr Bx::Row kExtensionsRows[] = {
        Bx::Sequence,
            Bx::Any<&CExtensions::Any>(u"##other"),
        Bx::End,
};
constexpr Bx::Row kLinkRows[] = {
        Bx::Sequence,
            Bx::Element<&CLink::Text>(u"text"),
            Bx::Element<&CLink::Type>(u"type"),
        Bx::End,
        Bx::Attribute<&CLink::Href>(u"href"),
};
constexpr Bx::Row kEmailRows[] = {
        Bx::Sequence,
        Bx::End,
        Bx::Attribute<&CEmail::Id>(u"id"),
        Bx::Attribute<&CEmail::Domain>(u"domain"),
};
constexpr Bx::Row kPersonRows[] = {
        Bx::Sequence,
            Bx::Element<&CPerson::Name>(u"name"),
            Bx::Element<&CPerson::Email>(u"email"),
            Bx::Element<&CPerson::Link>(u"link"),
        Bx::End,
};
constexpr Bx::Row kCopyrightRows[] = {
        Bx::Sequence,
            Bx::Element<&CCopyright::Year>(u"year"),
            Bx::Element<&CCopyright::License>(u"license"),
        Bx::End,
        Bx::Attribute<&CCopyright::Author>(u"author"),
};
constexpr Bx::Row kBoundsRows[] = {
        Bx::Sequence,
        Bx::End,
        Bx::Attribute<&CBounds::Minlat>(u"minlat"),
        Bx::Attribute<&CBounds::Minlon>(u"minlon"),
        Bx::Attribute<&CBounds::Maxlat>(u"maxlat"),
        Bx::Attribute<&CBounds::Maxlon>(u"maxlon"),
};
constexpr Bx::Row kMetadataRows[] = {
        Bx::Sequence,
            Bx::Element<&CMetadata::Name>(u"name"),
            Bx::Element<&CMetadata::Desc>(u"desc"),
            Bx::Element<&CMetadata::Author>(u"author"),
            Bx::Element<&CMetadata::Copyright>(u"copyright"),
            Bx::Element<&CMetadata::Link>(u"link"),
            Bx::Element<&CMetadata::Time>(u"time"),
            Bx::Element<&CMetadata::Keywords>(u"keywords"),
            Bx::Element<&CMetadata::Bounds>(u"bounds"),
            Bx::Element<&CMetadata::Extensions>(u"extensions"),
        Bx::End,
};
constexpr Bx::Row kWptRows[] = {
        Bx::Sequence,
            Bx::Element<&CWpt::Ele>(u"ele"),
            Bx::Element<&CWpt::Time>(u"time"),
            Bx::Element<&CWpt::Magvar>(u"magvar"),
            Bx::Element<&CWpt::Geoidheight>(u"geoidheight"),
            Bx::Element<&CWpt::Name>(u"name"),
            Bx::Element<&CWpt::Cmt>(u"cmt"),
            Bx::Element<&CWpt::Desc>(u"desc"),
            Bx::Element<&CWpt::Src>(u"src"),
            Bx::Element<&CWpt::Link>(u"link"),
            Bx::Element<&CWpt::Sym>(u"sym"),
            Bx::Element<&CWpt::Type>(u"type"),
            Bx::Element<&CWpt::Fix>(u"fix"),
            Bx::Element<&CWpt::Sat>(u"sat"),
            Bx::Element<&CWpt::Hdop>(u"hdop"),
            Bx::Element<&CWpt::Vdop>(u"vdop"),
            Bx::Element<&CWpt::Pdop>(u"pdop"),
            Bx::Element<&CWpt::Ageofdgpsdata>(u"ageofdgpsdata"),
            Bx::Element<&CWpt::Dgpsid>(u"dgpsid"),
            Bx::Element<&CWpt::Extensions>(u"extensions"),
        Bx::End,
        Bx::Attribute<&CWpt::Lat>(u"lat"),
        Bx::Attribute<&CWpt::Lon>(u"lon"),
};
constexpr Bx::Row kRteRows[] = {
        Bx::Sequence,
            Bx::Element<&CRte::Name>(u"name"),
            Bx::Element<&CRte::Cmt>(u"cmt"),
            Bx::Element<&CRte::Desc>(u"desc"),
            Bx::Element<&CRte::Src>(u"src"),
            Bx::Element<&CRte::Link>(u"link"),
            Bx::Element<&CRte::Number>(u"number"),
            Bx::Element<&CRte::Type>(u"type"),
            Bx::Element<&CRte::Extensions>(u"extensions"),
            Bx::Element<&CRte::Rtept>(u"rtept"),
        Bx::End,
};
constexpr Bx::Row kTrksegRows[] = {
        Bx::Sequence,
            Bx::Element<&CTrkseg::Trkpt>(u"trkpt"),
            Bx::Element<&CTrkseg::Extensions>(u"extensions"),
        Bx::End,
};
constexpr Bx::Row kTrkRows[] = {
        Bx::Sequence,
            Bx::Element<&CTrk::Name>(u"name"),
            Bx::Element<&CTrk::Cmt>(u"cmt"),
            Bx::Element<&CTrk::Desc>(u"desc"),
            Bx::Element<&CTrk::Src>(u"src"),
            Bx::Element<&CTrk::Link>(u"link"),
            Bx::Element<&CTrk::Number>(u"number"),
            Bx::Element<&CTrk::Type>(u"type"),
            Bx::Element<&CTrk::Extensions>(u"extensions"),
            Bx::Element<&CTrk::Trkseg>(u"trkseg"),
        Bx::End,
};
constexpr Bx::Row kGpxRows[] = {
        Bx::Sequence,
            Bx::Element<&CGpx::Metadata>(u"metadata"),
            Bx::Element<&CGpx::Wpt>(u"wpt"),
            Bx::Element<&CGpx::Rte>(u"rte"),
            Bx::Element<&CGpx::Trk>(u"trk"),
            Bx::Element<&CGpx::Extensions>(u"extensions"),
        Bx::End,
        Bx::Attribute<&CGpx::Version>(u"version", u"", 1),
        Bx::Attribute<&CGpx::Creator>(u"creator"),
};
}  // namespace

constinit Bx::Set const kSet{};
constinit Bx::Class const CExtensions::kClass = Bx::Describe<CExtensions>(kSet, u"extensionsType", kNamespace, kExtensionsRows);
Bx::Class const& CExtensions::Describe() const { return kClass; }
constinit Bx::Class const CLink::kClass = Bx::Describe<CLink>(kSet, u"linkType", kNamespace, kLinkRows);
Bx::Class const& CLink::Describe() const { return kClass; }
constinit Bx::Class const CEmail::kClass = Bx::Describe<CEmail>(kSet, u"emailType", kNamespace, kEmailRows);
Bx::Class const& CEmail::Describe() const { return kClass; }
constinit Bx::Class const CPerson::kClass = Bx::Describe<CPerson>(kSet, u"personType", kNamespace, kPersonRows);
Bx::Class const& CPerson::Describe() const { return kClass; }
constinit Bx::Class const CCopyright::kClass = Bx::Describe<CCopyright>(kSet, u"copyrightType", kNamespace, kCopyrightRows);
Bx::Class const& CCopyright::Describe() const { return kClass; }
constinit Bx::Class const CBounds::kClass = Bx::Describe<CBounds>(kSet, u"boundsType", kNamespace, kBoundsRows);
Bx::Class const& CBounds::Describe() const { return kClass; }
constinit Bx::Class const CMetadata::kClass = Bx::Describe<CMetadata>(kSet, u"metadataType", kNamespace, kMetadataRows);
Bx::Class const& CMetadata::Describe() const { return kClass; }
constinit Bx::Class const CWpt::kClass = Bx::Describe<CWpt>(kSet, u"wptType", kNamespace, kWptRows);
Bx::Class const& CWpt::Describe() const { return kClass; }
constinit Bx::Class const CRte::kClass = Bx::Describe<CRte>(kSet, u"rteType", kNamespace, kRteRows);
Bx::Class const& CRte::Describe() const { return kClass; }
constinit Bx::Class const CTrkseg::kClass = Bx::Describe<CTrkseg>(kSet, u"trksegType", kNamespace, kTrksegRows);
Bx::Class const& CTrkseg::Describe() const { return kClass; }
constinit Bx::Class const CTrk::kClass = Bx::Describe<CTrk>(kSet, u"trkType", kNamespace, kTrkRows);
Bx::Class const& CTrk::Describe() const { return kClass; }
constinit Bx::Class const CGpx::kClass = Bx::Describe<CGpx>(kSet, u"gpx", kNamespace, kGpxRows);
Bx::Class const& CGpx::Describe() const { return kClass; }

}
