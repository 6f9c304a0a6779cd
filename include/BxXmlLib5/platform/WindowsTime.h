// The two time records of Windows that the date class takes and gives, in the same layout.
#pragma once

#include <cstdint>

namespace BxXmlLib5 {

/// A calendar date and time of day, without a time zone.
struct _SYSTEMTIME {              // NOLINT(bugprone-reserved-identifier): the name on Windows
    std::uint16_t wYear;          ///< 1601 to 30827 on Windows; CDateTime takes up to 9999
    std::uint16_t wMonth;         ///< 1 to 12
    std::uint16_t wDayOfWeek;     ///< 0 for Sunday to 6 for Saturday
    std::uint16_t wDay;           ///< 1 to 31
    std::uint16_t wHour;          ///< 0 to 23
    std::uint16_t wMinute;        ///< 0 to 59
    std::uint16_t wSecond;        ///< 0 to 59
    std::uint16_t wMilliseconds;  ///< 0 to 999
};

/// A count of 100 nanoseconds since 1601-01-01T00:00:00 UTC, in two halves.
struct _FILETIME {                 // NOLINT(bugprone-reserved-identifier): the name on Windows
    std::uint32_t dwLowDateTime;   ///< the low 32 bits
    std::uint32_t dwHighDateTime;  ///< the high 32 bits
};

}  // namespace BxXmlLib5
