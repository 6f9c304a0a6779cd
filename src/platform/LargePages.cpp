#include "platform/LargePages.h"

#include <sys/mman.h>

#include <cerrno>

namespace BxXmlLib5 {

void PreferLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t octets) noexcept {
#ifdef MADV_HUGEPAGE
    int const before = errno;
    madvise(memory, octets, MADV_HUGEPAGE);
    errno = before;
#endif
}

}  // namespace BxXmlLib5
