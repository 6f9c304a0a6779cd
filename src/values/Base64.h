// Base64 (RFC 4648, 4).
#pragma once

#include <span>
#include <string_view>

#include "BxXmlLib5/values/CBinaryData.h"

namespace BxXmlLib5 {

/// Padded, without line breaks.
wstring EncodeBase64(std::span<unsigned char const> octets);

/// What CBinaryData::SetAsBase64 makes of a text.
CBinaryData DecodeBase64(std::u16string_view text);

}  // namespace BxXmlLib5
