#include "document/COctetSource.h"

#include <memory>
#include <string>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "document/InputLimits.h"

namespace BxXmlLib5 {

void ThrowFileError(char16_t const* format, std::string_view path, CInputFile const& file) {
    int const error = file.Error();
    wstring const words = error == 0 ? wstring(u"It became shorter while it was read") : WordsOfError(error);
    throw CBxException(FormatString(format, FromUtf8(path).c_str(), error), CBxException(words));
}

std::vector<unsigned char> ReadAll(COctetSource& source, std::size_t most) {
    constexpr std::size_t kBlockSize = 65536;
    auto const block = std::make_unique_for_overwrite<unsigned char[]>(kBlockSize);
    std::vector<unsigned char> octets;
    while (std::size_t const count = source.Read({block.get(), kBlockSize})) {
        octets.insert(octets.end(), block.get(), block.get() + count);
        ThrowIfInputTooLarge(octets.size(), most);
    }
    return octets;
}

CFileSource::CFileSource(std::string_view path) : m_path(path), m_file(path, CInputFile::kAny) {
    if (!m_file.IsOpen()) ThrowFileError(kCannotOpen, m_path, m_file);
}

CFileSource::CFileSource(int descriptor)
    : m_path("/dev/fd/" + std::to_string(descriptor)), m_file(descriptor) {}

std::size_t CFileSource::Read(std::span<unsigned char> room) {
    auto const count = m_file.ReadSome(room);
    if (!count) ThrowFileError(kCannotRead, m_path, m_file);
    return *count;
}

CPeekedSource::CPeekedSource(COctetSource& source) : m_source(source) {
    for (std::size_t count = 1; count > 0 && m_size < kSize; m_size += count) {
        count = source.Read(std::span(m_octets).subspan(m_size));
    }
}

std::size_t CPeekedSource::Read(std::span<unsigned char> room) {
    auto const left = Beginning();
    if (left.empty()) return m_source.Read(room);
    std::size_t const count = std::min(room.size(), left.size());
    std::copy_n(left.data(), count, room.data());
    m_start += count;
    return count;
}

}  // namespace BxXmlLib5
