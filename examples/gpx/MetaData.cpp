#include "MetaData.h"

#include <algorithm>

#include "CGpxFactory.h"

namespace Gpx {

namespace {

/// A table as the library wants it, ended by a null.
template <class Row>
Row** TableOf(std::initializer_list<Row*> rows) {
    Row** const table = new Row*[rows.size() + 1]();
    std::copy(rows.begin(), rows.end(), table);
    return table;
}

CPrimitiveRestrictions Range(char16_t const* minInclusive, char16_t const* maxInclusive,
                             char16_t const* maxExclusive) {
    return {u"", -1, -1, minInclusive, maxInclusive, u"", maxExclusive, -1};
}

/// The whitespace rule of the built-in types of XML Schema.
CWhitespaceUtils::WhitespaceRule RuleOf(ItemType type) {
    return type == it_string ? CWhitespaceUtils::ws_Preserve : CWhitespaceUtils::ws_Collapse;
}

}  // namespace

MetaData::MetaData(char16_t const* typeName, std::initializer_list<CElementInfo*> elements,
                   std::initializer_list<CAttributeInfo*> attributes)
    : m_class(new CParentElementInfo(egt_Sequence, et_Element, typeName, kNamespace, -1, true, false)),
      m_elements(TableOf(elements)),
      m_attributes(TableOf(attributes)),
      m_elementCount(static_cast<int>(elements.size())) {}

CElementInfo* Element(char16_t const* name, int property, ItemType type,
                      CPrimitiveRestrictions const& facets) {
    return new CElementInfoSeqPrimOpt(name, kNamespace, property, type, nullptr, RuleOf(type), facets);
}

CAttributeInfo* Attribute(char16_t const* name, int property, ItemType type,
                          CPrimitiveRestrictions const& facets) {
    return new CAttributeInfoPrimitive(name, u"", property, false, type, nullptr, RuleOf(type), facets, u"");
}

CElementInfo* UriElement(char16_t const* name, int property) {
    return new CElementInfoSeqPrimOpt(name, kNamespace, property, it_string, nullptr,
                                      CWhitespaceUtils::ws_Collapse, {});
}

CAttributeInfo* UriAttribute(char16_t const* name, int property) {
    return new CAttributeInfoPrimitive(name, u"", property, false, it_string, nullptr,
                                       CWhitespaceUtils::ws_Collapse, {}, u"");
}

CElementInfo* ObjectElement(char16_t const* name, int property, int classId) {
    return new CElementInfoSeqClsOpt(name, kNamespace, property, et_Element, CGpxFactory::Create, classId);
}

CElementInfo* CollectionElement(char16_t const* name, int property) {
    return new CElementInfoSeqClsCol(name, kNamespace, property, et_Element);
}

CPrimitiveRestrictions LatitudeFacets() {
    return Range(u"-90", u"90", u"");
}
CPrimitiveRestrictions LongitudeFacets() {
    return Range(u"-180", u"", u"180");
}
CPrimitiveRestrictions DegreesFacets() {
    return Range(u"0", u"", u"360");
}
CPrimitiveRestrictions DgpsStationFacets() {
    return Range(u"0", u"1023", u"");
}
CPrimitiveRestrictions NonNegativeFacets() {
    return Range(u"0", u"", u"");
}
CPrimitiveRestrictions VersionFacets() {
    return {u"1\\.1", -1, -1, u"", u"", u"", u"", -1};
}

}  // namespace Gpx
