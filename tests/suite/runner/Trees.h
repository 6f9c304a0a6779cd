// Whether two documents say the same.
#pragma once

#include <string>
#include <string_view>

#include "BxXmlLib5/document/CXmlElement.h"

namespace Suite {

/// Whether what was written is equal to the original once whitespace is collapsed, or word by word the same value:
/// numbers in any form, or as the nearest float or double in its shortest form; truth values, durations, times with any
/// number of zeros.
bool AreEqualValues(std::u16string_view original, std::u16string_view written);

/// The first difference of two trees, with its place by numbers of children; empty if there is none. Compared are names, attributes in any
/// order, children in order, and values. Attributes of XML Schema's instance namespace are passed over, but for what
/// nil and type say: a prefix may have another name.
std::string Difference(BxXmlLib5::CXmlElement const& original, BxXmlLib5::CXmlElement const& written);

}  // namespace Suite
