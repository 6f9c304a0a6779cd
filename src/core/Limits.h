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

/// Octets of a document, before and after decompression: what one call of Expat takes.
inline constexpr std::size_t kMaxInputSize = INT_MAX;

/// Octets of a tag, a comment or, in Fast Infoset, a string, in a document that is read piece by piece: what must
/// be there as a whole.
inline constexpr std::size_t kMaxOctetsOfToken = 64 * 1024 * 1024;

/// Octets that the names, and in Fast Infoset the tables, of such a document may take: all of it that stays.
inline constexpr std::size_t kMaxOctetsOfNames = 64 * 1024 * 1024;
inline constexpr std::size_t kMaxOctetsOfVocabulary = 256 * 1024 * 1024;

/// General entities of a document type that refer to other entities. Expat recurses once for each level of
/// reference, so their number bounds its stack, of which a level takes less than so many octets.
inline constexpr int kMaxNestingEntities = 1024;
inline constexpr std::size_t kStackOfEntity = 512;

/// Attributes that a document type declares of one element. Expat
/// looks at all of them for each that has a default value, and for each such element.
inline constexpr std::size_t kMaxDeclaredAttributes = 1024;

/// Zeros that the exponent of a decimal's text may add to its digits: a document of short texts must not fill
/// the memory.
inline constexpr std::int64_t kMaxExponentZeros = 10'000;

/// Decimal places that a process may ask for.
inline constexpr int kMaxDecimalPlaces = 5'000'000;

/// Units of a namespace name. Each element and attribute repeats it where prefixes are resolved.
inline constexpr std::size_t kMaxNamespaceLength = 4096;

/// Units that a document may have beyond those that it spells out: attribute values that a document type adds
/// to elements, each value counting some more for itself, and what the indices of Fast Infoset repeat of texts,
/// values and very long names, where text that is joined from chunks counts more, since joining copies it. A short
/// document must not grow without measure.
constexpr std::size_t MaxRepeatedUnits(std::uint64_t inputSize) {
    constexpr std::uint64_t kAlways = 8 * 1024 * 1024;
    constexpr std::uint64_t kForEachOctet = 100;
    return std::max(kAlways, inputSize * kForEachOctet);
}
inline constexpr std::size_t kUnitsOfDefaultedAttribute = 8;
inline constexpr std::size_t kUnitsOfName = 128;      // of a name count for nothing: an element takes more
inline constexpr std::size_t kUnitsOfJoinedUnit = 2;  // besides the one that an index repeats

/// Octets of stack that must be left where the compilation of a pattern enters another group.
inline constexpr std::size_t kStackForGroup = 8 * 1024;

/// Octets of heap for the search of a pattern's match in a value: PCRE2 keeps some 150 for each place that it may
/// come back to, of which a repeated group makes one or two in each round.
inline constexpr std::size_t kMaxMatchMemory = 128 * 1024 * 1024;

/// What a search may do before its work is counted, which only few need: steps, as PCRE2 counts them, and steps
/// times octets of the value, of which each step may look at all.
inline constexpr std::size_t kMaxUncountedSteps = 1'000'000;
inline constexpr std::size_t kMaxUncountedWork = 25'000'000;

/// Octets of the value that a counted search may look at, a step counting for kWorkOfStep more. It is given up
/// within about a second, or some seconds if the pattern is made of classes of Unicode properties.
inline constexpr std::size_t kMaxMatchWork = 250'000'000;
inline constexpr std::size_t kWorkOfStep = 8;

}  // namespace BxXmlLib5
