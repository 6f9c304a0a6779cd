// A text of the in-memory tree.
#pragma once

#include <memory>
#include <string_view>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// A text that stands in the store of its document, and becomes a string when somebody asks for one: most
/// texts are only looked at, and a tree has many.
class BXXMLLIB5_API CXmlText {
public:
    CXmlText() = default;
    /// @param text in the document's store, which outlives this object
    explicit CXmlText(std::u16string_view text) : m_text(text) {}

    std::u16string_view GetView() const { return m_text; }
    wstring const& GetString() const;

private:
    std::u16string_view m_text;
    mutable std::unique_ptr<wstring> m_string;
};

}  // namespace BxXmlLib5
