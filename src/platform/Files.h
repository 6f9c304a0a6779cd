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

/// A file opened for writing, emptied if there was one of that name. The first step that fails leaves the
/// error number of the system in Error(), and nothing is written after it; what was written stays.
class COutputFile {
public:
    /// @param path in UTF-8 at the system
    explicit COutputFile(std::u16string_view path);
    /// @param file a descriptor, which is the object's now; or a negative one, with errno
    explicit COutputFile(int file);
    COutputFile(COutputFile const&) = delete;
    COutputFile& operator=(COutputFile const&) = delete;
    ~COutputFile();

    void Write(std::span<unsigned char const> octets);
    /// Some systems tell only now that an earlier write failed.
    void Close();
    /// 0 as long as nothing failed.
    int Error() const { return m_error; }

private:
    int m_error = 0;
    int m_file;
};

}  // namespace BxXmlLib5
