// Where in the tree of a document a failure lies.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"

namespace BxXmlLib5 {

class CXmlAttribute;
class CXmlElement;

/// Marks a failure with what was being read, unless it is marked with something of the same document.
/// @param attribute null for the element itself
void MarkRead(CBxException& failure, CXmlElement const* element, CXmlAttribute const* attribute = nullptr);

/// What a tree that is a part of a document does not tell of places in that.
struct PlaceOfTree {
    wstring m_rootPath;  ///< empty if the root is that of the document
    std::function<std::size_t(CXmlElement const&)>
        m_positionOf;  ///< gives 0 for an element that it does not know
};

/// Gives a failure the location that its mark has in the tree, or that of the root if it has none there.
void LocateRead(CBxException& failure, CXmlElement const& root, PlaceOfTree const& tree = {});

/// A failure with a mark, to be thrown.
template <class Failure>
Failure FailureAt(CXmlElement const* element, Failure failure, CXmlAttribute const* attribute = nullptr) {
    MarkRead(failure, element, attribute);
    return failure;
}

/// Calls a function that reads an element, or one of its attributes, and marks the failure of it.
template <class Read>
decltype(auto) ReadAt(CXmlElement const* element, Read&& read, CXmlAttribute const* attribute = nullptr) {
    try {
        return std::forward<Read>(read)();
    } catch (CBxException& failure) {
        MarkRead(failure, element, attribute);
        throw;
    }
}

/// Calls a function that reads a tree, and gives the failure of it its location.
template <class Read>
void ReadTree(CXmlElement const& root, Read&& read) {
    try {
        std::forward<Read>(read)();
    } catch (CBxException& failure) {
        LocateRead(failure, root);
        throw;
    }
}

}  // namespace BxXmlLib5
