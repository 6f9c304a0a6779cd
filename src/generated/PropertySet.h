// A set of the properties of a class.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace BxXmlLib5::Generated {

/// Properties by their index. Few classes have more than need no allocation.
class PropertySet {
public:
    void Add(std::size_t index) {
        if (index < kInPlace) {
            m_first |= Bit(index);
            return;
        }
        std::size_t const word = index / kInPlace - 1;
        if (m_more.size() <= word) m_more.resize(word + 1);
        m_more[word] |= Bit(index % kInPlace);
    }
    void Add(PropertySet const& other) {
        m_first |= other.m_first;
        m_more.resize(std::max(m_more.size(), other.m_more.size()));
        for (std::size_t i = 0; i < other.m_more.size(); ++i) m_more[i] |= other.m_more[i];
    }

    bool Has(std::size_t index) const {
        if (index < kInPlace) return (m_first & Bit(index)) != 0;
        return (Word(index / kInPlace - 1) & Bit(index % kInPlace)) != 0;
    }
    bool Meets(PropertySet const& other) const {
        if ((m_first & other.m_first) != 0) return true;
        for (std::size_t i = 0; i < m_more.size(); ++i) {
            if ((m_more[i] & other.Word(i)) != 0) return true;
        }
        return false;
    }
    /// Whether all that this set shares with one other is in a third.
    bool SharesOnly(PropertySet const& other, PropertySet const& third) const {
        if ((m_first & other.m_first & ~third.m_first) != 0) return false;
        for (std::size_t i = 0; i < m_more.size(); ++i) {
            if ((m_more[i] & other.Word(i) & ~third.Word(i)) != 0) return false;
        }
        return true;
    }

private:
    static constexpr std::size_t kInPlace = 64;

    static std::uint64_t Bit(std::size_t index) { return std::uint64_t{1} << index; }
    std::uint64_t Word(std::size_t word) const { return word < m_more.size() ? m_more[word] : 0; }

    std::uint64_t m_first = 0;
    std::vector<std::uint64_t> m_more;
};

}  // namespace BxXmlLib5::Generated
