// Values as UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "BxXmlLib5/generated/Property.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5::Generated {

/// A text.
inline std::string Utf8(std::u16string_view text) {
    return ToUtf8(text);
}

/// The literal of a value of type S: `Bx::Utf8<FixType>(Fix::Dgps)`.
template <class S>
std::string Utf8(typename S::Value const& value) {
    return ToUtf8(TextOf<S>(value));
}

/// The literal of a property's value: `Bx::Utf8(note.Voice)`.
/// @throws CBxInvalidStateException if it has none
template <class P>
requires requires {
    typename P::Type;
}
std::string Utf8(P const& property) {
    wstring const* const literal = property.GetLiteral();
    return ToUtf8(literal != nullptr ? *literal : TextOf<typename P::Type>(*property));
}

}  // namespace BxXmlLib5::Generated
