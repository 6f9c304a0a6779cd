#include "platform/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

CInputFile::CInputFile(std::u16string_view path) {
    // A path that holds a zero would name another file to the system.
    if (path.find(u'\0') != path.npos) {
        m_error = EINVAL;
        return;
    }
    // O_NONBLOCK: opening a pipe must not wait for its writer; a regular file does not heed it.
    int const file = open(ToUtf8(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        m_error = errno;
        return;
    }
    struct stat status {};
    if (fstat(file, &status) != 0) {
        m_error = errno;
    } else if (!S_ISREG(status.st_mode)) {
        m_error = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    } else {
        m_file = file;
        posix_fadvise(m_file, 0, 0, POSIX_FADV_SEQUENTIAL);
        return;
    }
    close(file);
}

CInputFile::~CInputFile() {
    if (m_file >= 0) close(m_file);
}

std::optional<std::size_t> CInputFile::Size() {
    struct stat status {};
    if (fstat(m_file, &status) != 0) {
        m_error = errno;
        return std::nullopt;
    }
    return static_cast<std::size_t>(status.st_size);
}

bool CInputFile::Read(std::span<unsigned char> buffer) {
    while (!buffer.empty()) {
        ssize_t const count = read(m_file, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) {
            m_error = count < 0 ? errno : 0;
            return false;
        }
        buffer = buffer.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

}  // namespace BxXmlLib5
