// The characters of names (XML 1.0, fourth and fifth edition alike as far as schemas need it).
#pragma once

#include <string_view>

namespace BxGen {

/// Takes one character off the front of UTF-8 text.
/// @return its number; 0xFFFFFFFF for octets that are no UTF-8, of which one is taken
char32_t TakeCharacter(std::string_view& text);

bool IsNameStart(char32_t c);  ///< a colon is one
bool IsNameCharacter(char32_t c);

bool IsName(std::string_view text);
bool IsNmToken(std::string_view text);
bool IsNcName(std::string_view text);
/// An NCName, or two with a colon between.
bool IsQName(std::string_view text);

}  // namespace BxGen
