#include "CWaypoint.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "CGpxFactory.h"

namespace Gpx {

namespace {

/// By the values of Fix.
constexpr char16_t const* kFixes[] = {u"none", u"2d", u"3d", u"dgps", u"pps"};

char16_t const* FixToString(int value) {
    return value >= 0 && value < std::ssize(kFixes) ? kFixes[value] : nullptr;
}

int StringToFix(char16_t const* text) {
    auto const* const fix = std::ranges::find(kFixes, std::u16string_view(text));
    if (fix == std::end(kFixes)) {
        throw CBxInvalidValueException(FormatString(u"The value [%s] is no type of fix", text));
    }
    return static_cast<int>(fix - kFixes);
}

}  // namespace

CSmartPtr<CLinkCol> CWaypoint::GetLinks() {
    if (!m_links) m_links = new CLinkCol(u"link");
    return m_links;
}

MetaData CWaypoint::Describe() {
    return {u"wptType",
            {
                Element(u"ele", kElevation, it_decimal),
                Element(u"time", kTime, it_datetime),
                Element(u"magvar", kMagneticVariation, it_decimal, DegreesFacets()),
                Element(u"geoidheight", kGeoidHeight, it_decimal),
                Element(u"name", kName, it_string),
                Element(u"cmt", kComment, it_string),
                Element(u"desc", kDescription, it_string),
                Element(u"src", kSource, it_string),
                CollectionElement(u"link", kLinks),
                Element(u"sym", kSymbol, it_string),
                Element(u"type", kType, it_string),
                new CElementInfoSeqEnumOpt(u"fix", kNamespace, kFix, FixToString, StringToFix),
                Element(u"sat", kSatellites, it_integer, NonNegativeFacets()),
                Element(u"hdop", kHdop, it_decimal),
                Element(u"vdop", kVdop, it_decimal),
                Element(u"pdop", kPdop, it_decimal),
                Element(u"ageofdgpsdata", kAgeOfDgpsData, it_decimal),
                Element(u"dgpsid", kDgpsId, it_ui2, DgpsStationFacets()),
                ObjectElement(u"extensions", kExtensions, CGpxFactory::kExtensions),
            },
            {
                Attribute(u"lat", kLatitude, it_decimal, LatitudeFacets()),
                Attribute(u"lon", kLongitude, it_decimal, LongitudeFacets()),
            }};
}

void CWaypoint::AccessProperty(int propertyIndex, bool read, BxVariant& value) {
    switch (propertyIndex) {
        case kElevation:
            return Exchange(read, value, m_elevation);
        case kTime:
            return Exchange(read, value, m_time);
        case kMagneticVariation:
            return ExchangeChecked(kMagneticVariation, read, value, m_magneticVariation);
        case kGeoidHeight:
            return Exchange(read, value, m_geoidHeight);
        case kName:
            return Exchange(read, value, m_name);
        case kComment:
            return Exchange(read, value, m_comment);
        case kDescription:
            return Exchange(read, value, m_description);
        case kSource:
            return Exchange(read, value, m_source);
        case kLinks:
            return ExchangeCollection(read, value, GetLinks());
        case kSymbol:
            return Exchange(read, value, m_symbol);
        case kType:
            return Exchange(read, value, m_type);
        case kFix:
            return Exchange(read, value, m_fix);
        case kSatellites:
            return ExchangeChecked(kSatellites, read, value, m_satellites);
        case kHdop:
            return Exchange(read, value, m_hdop);
        case kVdop:
            return Exchange(read, value, m_vdop);
        case kPdop:
            return Exchange(read, value, m_pdop);
        case kAgeOfDgpsData:
            return Exchange(read, value, m_ageOfDgpsData);
        case kDgpsId:
            return ExchangeChecked(kDgpsId, read, value, m_dgpsId);
        case kExtensions:
            return ExchangeObject(read, value, m_extensions);
        case kLatitude:
            return ExchangeChecked(kLatitude, read, value, m_latitude);
        case kLongitude:
            return ExchangeChecked(kLongitude, read, value, m_longitude);
    }
}

void CWaypoint::ResetContent() {
    m_longitude = CDecimal();
    m_latitude = CDecimal();
    m_elevation.Clear();
    m_time.Clear();
    m_magneticVariation.Clear();
    m_geoidHeight.Clear();
    m_name.Clear();
    m_comment.Clear();
    m_description.Clear();
    m_source.Clear();
    m_links = nullptr;
    m_symbol.Clear();
    m_type.Clear();
    m_fix.Clear();
    m_satellites.Clear();
    m_hdop.Clear();
    m_vdop.Clear();
    m_pdop.Clear();
    m_ageOfDgpsData.Clear();
    m_dgpsId.Clear();
    m_extensions = nullptr;
}

}  // namespace Gpx
