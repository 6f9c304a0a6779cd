// A vocabulary table of the writer (ITU-T X.891, 8).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

#include "BxXmlLib5/platform/Text.h"
#include "fastinfoset/IntegerForms.h"
#include "platform/TextView.h"

namespace BxXmlLib5::FastInfoset {

/// A qualified name by the indices of its parts, 0 for a part that has none.
struct NameSurrogate {
    static constexpr std::uint32_t kAbsent = kMaxIndex + 1;

    std::uint32_t m_prefix = kAbsent;
    std::uint32_t m_namespace = kAbsent;
    std::uint32_t m_localName = kAbsent;

    /// Whether every part that there is has an index; only such a name is entered.
    bool IsComplete() const { return m_prefix != 0 && m_namespace != 0 && m_localName != 0; }

    bool operator==(NameSurrogate const&) const = default;
};

/// A text of a few units, with its size.
struct ShortText {
    static constexpr std::size_t kMaxSize = 5;

    std::array<char16_t, kMaxSize + 1> m_units{};

    explicit ShortText(std::u16string_view text) {
        for (std::size_t at = 0; at < text.size(); ++at) m_units[at] = text[at];
        m_units[kMaxSize] = static_cast<char16_t>(text.size());
    }

    bool operator==(ShortText const& other) const {
        return std::memcmp(&m_units, &other.m_units, sizeof m_units) == 0;
    }
};

/// Hashes by a polynomial modulo a prime, at a point that nobody can know: no choice of keys makes a table
/// slow.
class CVocabularyHash {
public:
    CVocabularyHash();

    std::uint32_t operator()(std::u16string_view text) const;
    std::uint32_t operator()(ShortText const& text) const;
    std::uint32_t operator()(NameSurrogate const& name) const;

private:
    std::uint64_t m_point;
};

/// Texts, each behind the other.
class CVocabularyTexts {
public:
    std::u16string_view operator[](std::size_t at) const {
        std::size_t const start = at == 0 ? 0 : m_ends[at - 1];
        return std::u16string_view(m_text).substr(start, m_ends[at] - start);
    }
    void push_back(std::u16string_view text) {
        m_text += text;
        m_ends.push_back(m_text.size());
    }
    std::size_t size() const { return m_ends.size(); }

private:
    wstring m_text;
    std::vector<std::size_t> m_ends;
};

/// Finds the index of an entry. Looking up neither copies nor allocates.
/// @tparam Key what an entry is looked up by
/// @tparam Entries what holds the entries in the order of their indices, which begin at 1
template <class Key, class Entries = std::vector<Key>>
class CVocabularyIndex {
public:
    CVocabularyIndex() : m_slots(16) {}

    /// @return 0 if there is no such entry
    std::uint32_t Find(Key const& key) const { return m_slots[SlotOf(key, m_hash(key))].m_index; }

    std::size_t Size() const { return m_entries.size(); }

    /// Enters a key, anew if it is there already: the newest index is the one that is found.
    /// @return its index, 0 if the table is full
    std::uint32_t Add(Key const& key) {
        if (m_entries.size() == kMaxIndex) return 0;
        if (2 * m_entries.size() >= m_slots.size()) Grow();
        m_entries.push_back(key);
        std::uint32_t const hash = m_hash(key);
        auto const index = static_cast<std::uint32_t>(m_entries.size());
        m_slots[SlotOf(key, hash)] = {hash, index};
        return index;
    }

private:
    struct Slot {
        std::uint32_t m_hash = 0;
        std::uint32_t m_index = 0;  // 0 in a free slot
    };

    static bool Same(std::u16string_view a, std::u16string_view b) { return Equal(a, b); }
    static bool Same(auto const& a, auto const& b) { return a == b; }

    std::size_t Next(std::size_t at) const { return (at + 1) & (m_slots.size() - 1); }

    /// The slot of a key, or the free one where it belongs.
    std::size_t SlotOf(Key const& key, std::uint32_t hash) const {
        std::size_t at = hash & (m_slots.size() - 1);
        for (; m_slots[at].m_index != 0; at = Next(at)) {
            if (m_slots[at].m_hash == hash && Same(m_entries[m_slots[at].m_index - 1], key)) break;
        }
        return at;
    }

    void Grow() {
        std::vector<Slot> const former = std::exchange(m_slots, std::vector<Slot>(2 * m_slots.size()));
        for (Slot const& slot : former) {
            if (slot.m_index == 0) continue;
            std::size_t at = slot.m_hash & (m_slots.size() - 1);
            while (m_slots[at].m_index != 0) at = Next(at);
            m_slots[at] = slot;
        }
    }

    CVocabularyHash m_hash;
    Entries m_entries;
    std::vector<Slot> m_slots;  // a power of two, at most half of them taken
};

using CTextIndex = CVocabularyIndex<std::u16string_view, CVocabularyTexts>;
using CShortTextIndex = CVocabularyIndex<ShortText>;
using CNameIndex = CVocabularyIndex<NameSurrogate>;

}  // namespace BxXmlLib5::FastInfoset
