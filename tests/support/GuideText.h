// The examples of a guide are what a source of the tests compiles.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace BxTest {

/// The lines of a file without their indentation.
inline std::vector<std::string> BareLines(char const* path) {
    std::vector<std::string> lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
        lines.push_back(line.erase(0, std::min(line.find_first_not_of(' '), line.size())));
    return lines;
}

/// Expects each C++ block of a guide to stand in a source, in the order of the guide.
/// @param atLeast how many blocks there must be
inline void ExpectExamplesOf(char const* guidePath, char const* sourcePath, int atLeast) {
    auto const source = BareLines(sourcePath);
    auto const guide = BareLines(guidePath);
    int examples = 0;
    auto place = source.begin();
    for (auto fence = std::find(guide.begin(), guide.end(), "```cpp"); fence != guide.end();
         fence = std::find(fence, guide.end(), "```cpp")) {
        auto const end = std::find(++fence, guide.end(), "```");
        auto const found = std::search(place, source.end(), fence, end);
        ASSERT_NE(found, source.end()) << "from line " << fence - guide.begin() + 1 << ": " << *fence;
        place = found + (end - fence);
        fence = end;
        ++examples;
    }
    EXPECT_GE(examples, atLeast);
}

}  // namespace BxTest
