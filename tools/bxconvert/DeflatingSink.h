// Compression of what is written.
#pragma once

#include <memory>
#include <vector>

#include "BxXmlLib5/core/Enumerations.h"
#include "Sink.h"

struct z_stream_s;

namespace BxConvert {

/// Makes a zlib (RFC 1950) or gzip (RFC 1952) stream of what comes, for another sink.
class DeflatingSink : public Sink {
public:
    /// @param sink outlives this one
    /// @param type cmp_GZip or cmp_ZLib
    DeflatingSink(Sink& sink, BxXmlLib5::CompressionType type);

    void Write(std::span<unsigned char const> octets) override { Deflate(octets, false); }
    void Finish() override;

private:
    void Deflate(std::span<unsigned char const> octets, bool isLast);

    Sink& m_sink;
    std::vector<unsigned char> m_room;
    std::unique_ptr<z_stream_s, void (*)(z_stream_s*)> m_stream;
};

}  // namespace BxConvert
