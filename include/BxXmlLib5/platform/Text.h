// The library's text type and the bridge to UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "BxXmlLib5/platform/Export.h"

namespace BxXmlLib5 {

/// Text of the library: UTF-16 code units on every platform. Literals are written u"...".
using wstring = std::u16string;

/// The UTF-8 form of a UTF-16 text. An unpaired surrogate, which has none, becomes U+FFFD.
/// @throws std::bad_alloc
BXXMLLIB5_API std::string ToUtf8(std::u16string_view text);

/// The UTF-16 form of a UTF-8 text. Each maximal part of an ill-formed sequence becomes U+FFFD, as The
/// Unicode Standard recommends (section 3.9).
/// @throws std::bad_alloc
BXXMLLIB5_API wstring FromUtf8(std::string_view octets);

}  // namespace BxXmlLib5
