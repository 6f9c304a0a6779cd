// Compression of output.
#pragma once

#include <cstddef>
#include <span>

#include "BxXmlLib5/core/Enumerations.h"

namespace BxXmlLib5 {

/// Writes a complete zlib (RFC 1950) or gzip (RFC 1952) stream.
/// @param type cmp_GZip or cmp_ZLib
/// @return how many octets were written
/// @throws CBxException with the code of zlib if the stream does not fit into the room for it
std::size_t Deflate(std::span<unsigned char const> octets, CompressionType type,
                    std::span<unsigned char> room);

}  // namespace BxXmlLib5
