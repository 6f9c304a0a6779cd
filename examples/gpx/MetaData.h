// How the metadata of the classes are made.
#pragma once

#include <initializer_list>

#include "BxXmlLib5/BxXmlLib5.h"

namespace Gpx {

using namespace BxXmlLib5;
using namespace BxXmlLib5Data;

/// The namespace of GPX 1.1.
inline constexpr char16_t kNamespace[] = u"http://www.topografix.com/GPX/1/1";

/// What a class tells the library of itself. CleanMetaData() takes the three pointers back.
struct MetaData {
    MetaData(char16_t const* typeName, std::initializer_list<CElementInfo*> elements,
             std::initializer_list<CAttributeInfo*> attributes);

    CParentElementInfo* m_class;
    CElementInfo** m_elements;
    CAttributeInfo** m_attributes;
    int m_elementCount;
};

/// @name Rows of the tables
/// In the namespace of GPX for elements, in none for attributes. The caller owns the row.
/// @{

/// An optional element of simple type.
CElementInfo* Element(char16_t const* name, int property, ItemType type,
                      CPrimitiveRestrictions const& facets = {});
/// A required attribute of simple type.
CAttributeInfo* Attribute(char16_t const* name, int property, ItemType type,
                          CPrimitiveRestrictions const& facets = {});
/// The same of type anyURI, a string whose whitespace is collapsed.
CElementInfo* UriElement(char16_t const* name, int property);
CAttributeInfo* UriAttribute(char16_t const* name, int property);

/// An element of a class, of which there is one object at most.
/// @param classId as CGpxFactory numbers the classes
CElementInfo* ObjectElement(char16_t const* name, int property, int classId);
/// A collection of objects.
CElementInfo* CollectionElement(char16_t const* name, int property);
/// @}

/// @name Simple types with facets
/// @{
CPrimitiveRestrictions LatitudeFacets();     ///< latitudeType: -90 to 90
CPrimitiveRestrictions LongitudeFacets();    ///< longitudeType: -180 to below 180
CPrimitiveRestrictions DegreesFacets();      ///< degreesType: 0 to below 360
CPrimitiveRestrictions DgpsStationFacets();  ///< dgpsStationType: 0 to 1023
CPrimitiveRestrictions NonNegativeFacets();  ///< nonNegativeInteger: from 0
CPrimitiveRestrictions VersionFacets();      ///< the version of GPX: 1.1
/// @}

}  // namespace Gpx
