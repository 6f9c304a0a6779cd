// A failure of the system as an exception.
#pragma once

#include <cerrno>
#include <system_error>

namespace BxConvert {

[[noreturn]] inline void ThrowSystemError(int error = errno) {
    throw std::system_error(error, std::generic_category());
}

}  // namespace BxConvert
