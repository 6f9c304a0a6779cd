// Written by hand in the form that bxgen generates.
#pragma once

#include "BxXmlLib5/generated/Generated.h"

namespace Gpx {

namespace Bx = BxXmlLib5::Generated;
namespace Xs = Bx::Xs;

/// The namespace http://www.topografix.com/GPX/1/1.
inline constexpr char16_t kNamespace[] = u"http://www.topografix.com/GPX/1/1";

class CCopyright;
class CBounds;

extern Bx::Set const kSet;

struct Latitude : Bx::Restriction<Xs::decimal> {
    static constexpr Bx::Facets kFacets{.minInclusive = u"-90.0", .maxInclusive = u"90.0"};
};
struct Longitude : Bx::Restriction<Xs::decimal> {
    static constexpr Bx::Facets kFacets{.minInclusive = u"-180.0", .maxExclusive = u"180.0"};
};
struct Degrees : Bx::Restriction<Xs::decimal> {
    static constexpr Bx::Facets kFacets{.minInclusive = u"0.0", .maxExclusive = u"360.0"};
};
struct DgpsStation : Bx::Restriction<Xs::unsignedShort> {
    static constexpr Bx::Facets kFacets{.maxInclusive = u"1023"};
};
enum class Fix { None, N2d, N3d, Dgps, Pps };
struct FixType : Bx::Enumeration<Fix> {
    static constexpr char16_t const* kTexts[] = {u"none", u"2d", u"3d", u"dgps", u"pps"};
};

/// extensionsType
class CExtensions : public Bx::CObject {
public:
    Bx::AnyElements Any;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// linkType
class CLink : public Bx::CObject {
public:
    Bx::Optional<Xs::string> Text;
    Bx::Optional<Xs::string> Type;
    Bx::Required<Xs::anyURI> Href;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// emailType
class CEmail : public Bx::CObject {
public:
    Bx::Required<Xs::string> Id;
    Bx::Required<Xs::string> Domain;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// personType
class CPerson : public Bx::CObject {
public:
    Bx::Optional<Xs::string> Name;
    Bx::Object<CEmail> Email;
    Bx::Object<CLink> Link;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// copyrightType
class CCopyright : public Bx::CObject {
public:
    Bx::Optional<Xs::gYear> Year;
    Bx::Optional<Xs::anyURI> License;
    Bx::Required<Xs::string> Author;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// boundsType
class CBounds : public Bx::CObject {
public:
    Bx::Required<Latitude> Minlat;
    Bx::Required<Longitude> Minlon;
    Bx::Required<Latitude> Maxlat;
    Bx::Required<Longitude> Maxlon;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// metadataType
class CMetadata : public Bx::CObject {
public:
    Bx::Optional<Xs::string> Name;
    Bx::Optional<Xs::string> Desc;
    Bx::Object<CPerson> Author;
    Bx::Object<CCopyright> Copyright;
    Bx::Collection<CLink> Link;
    Bx::Optional<Xs::dateTime> Time;
    Bx::Optional<Xs::string> Keywords;
    Bx::Object<CBounds> Bounds;
    Bx::Object<CExtensions> Extensions;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// wptType. One position: used for wpt, rtept and trkpt alike.
class CWpt : public Bx::CObject {
public:
    Bx::Optional<Xs::decimal> Ele;
    Bx::Optional<Xs::dateTime> Time;
    Bx::Optional<Degrees> Magvar;
    Bx::Optional<Xs::decimal> Geoidheight;
    Bx::Optional<Xs::string> Name;
    Bx::Optional<Xs::string> Cmt;
    Bx::Optional<Xs::string> Desc;
    Bx::Optional<Xs::string> Src;
    Bx::Collection<CLink> Link;
    Bx::Optional<Xs::string> Sym;
    Bx::Optional<Xs::string> Type;
    Bx::Optional<FixType> Fix;
    Bx::Optional<Xs::nonNegativeInteger> Sat;
    Bx::Optional<Xs::decimal> Hdop;
    Bx::Optional<Xs::decimal> Vdop;
    Bx::Optional<Xs::decimal> Pdop;
    Bx::Optional<Xs::decimal> Ageofdgpsdata;
    Bx::Optional<DgpsStation> Dgpsid;
    Bx::Object<CExtensions> Extensions;
    Bx::Required<Latitude> Lat;
    Bx::Required<Longitude> Lon;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// rteType
class CRte : public Bx::CObject {
public:
    Bx::Optional<Xs::string> Name;
    Bx::Optional<Xs::string> Cmt;
    Bx::Optional<Xs::string> Desc;
    Bx::Optional<Xs::string> Src;
    Bx::Collection<CLink> Link;
    Bx::Optional<Xs::nonNegativeInteger> Number;
    Bx::Optional<Xs::string> Type;
    Bx::Object<CExtensions> Extensions;
    Bx::Collection<CWpt> Rtept;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// trksegType
class CTrkseg : public Bx::CObject {
public:
    Bx::Collection<CWpt> Trkpt;
    Bx::Object<CExtensions> Extensions;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// trkType
class CTrk : public Bx::CObject {
public:
    Bx::Optional<Xs::string> Name;
    Bx::Optional<Xs::string> Cmt;
    Bx::Optional<Xs::string> Desc;
    Bx::Optional<Xs::string> Src;
    Bx::Collection<CLink> Link;
    Bx::Optional<Xs::nonNegativeInteger> Number;
    Bx::Optional<Xs::string> Type;
    Bx::Object<CExtensions> Extensions;
    Bx::Collection<CTrkseg> Trkseg;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// gpxType, the element gpx
class CGpx : public Bx::Root<Bx::CObject> {
public:
    Bx::Object<CMetadata> Metadata;
    Bx::Collection<CWpt> Wpt;
    Bx::Collection<CRte> Rte;
    Bx::Collection<CTrk> Trk;
    Bx::Object<CExtensions> Extensions;
    Bx::Fixed<Xs::string, u"1.1"> Version;
    Bx::Required<Xs::string> Creator;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

}  // namespace Gpx
