#include "CMetadata.h"

#include "CGpxFactory.h"

namespace Gpx {

MetaData CCopyright::Describe() {
    return {u"copyrightType",
            {Element(u"year", kYear, it_year), UriElement(u"license", kLicense)},
            {Attribute(u"author", kAuthor, it_string)}};
}

void CCopyright::AccessProperty(int propertyIndex, bool read, BxVariant& value) {
    switch (propertyIndex) {
        case kYear:
            // A plain number, like others of 16 bits.
            if (!read) return m_year.Set(value.GetYear());
            if (m_year.Has()) value.SetYear(m_year.Get());
            return;
        case kLicense:
            return Exchange(read, value, m_license);
        case kAuthor:
            return Exchange(read, value, m_author);
    }
}

void CCopyright::ResetContent() {
    m_author.clear();
    m_year.Clear();
    m_license.Clear();
}

MetaData CBounds::Describe() {
    return {u"boundsType",
            {},
            {Attribute(u"minlat", kMinLatitude, it_decimal, LatitudeFacets()),
             Attribute(u"minlon", kMinLongitude, it_decimal, LongitudeFacets()),
             Attribute(u"maxlat", kMaxLatitude, it_decimal, LatitudeFacets()),
             Attribute(u"maxlon", kMaxLongitude, it_decimal, LongitudeFacets())}};
}

void CBounds::AccessProperty(int propertyIndex, bool read, BxVariant& value) {
    switch (propertyIndex) {
        case kMinLatitude:
            return ExchangeChecked(kMinLatitude, read, value, m_minLatitude);
        case kMinLongitude:
            return ExchangeChecked(kMinLongitude, read, value, m_minLongitude);
        case kMaxLatitude:
            return ExchangeChecked(kMaxLatitude, read, value, m_maxLatitude);
        case kMaxLongitude:
            return ExchangeChecked(kMaxLongitude, read, value, m_maxLongitude);
    }
}

void CBounds::ResetContent() {
    m_minLatitude = m_minLongitude = m_maxLatitude = m_maxLongitude = CDecimal();
}

CMetadata::CMetadata(char16_t const* elementName) : CGpxClass(elementName) {
    CMetadata::ResetContent();
}

MetaData CMetadata::Describe() {
    return {u"metadataType",
            {
                Element(u"name", kName, it_string),
                Element(u"desc", kDescription, it_string),
                ObjectElement(u"author", kAuthor, CGpxFactory::kPerson),
                ObjectElement(u"copyright", kCopyright, CGpxFactory::kCopyright),
                CollectionElement(u"link", kLinks),
                Element(u"time", kTime, it_datetime),
                Element(u"keywords", kKeywords, it_string),
                ObjectElement(u"bounds", kBounds, CGpxFactory::kBounds),
                ObjectElement(u"extensions", kExtensions, CGpxFactory::kExtensions),
            },
            {}};
}

void CMetadata::AccessProperty(int propertyIndex, bool read, BxVariant& value) {
    switch (propertyIndex) {
        case kName:
            return Exchange(read, value, m_name);
        case kDescription:
            return Exchange(read, value, m_description);
        case kAuthor:
            return ExchangeObject(read, value, m_author);
        case kCopyright:
            return ExchangeObject(read, value, m_copyright);
        case kLinks:
            return ExchangeCollection(read, value, m_links);
        case kTime:
            return Exchange(read, value, m_time);
        case kKeywords:
            return Exchange(read, value, m_keywords);
        case kBounds:
            return ExchangeObject(read, value, m_bounds);
        case kExtensions:
            return ExchangeObject(read, value, m_extensions);
    }
}

void CMetadata::ResetContent() {
    m_name.Clear();
    m_description.Clear();
    m_author = nullptr;
    m_copyright = nullptr;
    m_links = new CLinkCol(u"link");
    m_time.Clear();
    m_keywords.Clear();
    m_bounds = nullptr;
    m_extensions = nullptr;
}

}  // namespace Gpx
