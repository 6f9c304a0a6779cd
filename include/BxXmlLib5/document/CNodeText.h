// A text of the in-memory tree.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// A text that stands in the store of its document. Most texts are only looked at, so a string is made when
/// somebody asks for one. In a word and a half, since a tree has many.
class BXXMLLIB5_LOCAL CNodeText {
public:
    /// @param text outlives the object
    explicit CNodeText(std::u16string_view text = {}) { Set(text); }
    CNodeText(CNodeText const&) = delete;
    CNodeText& operator=(CNodeText const&) = delete;
    ~CNodeText() {
        if (m_size == kString) delete m_string;
    }

    /// Not after String().
    /// @param text outlives the object
    void Set(std::u16string_view text) {
        m_units = text.data();
        m_size = static_cast<std::uint32_t>(text.size());
        if (text.size() >= kString) MakeString(text);
    }

    /// The same at any time.
    void Replace(std::u16string_view text) {
        if (m_size == kString) delete m_string;
        Set(text);
    }

    std::u16string_view View() const {
        return m_size == kString ? std::u16string_view(*m_string) : std::u16string_view(m_units, m_size);
    }
    wstring const& String() const;

private:
    static constexpr std::uint32_t kString = std::numeric_limits<std::uint32_t>::max();

    void MakeString(std::u16string_view text) const;

    union {
        mutable char16_t const* m_units;
        mutable wstring const* m_string;
    };
    mutable std::uint32_t m_size;  // of the units; kString if there is a string, as there is of a longer text
};

}  // namespace BxXmlLib5
