// What a failure knows of its place in a document.
#pragma once

#include <cstddef>
#include <string_view>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/CCounted.h"

namespace BxXmlLib5 {

/// Copies of a failure share it, so it is replaced and not changed.
struct CBxException::Place : CCounted<Place> {
    CBxLocation m_location;
    /// What was being read, by which an entry point that knows the tree tells the location. Compared only: the tree
    /// may be gone.
    void const* m_document = nullptr;
    void const* m_element = nullptr;
    void const* m_attribute = nullptr;
};

/// @param position 0 for none
void AddPathStep(wstring& path, std::u16string_view name, std::size_t position);
void AddPathAttribute(wstring& path, std::u16string_view name);

}  // namespace BxXmlLib5
