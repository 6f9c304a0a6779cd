#include "fastinfoset/CStringReader.h"

#include <algorithm>

#include "document/CTextStore.h"
#include "values/Base64.h"
#include "values/ByteEncodings.h"
#include "values/Hex.h"
#include "values/Utf8Conversion.h"

namespace BxXmlLib5::FastInfoset {

namespace {

/// Whether an index follows, in eight bits that go on into the next octet, and the length only then.
bool HasIndex(StringEncoding encoding) {
    return encoding == se_RestrictedAlphabet || encoding == se_Algorithm;
}

/// @param value 0 if there is none
/// @param invalid the message for that
std::uint64_t Valid(std::uint64_t value, char16_t const* invalid) {
    if (value == 0) throw CBxException(invalid);
    return value;
}

}  // namespace

StringOrIndex CStringReader::ReadIdentifyingStringOrIndex() {
    unsigned char const first = ReadOctet();
    if ((first & kIndexOnFirstBit) != 0) return {.m_index = ReadIndexOnSecondBit(first), .m_isIndex = true};
    return {.m_string = ReadUtf8(ReadLengthOnSecondBit(first)), .m_addToTable = true};
}

StringOrIndex CStringReader::ReadNonIdentifyingStringOrIndexOnFirstBit() {
    unsigned char const first = ReadOctet();
    if ((first & kIndexOnFirstBit) != 0) {
        return {.m_index = ReadIndexOrZeroOnSecondBit(first), .m_isIndex = true};
    }
    return {.m_string = ReadEncodedStringOnThirdBit(first),
            .m_addToTable = (first & kAddToTableOnFirstBit) != 0};
}

StringOrIndex CStringReader::ReadNonIdentifyingStringOrIndexOnThirdBit(unsigned char first) {
    if ((first & kIndexOnThirdBitFollows) != 0) {
        return {.m_index = ReadIndexOnFourthBit(first), .m_isIndex = true};
    }
    return {.m_string = ReadEncodedStringOnFifthBit(first),
            .m_addToTable = (first & kAddToTableOnThirdBit) != 0};
}

Decoded CStringReader::ReadEncodedStringOnThirdBit(unsigned char first) {
    auto const encoding = static_cast<StringEncoding>(first >> 4 & 3);
    unsigned char const last = HasIndex(encoding) ? ReadOctet() : first;
    unsigned const index = ((first & 0x0FU) << 4 | last >> 4) + 1;
    return ReadString(
        encoding, index, ReadLengthOnFifthBit(last),
        u"Failed to parse FastInfoset. Invalid EncodedCharacterString type  on the third bit of an octet.");
}

Decoded CStringReader::ReadEncodedStringOnFifthBit(unsigned char first) {
    auto const encoding = static_cast<StringEncoding>(first >> 2 & 3);
    unsigned char const last = HasIndex(encoding) ? ReadOctet() : first;
    unsigned const index = ((first & 0x03U) << 6 | last >> 2) + 1;
    return ReadString(
        encoding, index, ReadLengthOnSeventhBit(last),
        u"Failed to parse FastInfoset. Invalid EncodedCharacterString type  on the fifth bit of an octet.");
}

Decoded CStringReader::ReadString(StringEncoding encoding, unsigned index, std::uint64_t length,
                                  char16_t const* invalid) {
    switch (encoding) {
        case se_Utf8:
            return ReadUtf8(length);
        case se_Utf16:
            return ReadUtf16(length);
        case se_RestrictedAlphabet:
            return ReadRestrictedAlphabet(index, length);
        case se_Algorithm:
            return ReadAlgorithm(index, length);
    }
    throw CBxException(invalid);
}

Decoded CStringReader::ReadUtf8OnSecondBit() {
    return ReadUtf8(ReadLengthOnSecondBit(ReadOctet()));
}

std::uint64_t CStringReader::ReadSequenceLength() {
    return ReadInteger(ReadOctet(), kSequenceLength);
}

std::uint64_t CStringReader::ReadLengthOnSecondBit(unsigned char first) {
    return Valid(
        ReadInteger(first, kLengthOnSecondBit),
        u"Failed to parse FastInfoset. Invalid NonEmptyOctetString type  on the second bit of an octet.");
}

std::uint64_t CStringReader::ReadLengthOnFifthBit(unsigned char first) {
    return Valid(
        ReadInteger(first, kLengthOnFifthBit),
        u"Failed to parse FastInfoset. Invalid NonEmptyOctetString type  on the fifth bit of an octet.");
}

std::uint64_t CStringReader::ReadLengthOnSeventhBit(unsigned char first) {
    return Valid(
        ReadInteger(first, kLengthOnSeventhBit),
        u"Failed to parse FastInfoset. Invalid NonEmptyOctetString type  on the seventh bit of an octet.");
}

std::uint64_t CStringReader::ReadIndexOnSecondBit(unsigned char first) {
    return Valid(
        ReadInteger(first, kIndexOnSecondBit),
        u"Failed to parse FastInfoset. Invalid Encoding of integers 1 To 2^20 type  on the second bit of an octet.");
}

std::uint64_t CStringReader::ReadIndexOrZeroOnSecondBit(unsigned char first) {
    if (first == kEmptyString) return 0;
    return Valid(
        ReadInteger(first, kIndexOnSecondBit),
        u"Failed to parse FastInfoset. Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet.");
}

std::uint64_t CStringReader::ReadIndexOnThirdBit(unsigned char first) {
    return Valid(
        ReadInteger(first, kIndexOnThirdBit),
        u"Failed to parse FastInfoset. Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet.");
}

std::uint64_t CStringReader::ReadIndexOnFourthBit(unsigned char first) {
    return Valid(
        ReadInteger(first, kIndexOnFourthBit),
        u"Failed to parse FastInfoset. Invalid Encoding of integers 1 To 2^20 type  on the fourth bit of an octet.");
}

Decoded CStringReader::ReadUtf8(std::uint64_t length) {
    return DecodeUtf8(ReadOctets(length));
}

Decoded CStringReader::DecodeUtf8(std::span<unsigned char const> octets) {
    char16_t* const room = m_texts.Reserve(octets.size());
    std::size_t const size = Utf8ToWide(octets, room);
    if (m_isStrict && size == 0 && !octets.empty())
        throw CBxException(u"Failed to parse FastInfoset. Invalid UTF-8 string.");
    return {room, size};
}

Decoded CStringReader::ReadUtf16(std::uint64_t length) {
    if (length % 2 != 0) {
        throw CBxException(u"Failed to parse FastInfoset. Invalid UTF-16 string of an odd number of octets.");
    }
    auto const octets = ReadOctets(length);
    Decoded const text(m_texts.Reserve(octets.size() / 2), octets.size() / 2);
    for (std::size_t i = 0; i < text.size(); ++i) {
        text[i] = static_cast<char16_t>(octets[2 * i] << 8 | octets[2 * i + 1]);
    }
    return text;
}

Decoded CStringReader::ReadRestrictedAlphabet(unsigned index, std::uint64_t length) {
    std::u16string_view const alphabet = m_restrictedAlphabets.At(index);
    if (alphabet.size() < 2 || alphabet.size() > kMaxIndex) {
        throw CBxException(
            u"Failed to parse FastInfoset. Invalid Encoding of Restricted Alphabet. Alphabet must contain between 2 and 2^20 characters.");
    }
    // Both alphabets there are have 15 characters, so one takes four bits, and 15 is none: it ends the
    // string.
    auto const octets = ReadOctets(length);
    char16_t* const room = m_texts.Reserve(2 * octets.size());
    std::size_t size = 0;
    for (unsigned char const octet : octets) {
        for (int const position : {octet >> 4, octet & 0x0F}) {
            if (static_cast<std::size_t>(position) >= alphabet.size()) return {room, size};
            room[size++] = alphabet[static_cast<std::size_t>(position)];
        }
    }
    return {room, size};
}

Decoded CStringReader::ReadAlgorithm(unsigned index, std::uint64_t length) {
    constexpr unsigned kCData = 10;
    auto const octets = ReadOctets(length);
    if (index == kCData) return DecodeUtf8(octets);
    if (index > kCData) {
        throw CBxException(u"Failed to parse FastInfoset. Invalid NonEmptyOctetEncryptedString.");
    }
    auto const encoding = static_cast<ByteEncoding>(index);
    wstring const text = encoding == be_Hex      ? EncodeHex(octets)
                         : encoding == be_Base64 ? EncodeBase64(octets)
                                                 : RenderValues(octets, encoding);
    Decoded const decoded(m_texts.Reserve(text.size()), text.size());
    std::ranges::copy(text, decoded.begin());
    return decoded;
}

}  // namespace BxXmlLib5::FastInfoset
