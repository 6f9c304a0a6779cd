#include "schema/BuiltInTypes.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "schema/SimpleTypes.h"
#include "schema/Text.h"

namespace BxGen {

namespace {

/// A built-in simple type: its name, what it restricts (or lists), whitespace, and facets NAME=VALUE.
struct TypeRow {
    BuiltIn m_type;
    std::string_view m_name;
    BuiltIn m_base;
    WhiteSpace m_whiteSpace;
    std::string_view m_facets;
    bool m_isList = false;
};

constexpr auto kPreserve = WhiteSpace::kPreserve;
constexpr auto kReplace = WhiteSpace::kReplace;
constexpr auto kCollapse = WhiteSpace::kCollapse;

// clang-format off
/// Part 2, section 3, with the facets of the schema for schemas.
constexpr TypeRow kTypeRows[] = {
    {BuiltIn::kAnySimpleType,      "anySimpleType",      BuiltIn::kAnyType,            kPreserve, ""},
    {BuiltIn::kString,             "string",             BuiltIn::kAnySimpleType,      kPreserve, ""},
    {BuiltIn::kBoolean,            "boolean",            BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kDecimal,            "decimal",            BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kFloat,              "float",              BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kDouble,             "double",             BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kDuration,           "duration",           BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kDateTime,           "dateTime",           BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kTime,               "time",               BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kDate,               "date",               BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kGYearMonth,         "gYearMonth",         BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kGYear,              "gYear",              BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kGMonthDay,          "gMonthDay",          BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kGDay,               "gDay",               BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kGMonth,             "gMonth",             BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kHexBinary,          "hexBinary",          BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kBase64Binary,       "base64Binary",       BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kAnyUri,             "anyURI",             BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kQName,              "QName",              BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kNotation,           "NOTATION",           BuiltIn::kAnySimpleType,      kCollapse, ""},
    {BuiltIn::kNormalizedString,   "normalizedString",   BuiltIn::kString,             kReplace,  ""},
    {BuiltIn::kToken,              "token",              BuiltIn::kNormalizedString,   kCollapse, ""},
    {BuiltIn::kLanguage,           "language",           BuiltIn::kToken,              kCollapse, R"(pattern=[a-zA-Z]{1,8}(-[a-zA-Z0-9]{1,8})*)"},
    {BuiltIn::kNmToken,            "NMTOKEN",            BuiltIn::kToken,              kCollapse, R"(pattern=\c+)"},
    {BuiltIn::kNmTokens,           "NMTOKENS",           BuiltIn::kNmToken,            kCollapse, "minLength=1", true},
    {BuiltIn::kName,               "Name",               BuiltIn::kToken,              kCollapse, R"(pattern=\i\c*)"},
    {BuiltIn::kNcName,             "NCName",             BuiltIn::kName,               kCollapse, R"(pattern=[\i-[:]][\c-[:]]*)"},
    {BuiltIn::kId,                 "ID",                 BuiltIn::kNcName,             kCollapse, ""},
    {BuiltIn::kIdRef,              "IDREF",              BuiltIn::kNcName,             kCollapse, ""},
    {BuiltIn::kIdRefs,             "IDREFS",             BuiltIn::kIdRef,              kCollapse, "minLength=1", true},
    {BuiltIn::kEntity,             "ENTITY",             BuiltIn::kNcName,             kCollapse, ""},
    {BuiltIn::kEntities,           "ENTITIES",           BuiltIn::kEntity,             kCollapse, "minLength=1", true},
    {BuiltIn::kInteger,            "integer",            BuiltIn::kDecimal,            kCollapse, R"(fractionDigits=0 pattern=[\-+]?[0-9]+)"},
    {BuiltIn::kNonPositiveInteger, "nonPositiveInteger", BuiltIn::kInteger,            kCollapse, "maxInclusive=0"},
    {BuiltIn::kNegativeInteger,    "negativeInteger",    BuiltIn::kNonPositiveInteger, kCollapse, "maxInclusive=-1"},
    {BuiltIn::kLong,               "long",               BuiltIn::kInteger,            kCollapse, "minInclusive=-9223372036854775808 maxInclusive=9223372036854775807"},
    {BuiltIn::kInt,                "int",                BuiltIn::kLong,               kCollapse, "minInclusive=-2147483648 maxInclusive=2147483647"},
    {BuiltIn::kShort,              "short",              BuiltIn::kInt,                kCollapse, "minInclusive=-32768 maxInclusive=32767"},
    {BuiltIn::kByte,               "byte",               BuiltIn::kShort,              kCollapse, "minInclusive=-128 maxInclusive=127"},
    {BuiltIn::kNonNegativeInteger, "nonNegativeInteger", BuiltIn::kInteger,            kCollapse, "minInclusive=0"},
    {BuiltIn::kUnsignedLong,       "unsignedLong",       BuiltIn::kNonNegativeInteger, kCollapse, "maxInclusive=18446744073709551615"},
    {BuiltIn::kUnsignedInt,        "unsignedInt",        BuiltIn::kUnsignedLong,       kCollapse, "maxInclusive=4294967295"},
    {BuiltIn::kUnsignedShort,      "unsignedShort",      BuiltIn::kUnsignedInt,        kCollapse, "maxInclusive=65535"},
    {BuiltIn::kUnsignedByte,       "unsignedByte",       BuiltIn::kUnsignedShort,      kCollapse, "maxInclusive=255"},
    {BuiltIn::kPositiveInteger,    "positiveInteger",    BuiltIn::kNonNegativeInteger, kCollapse, "minInclusive=1"},
};
// clang-format on

ComplexType& MakeAnyType(SchemaStore& store) {
    auto& wildcard = store.Make<Wildcard>();
    wildcard.m_processContents = ProcessContents::kLax;
    auto& any = store.Make<Particle>();
    any.m_term = &wildcard;
    any.m_occurs = {0, Occurs::kUnbounded};
    auto& sequence = store.Make<ModelGroup>();
    sequence.m_particles.push_back(&any);
    auto& particle = store.Make<Particle>();
    particle.m_term = &sequence;

    auto& type = store.Make<WrittenComplexType>();
    type.m_builtIn = BuiltIn::kAnyType;
    type.m_name = {kXsdNamespace, "anyType"};
    type.m_derivation = kRestriction;
    type.m_content = ContentKind::kMixed;
    type.m_isMixed = true;
    type.m_particle = type.m_ownParticle = &particle;
    type.m_wildcard = type.m_ownWildcard = &wildcard;
    return type;
}

void AddFacet(SchemaStore& store, SimpleType& type, std::string_view text) {
    std::size_t const equals = text.find('=');
    std::string_view const name = text.substr(0, equals);
    auto& facet = store.Make<Facet>();
    for (int kind = 0; NameOf(facet.m_kind = static_cast<FacetKind>(kind)) != name;) ++kind;
    facet.m_value = text.substr(equals + 1);
    facet.m_isFixed = facet.m_kind == FacetKind::kFractionDigits;
    if (facet.m_kind == FacetKind::kMinLength) facet.m_number = 1;
    type.m_facets.push_back(&facet);
}

void AddType(SchemaStore& store, TypeRow const& row) {
    auto& type = store.Make<SimpleType>();
    type.m_builtIn = row.m_type;
    type.m_name = {kXsdNamespace, row.m_name};
    type.m_whiteSpace = row.m_whiteSpace;
    Type const* base = store.m_builtIns.at(row.m_isList ? BuiltIn::kAnySimpleType : row.m_base);
    type.m_base = base;
    type.m_derivation = row.m_isList ? kList : kRestriction;
    if (row.m_isList) {
        type.m_variety = Variety::kList;
        type.m_item = store.m_builtIns.at(row.m_base)->AsSimple();
    } else {
        SimpleType const* const simple = base->AsSimple();
        bool const isPrimitive = simple == nullptr || row.m_base == BuiltIn::kAnySimpleType;
        type.m_primitive = isPrimitive ? row.m_type : simple->m_primitive;
    }
    for (std::string_view const facet : Items(row.m_facets)) AddFacet(store, type, facet);
    if (base->m_isSimple) InheritFacets(type, *base->AsSimple());
    SchemaStore::Mutable(*base).m_derived.push_back(&type);
    store.m_builtIns.emplace(row.m_type, &type);
    store.m_types.m_byName.emplace(type.m_name, &type);
}

constexpr std::string_view kXmlSchema = R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema"
    targetNamespace="http://www.w3.org/XML/1998/namespace">
  <xs:attribute name="lang">
    <xs:annotation><xs:documentation>The natural language of the content; empty takes it back.</xs:documentation></xs:annotation>
    <xs:simpleType>
      <xs:union memberTypes="xs:language">
        <xs:simpleType><xs:restriction base="xs:string"><xs:enumeration value=""/></xs:restriction></xs:simpleType>
      </xs:union>
    </xs:simpleType>
  </xs:attribute>
  <xs:attribute name="space">
    <xs:annotation><xs:documentation>Whether whitespace matters.</xs:documentation></xs:annotation>
    <xs:simpleType>
      <xs:restriction base="xs:NCName"><xs:enumeration value="default"/><xs:enumeration value="preserve"/></xs:restriction>
    </xs:simpleType>
  </xs:attribute>
  <xs:attribute name="base" type="xs:anyURI">
    <xs:annotation><xs:documentation>What relative references are resolved against.</xs:documentation></xs:annotation>
  </xs:attribute>
  <xs:attribute name="id" type="xs:ID">
    <xs:annotation><xs:documentation>The identifier of the element.</xs:documentation></xs:annotation>
  </xs:attribute>
  <xs:attributeGroup name="specialAttrs" xmlns:xml="http://www.w3.org/XML/1998/namespace">
    <xs:attribute ref="xml:base"/><xs:attribute ref="xml:lang"/><xs:attribute ref="xml:space"/><xs:attribute ref="xml:id"/>
  </xs:attributeGroup>
</xs:schema>)";

constexpr std::string_view kXsiSchema = R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema"
    targetNamespace="http://www.w3.org/2001/XMLSchema-instance">
  <xs:attribute name="nil" type="xs:boolean"/>
  <xs:attribute name="type" type="xs:QName"/>
  <xs:attribute name="schemaLocation">
    <xs:simpleType><xs:list itemType="xs:anyURI"/></xs:simpleType>
  </xs:attribute>
  <xs:attribute name="noNamespaceSchemaLocation" type="xs:anyURI"/>
</xs:schema>)";

/// Attributes of XML Linking Language 1.1, and the groups that schemas use.
constexpr std::string_view kXLinkSchema = R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema"
    xmlns:xlink="http://www.w3.org/1999/xlink" targetNamespace="http://www.w3.org/1999/xlink">
  <xs:simpleType name="typeType">
    <xs:restriction base="xs:token">
      <xs:enumeration value="simple"/><xs:enumeration value="extended"/><xs:enumeration value="title"/>
      <xs:enumeration value="resource"/><xs:enumeration value="locator"/><xs:enumeration value="arc"/>
    </xs:restriction>
  </xs:simpleType>
  <xs:simpleType name="hrefType"><xs:restriction base="xs:anyURI"/></xs:simpleType>
  <xs:simpleType name="roleType"><xs:restriction base="xs:anyURI"><xs:minLength value="1"/></xs:restriction></xs:simpleType>
  <xs:simpleType name="arcroleType"><xs:restriction base="xs:anyURI"><xs:minLength value="1"/></xs:restriction></xs:simpleType>
  <xs:simpleType name="titleAttrType"><xs:restriction base="xs:string"/></xs:simpleType>
  <xs:simpleType name="showType">
    <xs:restriction base="xs:token">
      <xs:enumeration value="new"/><xs:enumeration value="replace"/><xs:enumeration value="embed"/>
      <xs:enumeration value="other"/><xs:enumeration value="none"/>
    </xs:restriction>
  </xs:simpleType>
  <xs:simpleType name="actuateType">
    <xs:restriction base="xs:token">
      <xs:enumeration value="onLoad"/><xs:enumeration value="onRequest"/><xs:enumeration value="other"/>
      <xs:enumeration value="none"/>
    </xs:restriction>
  </xs:simpleType>
  <xs:simpleType name="labelType"><xs:restriction base="xs:NCName"/></xs:simpleType>
  <xs:simpleType name="fromType"><xs:restriction base="xs:NCName"/></xs:simpleType>
  <xs:simpleType name="toType"><xs:restriction base="xs:NCName"/></xs:simpleType>
  <xs:attribute name="type" type="xlink:typeType"/>
  <xs:attribute name="href" type="xlink:hrefType"/>
  <xs:attribute name="role" type="xlink:roleType"/>
  <xs:attribute name="arcrole" type="xlink:arcroleType"/>
  <xs:attribute name="title" type="xlink:titleAttrType"/>
  <xs:attribute name="show" type="xlink:showType"/>
  <xs:attribute name="actuate" type="xlink:actuateType"/>
  <xs:attribute name="label" type="xlink:labelType"/>
  <xs:attribute name="from" type="xlink:fromType"/>
  <xs:attribute name="to" type="xlink:toType"/>
  <xs:attributeGroup name="simpleAttrs">
    <xs:attribute ref="xlink:type" fixed="simple"/><xs:attribute ref="xlink:href"/><xs:attribute ref="xlink:role"/>
    <xs:attribute ref="xlink:arcrole"/><xs:attribute ref="xlink:title"/><xs:attribute ref="xlink:show"/>
    <xs:attribute ref="xlink:actuate"/>
  </xs:attributeGroup>
  <xs:attributeGroup name="extendedAttrs">
    <xs:attribute ref="xlink:type" fixed="extended" use="required"/><xs:attribute ref="xlink:role"/>
    <xs:attribute ref="xlink:title"/>
  </xs:attributeGroup>
  <xs:attributeGroup name="titleAttrs">
    <xs:attribute ref="xlink:type" fixed="title" use="required"/>
  </xs:attributeGroup>
  <xs:attributeGroup name="resourceAttrs">
    <xs:attribute ref="xlink:type" fixed="resource" use="required"/><xs:attribute ref="xlink:role"/>
    <xs:attribute ref="xlink:title"/><xs:attribute ref="xlink:label"/>
  </xs:attributeGroup>
  <xs:attributeGroup name="locatorAttrs">
    <xs:attribute ref="xlink:type" fixed="locator" use="required"/><xs:attribute ref="xlink:href" use="required"/>
    <xs:attribute ref="xlink:role"/><xs:attribute ref="xlink:title"/><xs:attribute ref="xlink:label"/>
  </xs:attributeGroup>
  <xs:attributeGroup name="arcAttrs">
    <xs:attribute ref="xlink:type" fixed="arc" use="required"/><xs:attribute ref="xlink:arcrole"/>
    <xs:attribute ref="xlink:title"/><xs:attribute ref="xlink:show"/><xs:attribute ref="xlink:actuate"/>
    <xs:attribute ref="xlink:from"/><xs:attribute ref="xlink:to"/>
  </xs:attributeGroup>
</xs:schema>)";

}  // namespace

void AddBuiltInTypes(SchemaStore& store) {
    ComplexType& anyType = MakeAnyType(store);
    store.m_builtIns.emplace(BuiltIn::kAnyType, &anyType);
    store.m_types.m_byName.emplace(anyType.m_name, &anyType);
    for (TypeRow const& row : kTypeRows) AddType(store, row);
}

std::string_view BuiltInSchema(std::string_view namespaceUri) {
    if (namespaceUri == kXmlNamespace) return kXmlSchema;
    if (namespaceUri == kXsiNamespace) return kXsiSchema;
    if (namespaceUri == kXLinkNamespace) return kXLinkSchema;
    return {};
}

}  // namespace BxGen
