// The built-in simple types by their names in documents.
#pragma once

#include "BxXmlLib5/generated/NamedTypes.h"
#include "BxXmlLib5/generated/Xs.h"

namespace BxXmlLib5::Generated {

/// The namespace of the built-in types.
inline constexpr char16_t kXsNamespace[] = u"http://www.w3.org/2001/XMLSchema";

/// Its prefix in documents where nothing gives it another.
inline constexpr char16_t kXsPrefix[] = u"xs";

/// XML Schema Part 2, 3: each with the one that it derives from. A template, so that it costs nothing where
/// no set of classes is defined.
template <class... None>
inline constexpr SimpleTypeName kBuiltInTypes[] = {
    // clang-format off
    Simple<Xs::anySimpleType, Xs::anySimpleType>(u"anySimpleType", kXsNamespace),

    Simple<Xs::string,        Xs::anySimpleType>(u"string",        kXsNamespace),
    Simple<Xs::boolean,       Xs::anySimpleType>(u"boolean",       kXsNamespace),
    Simple<Xs::decimal,       Xs::anySimpleType>(u"decimal",       kXsNamespace),
    Simple<Xs::float_,        Xs::anySimpleType>(u"float",         kXsNamespace),
    Simple<Xs::double_,       Xs::anySimpleType>(u"double",        kXsNamespace),
    Simple<Xs::duration,      Xs::anySimpleType>(u"duration",      kXsNamespace),
    Simple<Xs::dateTime,      Xs::anySimpleType>(u"dateTime",      kXsNamespace),
    Simple<Xs::time,          Xs::anySimpleType>(u"time",          kXsNamespace),
    Simple<Xs::date,          Xs::anySimpleType>(u"date",          kXsNamespace),
    Simple<Xs::gYearMonth,    Xs::anySimpleType>(u"gYearMonth",    kXsNamespace),
    Simple<Xs::gYear,         Xs::anySimpleType>(u"gYear",         kXsNamespace),
    Simple<Xs::gMonthDay,     Xs::anySimpleType>(u"gMonthDay",     kXsNamespace),
    Simple<Xs::gDay,          Xs::anySimpleType>(u"gDay",          kXsNamespace),
    Simple<Xs::gMonth,        Xs::anySimpleType>(u"gMonth",        kXsNamespace),
    Simple<Xs::hexBinary,     Xs::anySimpleType>(u"hexBinary",     kXsNamespace),
    Simple<Xs::base64Binary,  Xs::anySimpleType>(u"base64Binary",  kXsNamespace),
    Simple<Xs::anyURI,        Xs::anySimpleType>(u"anyURI",        kXsNamespace),
    Simple<Xs::QName,         Xs::anySimpleType>(u"QName",         kXsNamespace),
    Simple<Xs::NOTATION,      Xs::anySimpleType>(u"NOTATION",      kXsNamespace),

    Simple<Xs::normalizedString, Xs::string>(u"normalizedString",      kXsNamespace),
    Simple<Xs::token,            Xs::normalizedString>(u"token",       kXsNamespace),
    Simple<Xs::language,         Xs::token>(u"language",               kXsNamespace),
    Simple<Xs::NMTOKEN,          Xs::token>(u"NMTOKEN",                kXsNamespace),
    Simple<Xs::NMTOKENS,         Xs::anySimpleType>(u"NMTOKENS",       kXsNamespace),
    Simple<Xs::Name,             Xs::token>(u"Name",                   kXsNamespace),
    Simple<Xs::NCName,           Xs::Name>(u"NCName",                  kXsNamespace),
    Simple<Xs::ID,               Xs::NCName>(u"ID",                    kXsNamespace),
    Simple<Xs::IDREF,            Xs::NCName>(u"IDREF",                 kXsNamespace),
    Simple<Xs::IDREFS,           Xs::anySimpleType>(u"IDREFS",         kXsNamespace),
    Simple<Xs::ENTITY,           Xs::NCName>(u"ENTITY",                kXsNamespace),
    Simple<Xs::ENTITIES,         Xs::anySimpleType>(u"ENTITIES",       kXsNamespace),

    Simple<Xs::integer,            Xs::decimal>(u"integer",                       kXsNamespace),
    Simple<Xs::nonPositiveInteger, Xs::integer>(u"nonPositiveInteger",            kXsNamespace),
    Simple<Xs::negativeInteger,    Xs::nonPositiveInteger>(u"negativeInteger",    kXsNamespace),
    Simple<Xs::long_,              Xs::integer>(u"long",                          kXsNamespace),
    Simple<Xs::int_,               Xs::long_>(u"int",                             kXsNamespace),
    Simple<Xs::short_,             Xs::int_>(u"short",                            kXsNamespace),
    Simple<Xs::byte,               Xs::short_>(u"byte",                           kXsNamespace),
    Simple<Xs::nonNegativeInteger, Xs::integer>(u"nonNegativeInteger",            kXsNamespace),
    Simple<Xs::unsignedLong,       Xs::nonNegativeInteger>(u"unsignedLong",       kXsNamespace),
    Simple<Xs::unsignedInt,        Xs::unsignedLong>(u"unsignedInt",              kXsNamespace),
    Simple<Xs::unsignedShort,      Xs::unsignedInt>(u"unsignedShort",             kXsNamespace),
    Simple<Xs::unsignedByte,       Xs::unsignedShort>(u"unsignedByte",            kXsNamespace),
    Simple<Xs::positiveInteger,    Xs::nonNegativeInteger>(u"positiveInteger",    kXsNamespace),
    // clang-format on
};

}  // namespace BxXmlLib5::Generated
