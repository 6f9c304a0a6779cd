// Decompression of input as it comes.
#pragma once

#include <memory>

#include "BxXmlLib5/core/CBxException.h"
#include "document/COctetSource.h"

struct z_stream_s;

namespace BxXmlLib5 {

/// A compressed stream is damaged, is cut off or needs a dictionary.
class CDamagedStream : public CBxException {
public:
    using CBxException::CBxException;
};

/// The content of a zlib (RFC 1950) or gzip (RFC 1952) stream. A gzip stream may have more members than one, whose
/// contents are joined; other octets behind the end are ignored.
class CInflatingSource : public COctetSource {
public:
    /// Whether octets begin as such a stream does.
    static bool Recognises(std::span<unsigned char const> beginning);

    /// @param source outlives this one
    explicit CInflatingSource(COctetSource& source);

    /// @throws CDamagedStream
    std::size_t Read(std::span<unsigned char> room) override;

private:
    static constexpr std::size_t kSlice = 64 * 1024;

    bool Refill();
    bool HasNextMember();

    COctetSource& m_source;
    std::unique_ptr<unsigned char[]> m_input;
    std::unique_ptr<z_stream_s, void (*)(z_stream_s*)> m_stream;
    bool m_isFirst = true;
    bool m_isGZip = false;
    bool m_isAtEnd = false;
};

}  // namespace BxXmlLib5
