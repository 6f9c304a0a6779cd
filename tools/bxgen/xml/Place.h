// Where something stands in the documents that were read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace BxGen {

/// A place in a file. The file is named as messages name it: as given, or as found from there. An empty name
/// stands for what comes with the tool, or for the command line.
struct Place {
    std::string_view m_file;
    std::uint32_t m_line = 0;    ///< from 1, 0 for the file as a whole
    std::uint32_t m_column = 0;  ///< from 1, in octets

    bool operator==(Place const&) const = default;
};

/// `file:line:column`, without what is not known; `bxgen` if nothing is.
std::string ToString(Place const& place);

}  // namespace BxGen
