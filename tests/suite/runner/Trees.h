// Whether two documents say the same.
#pragma once

#include <string>
#include <string_view>

#include "BxXmlLib5/document/CXmlElement.h"

namespace Suite {

/// Whether two texts are equal once whitespace is collapsed, or word by word the same values: numbers in any form, truth
/// values, times of any zone of the same offset and any number of zeros.
bool AreEqualValues(std::u16string_view a, std::u16string_view b);

/// The first difference of two trees, with its place by numbers of children; empty if there is none. Compared are names, attributes in any
/// order, children in order, and values. Attributes of XML Schema's instance namespace are passed over, but for what
/// nil says: a prefix in their values has another name, and a type that says nothing new may be left out.
std::string Difference(BxXmlLib5::CXmlElement const& original, BxXmlLib5::CXmlElement const& written);

}  // namespace Suite
