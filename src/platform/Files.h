// Files by name. This is all that the library asks of a file system.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// What an error number of the system means, in English.
wstring WordsOfError(int error);

/// The descriptor that a name like /dev/stdin or /dev/fd/N stands for.
std::optional<int> DescriptorOf(std::string_view path);

/// A file for reading. Where a step fails, Error() has the error
/// number of the system.
class CInputFile {
public:
    enum Kind {
        kRegular,  ///< a regular file; anything else does not open
        kAny,  ///< also a pipe or a device, which may have to be waited for, or a name of an open descriptor
    };

    /// A file that the destructor closes, unless it was open before.
    /// @param path as the system has it
    explicit CInputFile(std::string_view path, Kind kind = kRegular);
    /// @param descriptor of anything that can be read; it stays the caller's
    explicit CInputFile(int descriptor) : m_file(descriptor), m_isOwned(false) {}
    CInputFile(CInputFile const&) = delete;
    CInputFile& operator=(CInputFile const&) = delete;
    ~CInputFile();

    bool IsOpen() const { return m_file >= 0; }
    /// In octets; empty if it cannot be told.
    std::optional<std::size_t> Size();
    /// Fills the buffer from the current position; false if that fails or the file ends before.
    bool Read(std::span<unsigned char> buffer);
    /// Fills the beginning of a buffer that is not empty with what there is, for which it waits.
    /// @return how many octets came, 0 at the end of the file; empty if that fails
    std::optional<std::size_t> ReadSome(std::span<unsigned char> buffer);
    int Error() const { return m_error; }

private:
    int m_file = -1;
    bool m_isOwned = true;
    int m_error = 0;
};

/// A file opened for writing, emptied if there was one of that name. The first step that fails leaves the
/// error number of the system in Error(), and nothing is written after it; what was written stays.
class COutputFile {
public:
    /// @param path in UTF-8 at the system
    explicit COutputFile(std::u16string_view path);
    /// No file yet.
    COutputFile() = default;
    COutputFile(COutputFile const&) = delete;
    COutputFile& operator=(COutputFile const&) = delete;
    ~COutputFile();

    /// For an object that has no file yet.
    /// @param file a descriptor, which is the object's now; or a negative one, with errno
    void Take(int file);
    void Write(std::span<unsigned char const> octets);
    /// Some systems tell only now that an earlier write failed.
    void Close();
    /// 0 as long as nothing failed.
    int Error() const { return m_error; }
    /// -1 if there is none.
    int Descriptor() const { return m_file; }

private:
    int m_error = 0;
    int m_file = -1;
};

}  // namespace BxXmlLib5
