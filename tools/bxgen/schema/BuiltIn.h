// The types that come with XML Schema.
#pragma once

#include <cstdint>
#include <string_view>

#include "xml/QName.h"

namespace BxGen {

inline constexpr std::string_view kXsdNamespace = "http://www.w3.org/2001/XMLSchema";
inline constexpr std::string_view kXsiNamespace = "http://www.w3.org/2001/XMLSchema-instance";
inline constexpr std::string_view kXLinkNamespace = "http://www.w3.org/1999/xlink";

/// The built-in types of XML Schema Part 2: the two that all derive from, the 19 primitive ones, the 25 derived.
enum class BuiltIn : std::uint8_t {
    kNone,
    kAnyType,
    kAnySimpleType,
    // Primitive
    kString,
    kBoolean,
    kDecimal,
    kFloat,
    kDouble,
    kDuration,
    kDateTime,
    kTime,
    kDate,
    kGYearMonth,
    kGYear,
    kGMonthDay,
    kGDay,
    kGMonth,
    kHexBinary,
    kBase64Binary,
    kAnyUri,
    kQName,
    kNotation,
    // Derived
    kNormalizedString,
    kToken,
    kLanguage,
    kNmToken,
    kNmTokens,
    kName,
    kNcName,
    kId,
    kIdRef,
    kIdRefs,
    kEntity,
    kEntities,
    kInteger,
    kNonPositiveInteger,
    kNegativeInteger,
    kLong,
    kInt,
    kShort,
    kByte,
    kNonNegativeInteger,
    kUnsignedLong,
    kUnsignedInt,
    kUnsignedShort,
    kUnsignedByte,
    kPositiveInteger,
};

}  // namespace BxGen
