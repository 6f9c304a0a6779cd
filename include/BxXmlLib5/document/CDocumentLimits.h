// What a caller lets a document have.
#pragma once

#include <cstddef>
#include <limits>

namespace BxXmlLib5 {

/// The limits of a document, for input that nobody vouches for. What is beyond one is refused, with a
/// CBxException that names the limit and, in text, the line. The library has limits of its own, told with
/// CXmlDocument, which no caller can raise.
struct CDocumentLimits {
    static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();  ///< none but the library's

    std::size_t m_octets = kNone;    ///< of the input as it is given, and after decompression
    std::size_t m_elements = kNone;  ///< in all
    std::size_t m_depth = kNone;     ///< levels of elements, of which the root is the first
};

}  // namespace BxXmlLib5
