// Finds objects by their hashes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace BxXmlLib5 {

/// Objects that somebody else owns, by hashes that their contents have. At least half of its places are empty.
template <class T>
class CHashIndex {
public:
    /// @param matches tells of an object with this hash whether it is the one
    /// @return null if there is none
    template <class Matches>
    T const* Find(std::uint64_t hash, Matches matches) const {
        if (m_count == 0) return nullptr;
        for (std::size_t at = hash & Mask(); m_places[at].m_object != nullptr; at = (at + 1) & Mask()) {
            Place const& place = m_places[at];
            if (place.m_hash == hash && matches(*place.m_object)) return place.m_object;
        }
        return nullptr;
    }

    /// @param object one that is not in there
    void Add(std::uint64_t hash, T const& object) {
        if (2 * m_count >= m_places.size()) Grow();
        Put({hash, &object});
        ++m_count;
    }

    void Clear() {
        m_places.clear();
        m_count = 0;
    }

private:
    struct Place {
        std::uint64_t m_hash = 0;
        T const* m_object = nullptr;
    };

    std::size_t Mask() const { return m_places.size() - 1; }

    void Grow() {
        constexpr std::size_t kFirst = 32;
        std::vector<Place> const old =
            std::exchange(m_places, std::vector<Place>(m_places.empty() ? kFirst : 2 * m_places.size()));
        for (Place const& place : old) {
            if (place.m_object != nullptr) Put(place);
        }
    }

    void Put(Place const& place) {
        std::size_t at = place.m_hash & Mask();
        while (m_places[at].m_object != nullptr) at = (at + 1) & Mask();
        m_places[at] = place;
    }

    std::vector<Place> m_places;  // a power of two, or none
    std::size_t m_count = 0;
};

}  // namespace BxXmlLib5
