// Files by name. This is all that the library asks of a file system.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace BxXmlLib5 {

/// A regular file opened for reading, closed by the destructor. Where a step fails, Error() has the error
/// number of the system.
class CInputFile {
public:
    /// @param path in UTF-8 at the system. Anything but a regular file does not open.
    explicit CInputFile(std::u16string_view path);
    CInputFile(CInputFile const&) = delete;
    CInputFile& operator=(CInputFile const&) = delete;
    ~CInputFile();

    bool IsOpen() const { return m_file >= 0; }
    /// In octets; empty if it cannot be told.
    std::optional<std::size_t> Size();
    /// Fills the buffer from the current position; false if that fails or the file ends before.
    bool Read(std::span<unsigned char> buffer);
    int Error() const { return m_error; }

private:
    int m_file = -1;
    int m_error = 0;
};

}  // namespace BxXmlLib5
