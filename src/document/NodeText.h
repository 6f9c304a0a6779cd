// Texts of the tree.
#pragma once

#include <memory>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"
#include "core/NeverDestroyed.h"

namespace BxXmlLib5 {

/// The string of a text that stands in the store of its document. Most texts are only looked at, so it is made
/// when somebody asks for it.
/// @param made null until then
inline wstring const& StringOf(std::u16string_view text, std::unique_ptr<wstring>& made) {
    static NeverDestroyed<wstring> const s_empty;
    if (text.empty()) return *s_empty;
    if (!made) made = std::make_unique<wstring>(text);
    return *made;
}

}  // namespace BxXmlLib5
