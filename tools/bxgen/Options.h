// The command line of bxgen.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "Diagnostics.h"

namespace BxGen {

struct Options {
    std::vector<std::string> m_schemas;
    // Input
    std::vector<std::string> m_catalogs;
    std::vector<std::pair<std::string, std::string>> m_locations;  ///< URI and file
    // Output
    std::string m_folder = ".";
    std::optional<std::string>
        m_name;  ///< C++ namespace of what is not mapped; from the first schema if not given
    std::vector<std::pair<std::string, std::string>> m_namespaces;  ///< URI and C++ namespace
    std::vector<std::string> m_roots;                               ///< {uri}name, or "all", or "none"
    std::string m_prefix = "C";
    std::string m_strippedSuffix;
    std::optional<std::string> m_namesFile;
    std::size_t m_sources = 1;
    std::optional<std::string> m_docElement;  ///< {uri}name
    bool m_withDocs = true;
    bool m_withAliases = true;
    bool m_ascii = false;
    bool m_program = false;
    std::optional<std::string> m_depfile;
    bool m_check = false;
    std::optional<std::string> m_stamp;
    // What to do instead
    bool m_dump = false;
    bool m_list = false;
    bool m_help = false;
    bool m_version = false;
    // Messages
    Diagnostics::Options m_diagnostics;
};

/// @param arguments without the name of the program
/// @throws CommandLine::UsageError
Options ParseOptions(std::span<char const* const> arguments);

/// What --help prints.
std::string HelpText();

}  // namespace BxGen
