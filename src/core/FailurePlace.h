// What a failure knows of its place in a document.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/CCounted.h"

namespace BxXmlLib5 {

/// A failure is marked by the levels that it passes; the entry point, which sees the whole, makes a location of the
/// marks. So nothing is done for it where nothing fails.
struct CBxException::Place : CCounted<Place> {
    CBxLocation m_location;

    /// What was being read. Compared only: the tree may be gone.
    void const* m_document = nullptr;
    void const* m_element = nullptr;
    void const* m_attribute = nullptr;

    /// What was about to be written, and had not begun.
    wstring m_next;  ///< Empty if all had.
    bool m_isNextAttribute = false;
    std::vector<wstring> m_repeated;  ///< Names of elements that collections with more than one item hold.
};

/// The place of a failure. Copies of the failure share it, so it is replaced and not changed.
class CFailurePlace {
public:
    using Place = CBxException::Place;

    /// Null if nothing is known.
    static Place const* Of(CBxException const& failure) { return failure.m_place; }
    static void Set(CBxException& failure, CSmartPtr<Place const> const& place) { failure.m_place = place; }
    /// A copy to be changed and set, or an empty one.
    static CSmartPtr<Place> Copy(CBxException const& failure) {
        return failure.m_place ? new Place(*failure.m_place) : new Place;
    }
};

/// @param position 0 for none
void AddPathStep(wstring& path, std::u16string_view name, std::size_t position);
void AddPathAttribute(wstring& path, std::u16string_view name);

}  // namespace BxXmlLib5
