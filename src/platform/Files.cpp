#include "platform/Files.h"

#include <fcntl.h>
#include <locale.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <string>
#include <utility>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

namespace {

/// A descriptor, or -1 and the error number.
int Open(std::string_view path, int flags, int& error) {
    // A path that holds a zero would name another file to the system.
    if (path.find('\0') != path.npos) {
        error = EINVAL;
        return -1;
    }
    constexpr mode_t kModeOfNewFile = 0666;  // less the umask
    int const file = open(std::string(path).c_str(), flags | O_CLOEXEC, kModeOfNewFile);
    if (file < 0) error = errno;
    return file;
}

}  // namespace

std::optional<int> DescriptorOf(std::string_view path) {
    if (path == "/dev/stdin") return STDIN_FILENO;
    if (path == "/dev/stdout") return STDOUT_FILENO;
    if (path == "/dev/stderr") return STDERR_FILENO;
    for (std::string_view const prefix : {"/dev/fd/", "/proc/self/fd/"}) {
        if (!path.starts_with(prefix)) continue;
        std::string_view const digits = path.substr(prefix.size());
        int descriptor = 0;
        auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), descriptor);
        if (error == std::errc() && end == digits.data() + digits.size()) return descriptor;
    }
    return std::nullopt;
}

wstring WordsOfError(int error) {
    // Safe in threads, and independent of the locale of the process.
    locale_t const english = newlocale(LC_ALL_MASK, "C", nullptr);
    wstring const words = FromUtf8(strerror_l(error, english));
    freelocale(english);
    return words;
}

CInputFile::CInputFile(std::string_view path, Kind kind) {
    if (auto const descriptor = kind == kAny ? DescriptorOf(path) : std::nullopt) {
        m_file = *descriptor;
        m_isOwned = false;
        return;
    }
    // O_NONBLOCK: opening a pipe must not wait for its writer; a regular file does not heed it.
    int const file = Open(path, kind == kAny ? O_RDONLY : O_RDONLY | O_NONBLOCK, m_error);
    if (file < 0) return;
    struct stat status {};
    if (fstat(file, &status) != 0) {
        m_error = errno;
    } else if (S_ISDIR(status.st_mode) || (kind == kRegular && !S_ISREG(status.st_mode))) {
        m_error = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    } else {
        m_file = file;
        posix_fadvise(m_file, 0, 0, POSIX_FADV_SEQUENTIAL);
        return;
    }
    close(file);
}

CInputFile::~CInputFile() {
    if (m_isOwned && m_file >= 0) close(m_file);
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
        auto const count = ReadSome(buffer);
        if (count == 0U) m_error = 0;
        if (count.value_or(0) == 0) return false;
        buffer = buffer.subspan(*count);
    }
    return true;
}

std::optional<std::size_t> CInputFile::ReadSome(std::span<unsigned char> buffer) {
    for (;;) {
        ssize_t const count = read(m_file, buffer.data(), buffer.size());
        if (count >= 0) return static_cast<std::size_t>(count);
        m_error = errno;
        if (m_error != EINTR) return std::nullopt;
    }
}

COutputFile::COutputFile(std::u16string_view path)
    : m_file(Open(ToUtf8(path), O_WRONLY | O_CREAT | O_TRUNC, m_error)) {}

COutputFile::~COutputFile() {
    Close();
}

void COutputFile::Take(int file) {
    m_error = file < 0 ? errno : 0;
    m_file = file;
}

void COutputFile::Write(std::span<unsigned char const> octets) {
    while (m_error == 0 && !octets.empty()) {
        ssize_t const count = write(m_file, octets.data(), octets.size());
        if (count > 0) {
            octets = octets.subspan(static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            m_error = count == 0 ? EIO : errno;
        }
    }
}

void COutputFile::Close() {
    if (m_file < 0) return;
    bool const closed = close(std::exchange(m_file, -1)) == 0;
    if (!closed && m_error == 0) m_error = errno;
}

}  // namespace BxXmlLib5
