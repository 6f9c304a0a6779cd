// The width of generated code.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace BxGen {

/// Generated lines have at most so many letters, but for a name that is longer by itself.
inline constexpr std::size_t kColumns = 110;

/// How many letters a text in UTF-8 has.
std::size_t WidthOf(std::string_view text);

/// `head{item, item};` in one line if that fits, else with a line for each item.
/// @param head with its indentation and what stands ahead of the brace
/// @param blank inside the braces of the one line
std::string Table(std::string const& head, std::vector<std::string> const& items, std::string_view blank);

/// Breaks the lines that are too long: after a sign of equality, between words, within a literal. Comments stay.
std::string Broken(std::string_view code);

}  // namespace BxGen
