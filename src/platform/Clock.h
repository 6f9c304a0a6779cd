// The clock of the system and the conversion of its time records. This is all that the library asks of
// either.
#pragma once

#include <optional>

#include "BxXmlLib5/platform/WindowsTime.h"

namespace BxXmlLib5 {

/// Now, in the time zone that the process has at this moment.
_SYSTEMTIME LocalTime();

/// The same instant as a date in UTC, cut to milliseconds; empty for a count of 2^63 or more.
std::optional<_SYSTEMTIME> ToSystemTime(_FILETIME const& time);

}  // namespace BxXmlLib5
