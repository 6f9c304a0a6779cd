#include "values/Deflate.h"

#include <zlib.h>

#include <limits>
#include <memory>
#include <new>

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

}  // namespace

std::size_t Deflate(std::span<unsigned char const> octets, CompressionType type,
                    std::span<unsigned char> room) {
    constexpr int kMemoryLevel = 8;
    int const windowBits = type == cmp_GZip ? MAX_WBITS + 16 : MAX_WBITS;
    z_stream stream{};
    stream.next_in = const_cast<Bytef*>(octets.data());
    stream.avail_in = CountOf(octets.size());
    stream.next_out = room.data();
    stream.avail_out = CountOf(room.size());
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, windowBits, kMemoryLevel, Z_DEFAULT_STRATEGY) !=
        Z_OK) {
        throw std::bad_alloc();
    }
    std::unique_ptr<z_stream, int (*)(z_stream*)> const end(&stream, deflateEnd);

    // In two calls: which code zlib has for a lack of room depends on it.
    deflate(&stream, Z_NO_FLUSH);
    ThrowUnlessFinished(deflate(&stream, Z_FINISH));
    return room.size() - stream.avail_out;
}

}  // namespace BxXmlLib5
