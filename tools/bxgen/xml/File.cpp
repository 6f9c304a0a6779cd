#include "xml/File.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <system_error>

namespace BxGen {

std::string ReadFile(std::string const& path) {
    constexpr std::size_t kMaxSize = std::size_t{1} << 30;
    constexpr std::size_t kPiece = 1u << 16;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> const file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (!file) throw std::system_error(errno, std::generic_category());
    std::string octets;
    for (;;) {
        std::size_t const size = octets.size();
        octets.resize(size + kPiece);
        std::size_t const count = std::fread(octets.data() + size, 1, kPiece, file.get());
        octets.resize(size + count);
        if (count < kPiece) break;
        if (octets.size() > kMaxSize) throw std::system_error(EFBIG, std::generic_category());
    }
    if (std::ferror(file.get()) != 0) throw std::system_error(errno, std::generic_category());
    return octets;
}

}  // namespace BxGen
