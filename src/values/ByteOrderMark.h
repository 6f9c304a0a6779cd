// What a file of text begins with.
#pragma once

#include <span>

#include "BxXmlLib5/core/Enumerations.h"
#include "platform/Utf16Octets.h"

namespace BxXmlLib5 {

/// The byte order mark of an encoding; no octets for one without.
inline std::span<unsigned char const> ByteOrderMark(XmlEncoding encoding) {
    if (encoding == enc_UTF16 || encoding == enc_UTF16NoDeclaration) return kByteOrderMark;
    return {};
}

}  // namespace BxXmlLib5
