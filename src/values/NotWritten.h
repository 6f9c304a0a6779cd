// The failure of writing a file.
#pragma once

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "platform/Files.h"

namespace BxXmlLib5 {

/// @param error the error number of the system
[[noreturn]] inline void ThrowNotWritten(wstring const& path, int error) {
    throw CBxException(
        FormatString(u"Failed to write data to the file [%s] error [0x%08X]", path.c_str(), error),
        CBxException(WordsOfError(error)));
}

}  // namespace BxXmlLib5
