#include "document/CInflatingSource.h"

#include <zlib.h>

#include <climits>
#include <new>
#include <utility>

namespace BxXmlLib5 {

namespace {

bool IsGZip(std::span<unsigned char const> octets) {
    return octets.size() >= 2 && octets[0] == 0x1F && octets[1] == 0x8B;
}

}  // namespace

/// What zlib would refuse at once it is not asked for.
bool CInflatingSource::Recognises(std::span<unsigned char const> beginning) {
    constexpr unsigned kDeflate = 8;
    constexpr unsigned kLargestWindow = 7;
    if (beginning.size() < 2) return false;
    unsigned const method = beginning[0];
    return IsGZip(beginning) || ((method << 8 | beginning[1]) % 31 == 0 && (method & 0x0F) == kDeflate &&
                                 method >> 4 <= kLargestWindow);
}

CInflatingSource::CInflatingSource(COctetSource& source)
    : m_source(source),
      m_input(std::make_unique_for_overwrite<unsigned char[]>(kSlice)),
      m_stream(new z_stream(), [](z_stream* stream) {
          inflateEnd(stream);
          delete stream;
      }) {
    constexpr int kAutomaticHeader = 32 + MAX_WBITS;  // zlib or gzip, whichever the header says
    m_stream->next_in = m_input.get();
    if (inflateInit2(m_stream.get(), kAutomaticHeader) != Z_OK) throw std::bad_alloc();
}

std::size_t CInflatingSource::Read(std::span<unsigned char> room) {
    m_stream->next_out = room.data();
    m_stream->avail_out = static_cast<uInt>(std::min<std::size_t>(room.size(), UINT_MAX));
    while (!m_isAtEnd && m_stream->next_out == room.data()) {
        if (m_stream->avail_in == 0 && !Refill()) throw CDamagedStream(u"The compressed data breaks off");
        if (std::exchange(m_isFirst, false)) m_isGZip = m_input[0] == 0x1F;
        int const result = inflate(m_stream.get(), Z_NO_FLUSH);
        if (result == Z_MEM_ERROR) throw std::bad_alloc();
        // Z_NEED_DICT is a stream that needs a dictionary, Z_DATA_ERROR one that is damaged.
        if (result != Z_OK && result != Z_STREAM_END) throw CDamagedStream(u"The compressed data is damaged");
        if (result == Z_STREAM_END) m_isAtEnd = !HasNextMember();
    }
    return static_cast<std::size_t>(m_stream->next_out - room.data());
}

/// Adds to the input that is left.
/// @return false at its end
bool CInflatingSource::Refill() {
    std::copy_n(m_stream->next_in, m_stream->avail_in, m_input.get());
    m_stream->next_in = m_input.get();
    std::span const room(m_input.get() + m_stream->avail_in, kSlice - m_stream->avail_in);
    std::size_t const count = m_source.Read(room);
    m_stream->avail_in += static_cast<uInt>(count);
    return count > 0;
}

bool CInflatingSource::HasNextMember() {
    if (!m_isGZip) return false;
    while (m_stream->avail_in < 2 && Refill()) {
    }
    if (!IsGZip({m_stream->next_in, m_stream->avail_in})) return false;
    inflateReset(m_stream.get());
    return true;
}

}  // namespace BxXmlLib5
