// Xerces-C as a checker of schemas.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "schema/SchemaSet.h"

namespace BxGen {

/// What Xerces-C says of a schema.
struct XercesMessage {
    std::string m_file;        ///< as messages of the tool name it; empty if it is not known
    std::uint64_t m_line = 0;  ///< of the end of a tag, as is the column; 0 if it is not known
    std::uint64_t m_column = 0;
    std::string m_text;
};

/// Loads schemas and reports all errors. What they refer to is looked up in the set, so nothing comes from elsewhere.
/// @param isFull whether content models are checked
void CheckWithXerces(std::vector<std::string> const& files, SchemaSet const& set, bool isFull,
                     std::function<void(XercesMessage const&)> const& report);

}  // namespace BxGen
