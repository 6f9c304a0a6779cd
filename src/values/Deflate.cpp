#include "values/Deflate.h"

#include <zlib.h>

#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"

namespace BxXmlLib5 {

namespace {

void ThrowUnlessFinished(int code) {
    if (code == Z_STREAM_END) return;
    throw CBxException(FormatString(u"Failed to compress data. [Error Code: %d]", code));
}

/// zlib counts octets in an unsigned int.
uInt CountOf(std::size_t size) {
    if (size > std::numeric_limits<uInt>::max()) ThrowUnlessFinished(Z_STREAM_ERROR);
    return static_cast<uInt>(size);
}

void Start(z_stream& stream, CompressionType type) {
    constexpr int kMemoryLevel = 8;
    int const windowBits = type == cmp_GZip ? MAX_WBITS + 16 : MAX_WBITS;
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, windowBits, kMemoryLevel, Z_DEFAULT_STRATEGY) !=
        Z_OK) {
        throw std::bad_alloc();
    }
}

constexpr std::size_t kRoom = 64 * 1024;

}  // namespace

CDeflater::CDeflater(CompressionType type, OctetSink sink)
    : m_sink(std::move(sink)), m_room(kRoom), m_stream(new z_stream(), [](z_stream* stream) {
          deflateEnd(stream);
          delete stream;
      }) {
    Start(*m_stream, type);
}

void CDeflater::Run(std::span<unsigned char const> octets, bool isLast) {
    m_stream->next_in = const_cast<Bytef*>(octets.data());
    m_stream->avail_in = CountOf(octets.size());
    do {
        m_stream->next_out = m_room.data();
        m_stream->avail_out = CountOf(m_room.size());
        deflate(m_stream.get(), isLast ? Z_FINISH : Z_NO_FLUSH);
        std::size_t const count = m_room.size() - m_stream->avail_out;
        if (count > 0) m_sink(std::span(m_room).first(count));
    } while (m_stream->avail_out == 0);
}

std::size_t Deflate(std::span<unsigned char const> octets, CompressionType type,
                    std::span<unsigned char> room) {
    z_stream stream{};
    stream.next_in = const_cast<Bytef*>(octets.data());
    stream.avail_in = CountOf(octets.size());
    stream.next_out = room.data();
    stream.avail_out = CountOf(room.size());
    Start(stream, type);
    std::unique_ptr<z_stream, int (*)(z_stream*)> const end(&stream, deflateEnd);

    // In two calls: which code zlib has for a lack of room depends on it.
    deflate(&stream, Z_NO_FLUSH);
    ThrowUnlessFinished(deflate(&stream, Z_FINISH));
    return room.size() - stream.avail_out;
}

}  // namespace BxXmlLib5
