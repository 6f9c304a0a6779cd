// Strings, lengths and indices of Fast Infoset.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"
#include "fastinfoset/COctetReader.h"
#include "fastinfoset/CVocabularyTable.h"
#include "fastinfoset/Format.h"

namespace BxXmlLib5 {
class CTextStore;
}

namespace BxXmlLib5::FastInfoset {

/// A string as it was decoded, in the room of the text store: it lasts until the next one is decoded, unless
/// the store keeps it.
using Decoded = std::span<char16_t>;

/// What stands where a string may have been put into a vocabulary table before.
struct StringOrIndex {
    Decoded m_string{};
    std::uint64_t m_index = 0;
    bool m_isIndex = false;
    bool m_addToTable = false;  // a string that takes an index now
};

/// Octets with the productions of ITU-T X.891, annex C, that say how text is encoded. Each is named for the bit
/// on which it starts. The octet with that bit has been read already and is the argument; an operation without
/// one reads it.
///
/// @throws CBxException from all of them, for a form that the standard does not have and at the end of input
class CStringReader : public COctetReader {
public:
    /// @param texts where strings are decoded
    /// @param isStrict whether malformed UTF-8 is refused; otherwise it stands for nothing
    CStringReader(CTextStore& texts, bool isStrict) : m_texts(texts), m_isStrict(isStrict) {}

    StringOrIndex ReadIdentifyingStringOrIndex();                                  // C.13
    StringOrIndex ReadNonIdentifyingStringOrIndexOnFirstBit();                     // C.14
    StringOrIndex ReadNonIdentifyingStringOrIndexOnThirdBit(unsigned char first);  // C.15
    Decoded ReadEncodedStringOnThirdBit(unsigned char first);                      // C.19
    Decoded ReadEncodedStringOnFifthBit(unsigned char first);                      // C.20
    Decoded ReadUtf8OnSecondBit();                                                 // C.22, as text
    std::uint64_t ReadSequenceLength();                                            // C.21
    std::uint64_t ReadLengthOnSecondBit(unsigned char first);                      // C.22
    std::uint64_t ReadLengthOnFifthBit(unsigned char first);                       // C.23
    std::uint64_t ReadLengthOnSeventhBit(unsigned char first);                     // C.24
    std::uint64_t ReadIndexOnSecondBit(unsigned char first);                       // C.25
    std::uint64_t ReadIndexOrZeroOnSecondBit(unsigned char first);                 // C.26
    std::uint64_t ReadIndexOnThirdBit(unsigned char first);                        // C.27
    std::uint64_t ReadIndexOnFourthBit(unsigned char first);                       // C.28

private:
    Decoded ReadString(StringEncoding encoding, unsigned index, std::uint64_t length,
                       char16_t const* invalid);
    Decoded ReadUtf8(std::uint64_t length);
    Decoded ReadUtf16(std::uint64_t length);
    Decoded ReadRestrictedAlphabet(unsigned index, std::uint64_t length);
    Decoded ReadAlgorithm(unsigned index, std::uint64_t length);
    Decoded DecodeUtf8(std::span<unsigned char const> octets);

    CTextStore& m_texts;
    bool m_isStrict;
    CVocabularyTable<std::u16string_view> m_restrictedAlphabets{kBuiltInAlphabets[0], kBuiltInAlphabets[1]};
};

}  // namespace BxXmlLib5::FastInfoset
