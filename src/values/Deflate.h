// Compression of output.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "BxXmlLib5/core/Enumerations.h"

struct z_stream_s;

namespace BxXmlLib5 {

/// What takes octets.
using OctetSink = std::function<void(std::span<unsigned char const>)>;

/// Makes a zlib (RFC 1950) or gzip (RFC 1952) stream piece by piece.
class CDeflater {
public:
    /// @param type cmp_GZip or cmp_ZLib
    /// @param sink is called with the stream
    CDeflater(CompressionType type, OctetSink sink);

    void Add(std::span<unsigned char const> octets) { Run(octets, false); }
    /// Ends the stream.
    void Finish() { Run({}, true); }

private:
    void Run(std::span<unsigned char const> octets, bool isLast);

    OctetSink m_sink;
    std::vector<unsigned char> m_room;
    std::unique_ptr<z_stream_s, void (*)(z_stream_s*)> m_stream;
};

/// Writes a complete zlib (RFC 1950) or gzip (RFC 1952) stream.
/// @param type cmp_GZip or cmp_ZLib
/// @return how many octets were written
/// @throws CBxException with the code of zlib if the stream does not fit into the room for it
std::size_t Deflate(std::span<unsigned char const> octets, CompressionType type,
                    std::span<unsigned char> room);

}  // namespace BxXmlLib5
