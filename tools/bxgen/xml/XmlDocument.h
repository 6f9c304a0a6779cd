// A document read from a file.
#pragma once

#include <deque>
#include <memory>
#include <span>
#include <string_view>

#include "Diagnostics.h"
#include "xml/StringPool.h"
#include "xml/XmlElement.h"

namespace BxGen {

/// The elements of a document. Owns them; their texts belong to the pool.
class XmlDocument {
public:
    /// Elements within each other; deeper documents are refused, so that recursion over elements is safe.
    static constexpr std::size_t kMaxDepth = 1024;
    /// Octets of a namespace name.
    static constexpr std::size_t kMaxNamespace = 4096;

    /// Parses XML 1.0 in the encodings that Expat takes. External entities are not read; a reference to one that only
    /// they could declare is an error.
    /// @param file the name for places, of the pool
    /// @param verbatim names of elements within which whitespace is kept
    /// @return null, and an error in the diagnostics, if it is not well-formed or goes beyond a limit
    static std::unique_ptr<XmlDocument> Parse(std::string_view octets, std::string_view file,
                                              std::span<QName const> verbatim, StringPool& pool,
                                              Diagnostics& diagnostics);

    XmlElement const& Root() const { return m_elements.front(); }

private:
    friend class XmlParser;

    std::deque<XmlElement> m_elements;
    std::deque<NamespaceScope> m_scopes;
};

}  // namespace BxGen
