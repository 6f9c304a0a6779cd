#include "BxXmlLib5/platform/CFileReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "platform/Files.h"

namespace BxXmlLib5 {

namespace fs = std::filesystem;

namespace {

/// What a path names once no symbolic link is left at its end.
/// @return empty with errno if links lead nowhere
std::string FollowLinks(fs::path path) {
    constexpr int kMaxLinks = 40;
    std::error_code error;
    for (int links = 0; fs::is_symlink(fs::symlink_status(path, error)); ++links) {
        fs::path const next = fs::read_symlink(path, error);
        if (links == kMaxLinks || error) {
            errno = error ? error.value() : ELOOP;
            return {};
        }
        path = path.parent_path() / next;
    }
    return path.string();
}

/// Permissions of a file that is new.
constexpr mode_t kNewFile = 0666;  // less the umask

/// What leads to an open file that has no name.
std::string PathOf(int file) {
    return "/proc/self/fd/" + std::to_string(file);
}

}  // namespace

// The file is made ahead: without memory for it nothing must be open.
CFileReplacement::CFileReplacement(std::string_view path) : m_file(std::make_unique<COutputFile>()) {
    // A path that holds a zero would name another file to the system.
    if (path.find('\0') != path.npos) {
        m_error = EINVAL;
    } else if (auto const descriptor = DescriptorOf(path)) {
        m_file->Take(fcntl(*descriptor, F_DUPFD_CLOEXEC, 0));
        m_error = m_file->Error();
    } else {
        Open(std::string(path));
    }
}

CFileReplacement::~CFileReplacement() {
    if (!m_path.empty()) unlink(m_path.c_str());
}

void CFileReplacement::Open(std::string path) {
    struct stat status {};
    bool const isThere = stat(path.c_str(), &status) == 0;
    if (isThere && (!S_ISREG(status.st_mode) || path.starts_with("/proc/"))) {
        m_file->Take(open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC));
        m_error = m_file->Error();
        return;
    }
    m_target = FollowLinks(path);
    if (m_target.empty() || (isThere && faccessat(AT_FDCWD, m_target.c_str(), W_OK, AT_EACCESS) != 0)) {
        m_error = errno;
        return;
    }
    constexpr mode_t kOwnerAlone = 0600;  // until it has the rights of the old one
    mode_t const mode = isThere ? kOwnerAlone : kNewFile;
    if (!OpenUnnamed(mode)) OpenBeside(mode);
    if (isThere && m_error == 0) TakeRights(m_target);
}

/// @return false where such a file cannot be made, or not be given a name later
bool CFileReplacement::OpenUnnamed(unsigned mode) {
    fs::path const folder = fs::path(m_target).parent_path();
    int const file = open(folder.empty() ? "." : folder.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC,
                          static_cast<mode_t>(mode));
    if (file < 0) return false;
    m_isUnnamed = faccessat(AT_FDCWD, PathOf(file).c_str(), F_OK, 0) == 0;
    if (m_isUnnamed) {
        m_file->Take(file);
    } else {
        close(file);
    }
    return m_isUnnamed;
}

void CFileReplacement::OpenBeside(unsigned mode) {
    MakeBeside([this, mode](std::string const& path) {
        m_file->Take(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, static_cast<mode_t>(mode)));
        return m_file->Error();
    });
}

void CFileReplacement::GiveName() {
    MakeBeside([from = PathOf(m_file->Descriptor())](std::string const& path) {
        return linkat(AT_FDCWD, from.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0 ? 0 : errno;
    });
}

/// @param make makes a file of a name, and returns the error number
template <class Make>
void CFileReplacement::MakeBeside(Make make) {
    fs::path const folder = fs::path(m_target).parent_path();
    for (int number = 0; m_path.empty(); ++number) {
        std::string const name = ".bx-" + std::to_string(getpid()) + "-" + std::to_string(number) + ".tmp";
        std::string path = (folder / name).string();
        m_error = make(path);
        if (m_error == 0) m_path = std::move(path);
        if (m_error != EEXIST) return;
    }
}

void CFileReplacement::TakeRights(std::string const& old) {
    struct stat status {};
    if (stat(old.c_str(), &status) != 0) return;  // it went meanwhile
    constexpr mode_t kRights = 0777;
    mode_t rights = status.st_mode & kRights;
    // Another group gets no more than everybody has.
    int const file = m_file->Descriptor();
    if (fchown(file, status.st_uid, status.st_gid) != 0) rights &= ~070U | (rights & 07U) << 3;
    if (fchmod(file, rights) != 0) m_error = errno;
}

void CFileReplacement::Write(std::span<unsigned char const> octets) {
    if (m_error != 0) return;
    m_file->Write(octets);
    m_error = m_file->Error();
}

int CFileReplacement::Finish() {
    if (m_error != 0) return m_error;
    if (m_isUnnamed) GiveName();
    m_isUnnamed = false;
    if (m_error != 0) return m_error;
    m_file->Close();
    m_error = m_file->Error();
    if (m_error != 0 || m_path.empty()) return m_error;
    if (std::rename(m_path.c_str(), m_target.c_str()) != 0) return m_error = errno;
    m_path.clear();
    return 0;
}

}  // namespace BxXmlLib5
