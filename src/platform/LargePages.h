// Memory in larger pages than usual.
#pragma once

#include <cstddef>

namespace BxXmlLib5 {

/// Where large pages are, so many octets make one, and begin at a multiple of that.
inline constexpr std::size_t kLargePage = 2 * 1024 * 1024;

/// Lets the kernel give some memory by large pages when it is first written: one fault where there would be 512.
/// Where it does not, nothing changes.
/// @param memory begins at a large page
void PreferLargePages(void* memory, std::size_t octets) noexcept;

/// The same for the large pages that lie whole in some memory.
void PreferLargePagesWithin(void* memory, std::size_t octets) noexcept;

/// @return memory for one large page, from the kernel, preferred as such. A search for leaks that a sanitizer makes
/// holds what the page points to for reachable.
/// @throws std::bad_alloc
void* TakeLargePage();
void GiveBackLargePage(void* page) noexcept;

/// Lets the kernel have a part of such a page, whose content is lost. The part may be used again.
/// @param memory begins at a page of the usual size, and is whole ones
void GiveBackPart(void* memory, std::size_t octets) noexcept;

}  // namespace BxXmlLib5
