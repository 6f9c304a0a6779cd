// Files that are written whole or not at all.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "BxXmlLib5/platform/Export.h"

namespace BxXmlLib5 {

class COutputFile;

/// A new file, which takes the place of the one of its name once it is whole. Until then it has no name, so that
/// nothing of it is left even where the process is killed; on file systems that know no such files it stands beside
/// the old one, under a name that begins with ".bx-". If it never becomes whole, it goes with the object, and the old
/// file is as it was.
///
/// A symbolic link stays, and what it leads to is replaced. A file that may not be written is not replaced
/// either. The new one has the permissions of the old one, and its owner and group as far as the process may
/// give them; hard links keep the old one. What stands for an open file of the process (/dev/stdout,
/// /dev/stderr, /dev/fd/N, /proc/self/fd/N), a device and a pipe have no place to take and are written to as
/// they are.
///
/// The first step that fails leaves the error number of the system in Error(), and the others do nothing.
class BXXMLLIB5_API CFileReplacement {
public:
    /// @param path as the system has it, which is UTF-8 as a rule
    explicit CFileReplacement(std::string_view path);
    /// @{
    /// The new file belongs to one object.
    CFileReplacement(CFileReplacement const&) = delete;
    CFileReplacement& operator=(CFileReplacement const&) = delete;
    /// @}
    ~CFileReplacement();

    /// Adds octets at the end of the new file.
    void Write(std::span<unsigned char const> octets);

    /// Puts the new file into its place; without it the file is dropped.
    /// @return the error number
    int Finish();

    /// 0 as long as nothing failed.
    int Error() const { return m_error; }

    /// The path of the new file until it is in its place; empty if it has none. For those who remove it where a
    /// signal ends the process, and who hold signals during Finish(), which gives it one for a moment.
    std::string const& GetUnfinished() const { return m_path; }

private:
    void Open(std::string path);
    bool OpenUnnamed(unsigned mode);
    void OpenBeside(unsigned mode);
    void TakeRights(std::string const& old);
    void GiveName();
    template <class Make>
    void MakeBeside(Make make);

    int m_error = 0;
    std::string m_target;  // empty if nothing is to be replaced
    std::string m_path;    // of the new file, empty if it has none
    bool m_isUnnamed = false;
    std::unique_ptr<COutputFile> m_file;
};

}  // namespace BxXmlLib5
