// A vocabulary table of the writer (ITU-T X.891, 8).
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "BxXmlLib5/platform/Text.h"
#include "fastinfoset/IntegerForms.h"
#include "platform/TextView.h"

namespace BxXmlLib5::FastInfoset {

/// A qualified name by the indices of its parts, 0 for a part that has none.
struct NameSurrogate {
    static constexpr std::uint32_t kAbsent = 0xFFFF'FFFF;

    std::uint32_t m_prefix = kAbsent;
    std::uint32_t m_namespace = kAbsent;
    std::uint32_t m_localName = kAbsent;

    /// Whether every part that there is has an index; only such a name is entered.
    bool IsComplete() const { return m_prefix != 0 && m_namespace != 0 && m_localName != 0; }

    bool operator==(NameSurrogate const&) const = default;
};

/// Hashes by a polynomial modulo a prime, at a point that nobody can know: no choice of keys makes a table
/// slow.
class VocabularyHash {
public:
    using is_transparent = void;

    VocabularyHash() {
        auto const now =
            static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
        m_point +=
            (now ^ reinterpret_cast<std::uintptr_t>(this)) * 0x9E37'79B9'7F4A'7C15 % (kPrime - m_point);
    }

    std::size_t operator()(std::u16string_view text) const {
        std::uint64_t hash = text.size() % kPrime;
        std::size_t at = 0;
        for (; at + 2 <= text.size(); at += 2)
            hash = Step(hash, std::uint64_t{text[at]} << 16 | text[at + 1]);
        return at < text.size() ? Step(hash, text[at]) : hash;
    }

    std::size_t operator()(NameSurrogate const& name) const {
        return Step(Step(name.m_localName, name.m_namespace), name.m_prefix);
    }

private:
    static constexpr std::uint64_t kPrime = 4'294'967'291;  // the greatest of 32 bits

    std::uint64_t Step(std::uint64_t hash, std::uint64_t next) const {
        return (hash * m_point + next) % kPrime;
    }

    std::uint64_t m_point = 0x1'0000;  // at least
};

struct VocabularyEqual {
    using is_transparent = void;

    bool operator()(std::u16string_view a, std::u16string_view b) const { return Equal(a, b); }
    bool operator()(NameSurrogate const& a, NameSurrogate const& b) const { return a == b; }
};

/// Finds the index of an entry. Looking up neither copies nor allocates.
/// @tparam Key wstring or NameSurrogate
/// @tparam View what a key is looked up by
template <class Key, class View = Key>
class CVocabularyIndex {
public:
    CVocabularyIndex() = default;
    CVocabularyIndex(CVocabularyIndex const&) = delete;
    CVocabularyIndex& operator=(CVocabularyIndex const&) = delete;

    /// @return 0 if there is no such entry
    std::uint32_t Find(View key) {
        if (m_last != nullptr && VocabularyEqual()(m_last->first, key)) return m_last->second;
        auto const known = m_indices.find(key);
        if (known == m_indices.end()) return 0;
        m_last = &*known;
        return known->second;
    }

    /// Enters a key, anew if it is there already: the newest index is the one that is found.
    /// @return its index, 0 if the table is full
    std::uint32_t Add(View key) {
        if (m_size == kMaxIndex) return 0;
        m_indices.insert_or_assign(Key(key), m_size + 1);
        return ++m_size;
    }

private:
    using Map = std::unordered_map<Key, std::uint32_t, VocabularyHash, VocabularyEqual>;

    Map m_indices;
    typename Map::value_type const* m_last = nullptr;  // the entry that was found last
    std::uint32_t m_size = 0;
};

using CTextIndex = CVocabularyIndex<wstring, std::u16string_view>;
using CNameIndex = CVocabularyIndex<NameSurrogate>;

}  // namespace BxXmlLib5::FastInfoset
