#include "CTrack.h"

namespace Gpx {

CTrackSegment::CTrackSegment(char16_t const* elementName) : CGpxClass(elementName) {
    CTrackSegment::ResetContent();
}

MetaData CTrackSegment::Describe() {
    return {u"trksegType",
            {CollectionElement(u"trkpt", kPoints),
             ObjectElement(u"extensions", kExtensions, CGpxFactory::kExtensions)},
            {}};
}

void CTrackSegment::AccessProperty(int propertyIndex, bool read, BxVariant& value) {
    switch (propertyIndex) {
        case kPoints:
            return ExchangeCollection(read, value, m_points);
        case kExtensions:
            return ExchangeObject(read, value, m_extensions);
    }
}

void CTrackSegment::ResetContent() {
    m_points = new CWaypointCol(u"trkpt");
    m_extensions = nullptr;
}

}  // namespace Gpx
