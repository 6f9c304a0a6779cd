#include "Source.h"

#include <fcntl.h>
#include <unistd.h>

#include "Options.h"
#include "SystemError.h"

namespace BxConvert {

Source::Source(std::string const& name)
    : m_file(name == kStandardStream ? STDIN_FILENO : open(name.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (m_file < 0) ThrowSystemError();
}

Source::~Source() {
    if (m_file != STDIN_FILENO) close(m_file);
}

std::size_t Source::Read(std::span<unsigned char> room) {
    for (;;) {
        ssize_t const count = read(m_file, room.data(), room.size());
        if (count >= 0) {
            m_count += static_cast<std::size_t>(count);
            return static_cast<std::size_t>(count);
        }
        if (errno != EINTR) ThrowSystemError();
    }
}

}  // namespace BxConvert
