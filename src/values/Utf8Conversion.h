// UTF-8 of the octet formats, where malformed text has no conversion. ToUtf8 and FromUtf8 replace what is
// malformed instead.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "BxXmlLib5/values/CBinaryData.h"

namespace BxXmlLib5 {

/// How many octets the UTF-8 form has; 0 for a text with an unpaired surrogate.
std::size_t Utf8Size(std::u16string_view text);

/// As Utf8Size().
/// @throws CBxInvalidValueException for a text with an unpaired surrogate
std::size_t CheckedUtf8Size(std::u16string_view text);

/// Writes the UTF-8 form of a text without unpaired surrogates.
/// @param out room for just this form, Utf8Size(text) octets
void WriteUtf8(std::u16string_view text, std::span<unsigned char> out);

/// The UTF-8 form; an object without a holder for the empty text and for one with an unpaired surrogate.
CBinaryData WideToUtf8(std::u16string_view text);

/// The UTF-16 form; the empty text for octets that are not well-formed (The Unicode Standard, table 3-7).
wstring Utf8ToWide(std::span<unsigned char const> octets);

/// Writes the UTF-16 form.
/// @param out room for as many units as there are octets
/// @return how many units there are; 0 for octets that are not well-formed
std::size_t Utf8ToWide(std::span<unsigned char const> octets, char16_t* out);

}  // namespace BxXmlLib5
