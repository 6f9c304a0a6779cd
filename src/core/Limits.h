// The limits that keep hostile input from harming the process, one for all readers and writers.
#pragma once

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>

namespace BxXmlLib5 {

/// Levels of elements in a document. Recursion takes some hundred octets of stack for a level; on a small stack it
/// ends before this limit.
inline constexpr int kMaxElementDepth = 1024;

/// Octets of stack that must be left where another level begins: what a level takes, the functions that it calls,
/// the application's too, and a failure's way out.
inline constexpr std::size_t kStackForLevel = 32 * 1024;

/// Octets of stack that recursion may take, besides, where nobody knows what is left.
inline constexpr std::size_t kUnknownStack = 16 * 1024;

/// Objects of generated classes inside each other, those without a tag included.
inline constexpr int kMaxObjectDepth = 2 * kMaxElementDepth;

/// Children that a read may look through in vain for the beginnings of groups. Beyond, the time of a read would
/// grow with the square of their number.
inline constexpr std::size_t kMaxVainSteps = 50'000'000;

/// Octets of a document, before and after decompression: what one call of Expat takes.
inline constexpr std::size_t kMaxInputSize = INT_MAX;

/// General entities of a document type that refer to other entities. Expat recurses once for each level of
/// reference, so their number bounds its stack, of which a level takes less than so many octets.
inline constexpr int kMaxNestingEntities = 1024;
inline constexpr std::size_t kStackOfEntity = 512;

/// Zeros that the exponent of a decimal's text may add to its digits: a document of short texts must not fill
/// the memory.
inline constexpr std::int64_t kMaxExponentZeros = 10'000;

/// Decimal places that a process may ask for.
inline constexpr int kMaxDecimalPlaces = 5'000'000;

/// Units of a namespace name. Each element and attribute repeats it where prefixes are resolved.
inline constexpr std::size_t kMaxNamespaceLength = 4096;

/// Units that a document may have beyond those that it spells out: attribute values that a document type adds
/// to elements, each value counting some more for itself, and what the indices of Fast Infoset repeat, where
/// text that is joined from chunks counts more, since joining copies it. A short document must not grow
/// without measure.
constexpr std::size_t MaxRepeatedUnits(std::size_t inputSize) {
    constexpr std::size_t kAlways = 8 * 1024 * 1024;
    constexpr std::size_t kForEachOctet = 100;
    return std::max(kAlways, inputSize * kForEachOctet);
}
inline constexpr std::size_t kUnitsOfDefaultedAttribute = 8;
inline constexpr std::size_t kUnitsOfJoinedUnit = 2;  // besides the one that an index repeats

/// What the search for a pattern's match in a value may take: octets of stack, which some thousand rounds of
/// a repeated group fill, and never more than half of what the thread has left; steps, as PCRE counts them; and
/// steps times octets of the value, of which a step may look at all. A search of the last of these sizes takes
/// about a second, and some seconds if the pattern is made of classes of Unicode properties.
inline constexpr unsigned long kMaxMatchStack = 3 * 1024 * 1024;
inline constexpr unsigned long kMaxMatchSteps = 1'000'000;
inline constexpr unsigned long kMaxMatchWork = 1'000'000'000;

}  // namespace BxXmlLib5
