// A text of the in-memory tree.
#pragma once

#include <cstddef>
#include <string_view>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// A text that stands in the store of its document. Most texts are only looked at, so a string is made when somebody
/// asks for one. In two words, since a tree has many.
class BXXMLLIB5_LOCAL CNodeText {
public:
    /// @param text outlives the object
    explicit CNodeText(std::u16string_view text = {}) : m_units(text.data()), m_size(text.size()) {}
    CNodeText(CNodeText const&) = delete;
    CNodeText& operator=(CNodeText const&) = delete;
    ~CNodeText() {
        if (m_size == kString) delete m_string;
    }

    /// Not after String().
    /// @param text outlives the object
    void Set(std::u16string_view text) {
        m_units = text.data();
        m_size = text.size();
    }

    std::u16string_view View() const {
        return m_size == kString ? std::u16string_view(*m_string) : std::u16string_view(m_units, m_size);
    }
    wstring const& String() const;

private:
    static constexpr std::size_t kString = std::u16string_view::npos;

    union {
        mutable char16_t const* m_units;
        mutable wstring const* m_string;
    };
    mutable std::size_t m_size;  // of the units; kString if there is a string
};

}  // namespace BxXmlLib5
