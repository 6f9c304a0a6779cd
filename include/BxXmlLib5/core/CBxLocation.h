// Where in a document a failure lies.
#pragma once

#include <cstddef>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// A place in a document: the path of an element or attribute, and the line and column where it is known.
///
/// A path leads from the root by local names, as in `/gpx/trk/trkseg[2]/trkpt[17]/ele`. A name has a position,
/// counted from 1 among the children of that local name, where its parent has several of them; in a document that
/// is being written, where it is the second or a later one, or an item of a collection that has several. An
/// attribute is the last step and begins with an at sign, as in `/gpx/wpt[3]/@lat`.
class BXXMLLIB5_API CBxLocation {
public:
    /// A place that is not known.
    CBxLocation();
    /// @param path empty if it is not known
    /// @param line from 1, 0 if it is not known
    /// @param column in the line, from 1, 0 if it is not known
    explicit CBxLocation(wstring path, std::size_t line = 0, std::size_t column = 0);

    /// There is a path or a line.
    bool IsKnown() const;

    /// Empty if it is not known.
    wstring GetPath() const;
    /// The line of the element's start tag, or of the failure in a document that is not well-formed. From 1, 0
    /// if it is not known.
    std::size_t GetLine() const;
    /// From 1, 0 if it is not known.
    std::size_t GetColumn() const;

    /// What is known, as `line: path`, `line:column: path`, `line:column`, `line` or `path`; empty if nothing is.
    wstring ToString() const;

private:
    wstring m_path;
    std::size_t m_line = 0;
    std::size_t m_column = 0;
};

}  // namespace BxXmlLib5
