// Searches that skip unknown elements.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <unordered_map>

#include "BxXmlLib5/binding/CElementInfo.h"

namespace BxXmlLib5Data {

/// What searches through the children of one element have come to, while it is read on this thread.
///
/// A group that does not match is tried again from the next child, and would search the same children each
/// time. But an entry's answer depends on the child alone, so a search that enters the stretch of an earlier one
/// ends where that one did. This keeps the time of a read in proportion to the number of children.
class CSiblingSearches {
public:
    /// Goes on with the searches that are under way on this element.
    CSiblingSearches(CXmlElement const* element, CXmlSerializationContext const& context);
    CSiblingSearches(CSiblingSearches const&) = delete;
    CSiblingSearches& operator=(CSiblingSearches const&) = delete;
    ~CSiblingSearches();

private:
    friend class CSiblingSearch;

    struct Stretch {
        std::size_t m_lastPlace;
        CXmlElement* m_last;
    };
    using Stretches = std::map<std::size_t, Stretch>;  // by the place of the first child

    /// The place of a child among its siblings. An element from elsewhere has none: a class may read another
    /// one's children as its own.
    std::optional<std::size_t> PlaceOf(CXmlElement const* child);

    CSiblingSearches* const m_outer;
    CXmlElement const* const m_element;
    CXmlSerializationContext const* const m_context;
    std::map<CElementInfo const*, Stretches> m_stretches;
    std::unordered_map<CXmlElement const*, std::size_t> m_places;
};

/// One search for a child that satisfies an entry.
class CSiblingSearch {
public:
    /// @param ownerType an owner with a tag is not tried again, so its searches are not remembered
    CSiblingSearch(CElementInfo const* entry, XmlElementType ownerType)
        : m_entry(ownerType == et_Element ? nullptr : entry) {}

    /// @return the child to ask after one that did not satisfy the entry: its next sibling, or a later one if
    ///         those between are known; null if none is left
    CXmlElement* After(CXmlElement* child);

    /// Takes note of what was passed over.
    /// @param found the child that satisfied the entry, null for none
    void End(CXmlElement* found);

private:
    CElementInfo const* m_entry;  // null if nothing is remembered
    CXmlElement* m_first = nullptr;
    CXmlElement* m_last = nullptr;
    CSiblingSearches::Stretches* m_known = nullptr;
};

}  // namespace BxXmlLib5Data
