// The tables that a document fills while it is read (ITU-T X.891, 8).
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include "BxXmlLib5/core/CBxException.h"
#include "fastinfoset/IntegerForms.h"

namespace BxXmlLib5::FastInfoset {

/// Entries by their index, which begins at 1.
template <class T>
class CVocabularyTable {
public:
    CVocabularyTable(std::initializer_list<T> builtIn = {}) : m_entries(builtIn) {}

    bool IsFull() const { return m_entries.size() == kMaxIndex; }

    /// A table that is full stays as it is.
    void Add(T const& entry) {
        if (!IsFull()) m_entries.push_back(entry);
    }

    /// @throws CBxException if there is no such entry
    T const& At(std::uint64_t index) const {
        if (index == 0 || index > m_entries.size()) {
            throw CBxException(u"Failed to parse FastInfoset. Invalid index beyond the end of its table.");
        }
        return m_entries[static_cast<std::size_t>(index - 1)];
    }

private:
    std::vector<T> m_entries;
};

}  // namespace BxXmlLib5::FastInfoset
