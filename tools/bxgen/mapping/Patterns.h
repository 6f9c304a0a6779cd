// Patterns of XML Schema as PCRE2 reads them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace BxGen {

/// The pattern of one step of derivation in PCRE2's language: its branches are those of all patterns of the step.
/// @param patterns at least one, each valid by XML Schema Part 2, appendix F
std::string TranslatePatterns(std::vector<std::string_view> const& patterns);

}  // namespace BxGen
