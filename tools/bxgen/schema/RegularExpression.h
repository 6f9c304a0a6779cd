// The regular expressions of XML Schema.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace BxGen {

/// Checks a pattern against XML Schema Part 2, appendix F: branches, quantifiers, character classes with subtraction,
/// escapes, names of categories and blocks.
/// @return what is wrong with it, nothing if it is one. Groups nested deeper than 256 count as wrong
std::optional<std::string> WhatIsWrongWithPattern(std::string_view pattern);

}  // namespace BxGen
