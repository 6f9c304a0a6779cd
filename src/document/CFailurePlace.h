// Where in the tree of a document a failure lies.
#pragma once

#include <utility>

#include "BxXmlLib5/core/CBxException.h"

namespace BxXmlLib5 {

class CXmlAttribute;
class CXmlElement;

/// A failure is marked with what was being read when it came up, by the innermost level that knows; the entry point,
/// which knows the tree, makes a location of the mark. So nothing is done for it where nothing fails.
class CFailurePlace {
public:
    /// Marks a failure, unless it is marked with something of the same document.
    /// @param attribute null for the element itself
    static void Mark(CBxException& failure, CXmlElement const* element,
                     CXmlAttribute const* attribute = nullptr);

    /// Gives a failure the location that its mark has in the tree, or that of the root if it has none there.
    static void Locate(CBxException& failure, CXmlElement const& root);
};

/// A failure with a mark, to be thrown.
template <class Failure>
Failure FailureAt(CXmlElement const* element, Failure failure, CXmlAttribute const* attribute = nullptr) {
    CFailurePlace::Mark(failure, element, attribute);
    return failure;
}

/// Calls a function that reads an element, or one of its attributes, and marks the failure of it.
template <class Read>
decltype(auto) ReadAt(CXmlElement const* element, Read&& read, CXmlAttribute const* attribute = nullptr) {
    try {
        return std::forward<Read>(read)();
    } catch (CBxException& failure) {
        CFailurePlace::Mark(failure, element, attribute);
        throw;
    }
}

/// Calls a function that reads a tree, and gives the failure of it its location.
template <class Read>
void ReadTree(CXmlElement const& root, Read&& read) {
    try {
        std::forward<Read>(read)();
    } catch (CBxException& failure) {
        CFailurePlace::Locate(failure, root);
        throw;
    }
}

}  // namespace BxXmlLib5
