// Values of the built-in types: what texts they have, and their order.
#pragma once

#include <compare>
#include <string>
#include <string_view>

#include "schema/BuiltIn.h"

namespace BxGen {

/// True if a text, whitespace already handled by the type's rule, is one of the type's (XML Schema Part 2, section 3).
/// Of a list type (NMTOKENS): if it is one of the item type's.
bool IsLexical(BuiltIn type, std::string_view text);

/// Compares two texts of a primitive type by value. Unordered if the type has no order, and where the order of two
/// values is not determined.
std::partial_ordering CompareValues(BuiltIn primitive, std::string_view left, std::string_view right);

/// A text that is the same for two texts of a primitive type if and only if their values are equal.
std::string KeyOfValue(BuiltIn primitive, std::string_view text);

/// The digits of a decimal, without zeros ahead, and without those at the end of a fraction.
struct DecimalDigits {
    bool m_isNegative = false;
    std::string_view m_whole;
    std::string_view m_fraction;
};
DecimalDigits DigitsOf(std::string_view decimal);

}  // namespace BxGen
