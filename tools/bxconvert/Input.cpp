#include "Input.h"

#include <climits>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "Options.h"
#include "SystemError.h"

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// All octets of a stream, or so many that a document refuses them.
std::vector<unsigned char> ReadAll(std::FILE* file) {
    constexpr std::size_t kBlock = 65536;
    constexpr std::size_t kEnough = std::size_t{INT_MAX} + 1;
    std::vector<unsigned char> octets;
    std::size_t count = 0;
    do {
        std::size_t const used = octets.size();
        octets.resize(used + kBlock);
        count = std::fread(octets.data() + used, 1, kBlock, file);
        if (std::ferror(file) != 0) ThrowSystemError();
        octets.resize(used + count);
    } while (count > 0 && octets.size() < kEnough);
    return octets;
}

std::vector<unsigned char> ReadStream(std::string const& name) {
    if (name == kStandardStream) return ReadAll(stdin);
    File const file(std::fopen(name.c_str(), "rb"), std::fclose);
    if (!file) ThrowSystemError();
    return ReadAll(file.get());
}

/// Whether the document can open the file by its name, or is the one to say why not. It takes regular files
/// with a name in UTF-8.
bool IsForDocument(std::string const& name) {
    if (name == kStandardStream || ToUtf8(FromUtf8(name)) != name) return false;
    std::error_code ignored;
    auto const status = std::filesystem::status(name, ignored);
    return !std::filesystem::is_other(status);
}

}  // namespace

std::uintmax_t LoadInput(CXmlDocument& document, std::string const& name) {
    if (IsForDocument(name)) {
        document.Load(FromUtf8(name).c_str());
        return std::filesystem::file_size(name);
    }
    std::vector<unsigned char> const octets = ReadStream(name);
    document.LoadXmlStream(octets.data(), octets.size());
    return octets.size();
}

}  // namespace BxConvert
