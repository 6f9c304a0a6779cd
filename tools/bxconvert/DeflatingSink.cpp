#include "DeflatingSink.h"

#include <zlib.h>

#include <new>

namespace BxConvert {

using namespace BxXmlLib5;

DeflatingSink::DeflatingSink(Sink& sink, CompressionType type)
    : m_sink(sink), m_room(64 * 1024), m_stream(new z_stream(), [](z_stream* stream) {
          deflateEnd(stream);
          delete stream;
      }) {
    constexpr int kMemoryLevel = 8;
    int const windowBits = type == cmp_GZip ? MAX_WBITS + 16 : MAX_WBITS;
    if (deflateInit2(m_stream.get(), Z_BEST_SPEED, Z_DEFLATED, windowBits, kMemoryLevel,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
        throw std::bad_alloc();
    }
}

void DeflatingSink::Finish() {
    Deflate({}, true);
    m_sink.Finish();
}

void DeflatingSink::Deflate(std::span<unsigned char const> octets, bool isLast) {
    m_stream->next_in = const_cast<Bytef*>(octets.data());
    m_stream->avail_in = static_cast<uInt>(octets.size());
    do {
        m_stream->next_out = m_room.data();
        m_stream->avail_out = static_cast<uInt>(m_room.size());
        deflate(m_stream.get(), isLast ? Z_FINISH : Z_NO_FLUSH);
        std::size_t const count = m_room.size() - m_stream->avail_out;
        if (count > 0) m_sink.Write(std::span(m_room).first(count));
    } while (m_stream->avail_out == 0);
}

}  // namespace BxConvert
