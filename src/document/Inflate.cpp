#include "document/Inflate.h"

#include <zlib.h>

#include <memory>
#include <new>

#include "document/InputLimits.h"

namespace BxXmlLib5 {

namespace {

bool IsGZip(std::span<unsigned char const> octets) {
    return octets.size() >= 2 && octets[0] == 0x1F && octets[1] == 0x8B;
}

/// What zlib would refuse at once it is not asked for.
bool HasHeader(std::span<unsigned char const> octets) {
    constexpr unsigned kDeflate = 8;
    constexpr unsigned kLargestWindow = 7;
    if (octets.size() < 2) return false;
    unsigned const method = octets[0];
    return IsGZip(octets) || ((method << 8 | octets[1]) % 31 == 0 && (method & 0x0F) == kDeflate &&
                              method >> 4 <= kLargestWindow);
}

}  // namespace

std::optional<std::vector<unsigned char>> Inflate(std::span<unsigned char const> octets) {
    if (!HasHeader(octets)) return std::nullopt;
    constexpr int kAutomaticHeader = 32 + MAX_WBITS;  // zlib or gzip, whichever the header says
    z_stream stream{};
    stream.next_in = const_cast<Bytef*>(octets.data());
    stream.avail_in = static_cast<uInt>(octets.size());
    if (inflateInit2(&stream, kAutomaticHeader) != Z_OK) throw std::bad_alloc();
    std::unique_ptr<z_stream, int (*)(z_stream*)> const end(&stream, inflateEnd);

    constexpr std::size_t kBlockSize = 65536;
    auto const block = std::make_unique_for_overwrite<unsigned char[]>(kBlockSize);
    std::vector<unsigned char> content;
    for (;;) {
        stream.next_out = block.get();
        stream.avail_out = kBlockSize;
        int const result = inflate(&stream, Z_NO_FLUSH);
        // Anything but progress ends it: Z_BUF_ERROR is a stream that is cut off, Z_NEED_DICT one that needs
        // a dictionary, Z_DATA_ERROR one that is damaged.
        if (result == Z_MEM_ERROR) throw std::bad_alloc();
        if (result != Z_OK && result != Z_STREAM_END) return std::nullopt;
        content.insert(content.end(), block.get(), stream.next_out);
        ThrowIfInputTooLarge(content.size());
        if (result == Z_STREAM_END) {
            bool const hasNextMember = IsGZip(octets) && IsGZip({stream.next_in, stream.avail_in});
            if (!hasNextMember) return content;
            inflateReset(&stream);
        }
    }
}

}  // namespace BxXmlLib5
