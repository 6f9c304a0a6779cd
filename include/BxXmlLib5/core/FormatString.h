// Formatting of messages.
#pragma once

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// Formats as swprintf does for wide characters, into a text as long as it needs to be, whatever the locale.
///
/// Conversions: d i u x X, c, s, e E f g G, and %%, with the flags `-+ #0`, width and precision in digits.
/// `%s` is a zero-terminated UTF-16 text, whatever its size prefix, and a null prints "(null)"; the flag 0
/// fills any conversion, texts too, with zeros. Size prefixes: `h` (converted to short), `l` (C++ long), `ll`
/// and `I64` (64 bits), `L` (long double, printed as a double), and `F` and `N`, which change nothing.
///
/// An unknown conversion is printed as it stands. The result ends at its first unit of value 0.
///
/// @param format zero-terminated; null gives the empty text. Never a text that a user supplied.
/// @throws std::bad_alloc
BXXMLLIB5_API wstring FormatString(char16_t const* format, ...);

}  // namespace BxXmlLib5
