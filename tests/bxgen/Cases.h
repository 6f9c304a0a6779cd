// Schemas and what becomes of them, in files of text.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace BxGen {

/// A case of a file: perhaps a comment (//), perhaps attributes of the schema (schema NAME='VALUE'), the schema's
/// body, whose lines are joined, an arrow (=>) and the lines of the outcome. Empty lines stand between cases.
struct Case {
    std::string m_place;  ///< file:line of the arrow
    std::string m_attributes, m_body, m_outcome;
};

/// The cases of all files in a folder of cases/.
inline std::vector<Case> CasesIn(std::string const& folder) {
    std::vector<Case> cases;
    std::set<std::filesystem::path> paths;
    for (auto const& entry : std::filesystem::directory_iterator(BX_CASES "/" + folder))
        paths.insert(entry.path());
    for (std::filesystem::path const& path : paths) {
        std::ifstream file(path);
        int number = 0;
        std::string line;
        auto const next = [&] { return ++number, static_cast<bool>(std::getline(file, line)); };
        while (file) {
            Case& made = cases.emplace_back();
            for (; next() && line != "=>";) {
                if (line.starts_with("schema "))
                    made.m_attributes = line.substr(7);
                else if (!line.starts_with("//"))
                    made.m_body += line;
            }
            made.m_place = path.filename().string() + ':' + std::to_string(number);
            while (next() && !line.empty()) made.m_outcome += line + '\n';
        }
    }
    EXPECT_FALSE(cases.empty()) << folder;
    return cases;
}

}  // namespace BxGen
