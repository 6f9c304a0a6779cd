// Text of a document or a file name on a line of its own.
#pragma once

#include <algorithm>
#include <string>

namespace BxConvert {

/// The text with blanks for line breaks.
inline std::string OneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

}  // namespace BxConvert
