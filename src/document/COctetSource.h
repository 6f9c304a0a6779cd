// Where the octets of a document come from.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "BxXmlLib5/platform/Text.h"
#include "core/Limits.h"
#include "platform/Files.h"

namespace BxXmlLib5 {

inline constexpr char16_t kCannotOpen[] = u"Failed to open the file [%s] Error [0x%08x]";
inline constexpr char16_t kCannotRead[] = u"Failed to read the contents of the file [%s] Error [0x%08x]";

/// @param format of a message that has the path and the number of the error
/// @throws CBxException always
[[noreturn]] void ThrowFileError(char16_t const* format, std::string_view path, CInputFile const& file);

/// Octets that come in slices, as large as the reader likes.
class COctetSource {
public:
    virtual ~COctetSource() = default;

    /// Waits for octets if there are none yet.
    /// @param room not empty; its beginning is filled, not necessarily all of it
    /// @return how many octets came; 0 at the end
    /// @throws CBxException if they cannot be got
    virtual std::size_t Read(std::span<unsigned char> room) = 0;
};

/// All octets of a source.
/// @throws CBxException also if there are more than a document may have
std::vector<unsigned char> ReadAll(COctetSource& source, std::size_t most = kMaxInputSize);

/// Octets in memory.
class CMemorySource : public COctetSource {
public:
    /// @param octets outlive the source
    explicit CMemorySource(std::span<unsigned char const> octets) : m_left(octets) {}

    std::size_t Read(std::span<unsigned char> room) override {
        std::size_t const count = std::min(room.size(), m_left.size());
        std::copy_n(m_left.data(), count, room.data());
        m_left = m_left.subspan(count);
        return count;
    }

private:
    std::span<unsigned char const> m_left;
};

/// A file, or what a descriptor stands for.
class CFileSource : public COctetSource {
public:
    /// @param path of anything that can be read; /dev/stdin or /dev/fd/N is read from where it stands
    /// @throws CBxException if it cannot be opened
    explicit CFileSource(std::string_view path);
    /// @param descriptor stays the caller's; it is read from where it stands
    explicit CFileSource(int descriptor);

    std::size_t Read(std::span<unsigned char> room) override;

private:
    std::string m_path;
    CInputFile m_file;
};

/// Another source, of which the beginning has been looked at.
class CPeekedSource : public COctetSource {
public:
    static constexpr std::size_t kSize = 4096;

    /// @param source outlives this one
    explicit CPeekedSource(COctetSource& source);

    /// The first octets: kSize, or as many as there are. Before the first Read().
    std::span<unsigned char const> Beginning() const { return {m_octets + m_start, m_size - m_start}; }

    std::size_t Read(std::span<unsigned char> room) override;

private:
    COctetSource& m_source;
    unsigned char m_octets[kSize];
    std::size_t m_start = 0;
    std::size_t m_size = 0;
};

}  // namespace BxXmlLib5
