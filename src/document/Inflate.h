// Decompression of input.
#pragma once

#include <optional>
#include <span>
#include <vector>

namespace BxXmlLib5 {

/// The content of a complete zlib (RFC 1950) or gzip (RFC 1952) stream; nothing if the octets are no such
/// stream, or a damaged one, or one that is cut off.
/// @throws CBxException if the content exceeds kMaxInputSize
std::optional<std::vector<unsigned char>> Inflate(std::span<unsigned char const> octets);

/// @throws CBxException if a document of this size exceeds kMaxInputSize
void ThrowIfInputTooLarge(std::size_t size);

}  // namespace BxXmlLib5
