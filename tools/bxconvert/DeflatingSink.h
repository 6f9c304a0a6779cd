// Compression of what is written.
#pragma once

#include "Sink.h"
#include "values/Deflate.h"

namespace BxConvert {

/// Makes a zlib (RFC 1950) or gzip (RFC 1952) stream of what comes, for another sink.
class DeflatingSink : public Sink {
public:
    /// @param sink outlives this one
    /// @param type cmp_GZip or cmp_ZLib
    DeflatingSink(Sink& sink, BxXmlLib5::CompressionType type)
        : m_sink(sink),
          m_deflater(type, [&sink](std::span<unsigned char const> octets) { sink.Write(octets); }) {}

    void Write(std::span<unsigned char const> octets) override { m_deflater.Add(octets); }
    void Finish() override {
        m_deflater.Finish();
        m_sink.Finish();
    }

private:
    Sink& m_sink;
    BxXmlLib5::CDeflater m_deflater;
};

}  // namespace BxConvert
