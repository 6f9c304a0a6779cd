// A hash of what others choose.
#pragma once

#include <cstddef>
#include <cstdint>

namespace BxXmlLib5 {

/// SipHash-1-3 of some octets, with a key that is drawn once for the process. Who does not know the key can
/// choose no contents that collide more often than others do.
std::uint64_t KeyedHash(void const* octets, std::size_t size);

}  // namespace BxXmlLib5
