// Documentation as comments.
#pragma once

#include <string>
#include <string_view>

#include "mapping/Plan.h"

namespace BxGen {

/// Lines `/// ...` of at most 110 columns: the text, then name and place in parentheses. Nothing if all are empty.
/// @param indent of each line
std::string Comment(Documentation const& documentation, std::string_view indent);

/// The same for a member: nothing if there is no text, since its row tells name and place.
std::string MemberComment(Documentation const& documentation, std::string_view indent);

/// A member's line with a comment behind it, `  ///< text`, or ahead of it if there is no room; without one if the text is
/// empty.
/// @param member with its indentation
std::string WithComment(std::string const& member, std::string_view text);

}  // namespace BxGen
