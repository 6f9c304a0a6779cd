// Hexadecimal text.
#pragma once

#include <span>
#include <string_view>

#include "BxXmlLib5/values/CBinaryData.h"

namespace BxXmlLib5 {

/// Two upper-case digits for each octet.
wstring EncodeHex(std::span<unsigned char const> octets);

/// @throws CBxException for anything but pairs of digits
CBinaryData DecodeHex(std::u16string_view text);

}  // namespace BxXmlLib5
