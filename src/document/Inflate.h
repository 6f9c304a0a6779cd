// Decompression of input.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "core/Limits.h"

namespace BxXmlLib5 {

/// The content of a complete zlib (RFC 1950) or gzip (RFC 1952) stream; nothing if the octets are no such
/// stream, or a damaged one, or one that is cut off. A gzip stream may have more members than one, whose
/// contents are joined; other octets behind the end are ignored.
/// @throws CBxException if the content has more octets than so many, or than kMaxInputSize
std::optional<std::vector<unsigned char>> Inflate(std::span<unsigned char const> octets,
                                                  std::size_t most = kMaxInputSize);

}  // namespace BxXmlLib5
