// Texts as literals of C++.
#pragma once

#include <string>
#include <string_view>

namespace BxGen {

/// `u"text"`, with what a literal cannot hold as escapes.
/// @param text in UTF-8
std::string TextLiteral(std::string_view text);

}  // namespace BxGen
