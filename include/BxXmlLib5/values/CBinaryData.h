// Octets: the value of hexBinary and base64Binary, and the buffer in which documents leave the library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/core/Enumerations.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

struct BinaryDataHolder;

/// How CBinaryData::GetAsString reads the octets. 1 to 9 are the indices of the built-in encoding algorithms
/// of ITU-T X.891, clause 10. Numbers begin with their most significant octet.
enum ByteEncoding : std::int32_t {
    be_Text = 0,     ///< As GetString()
    be_Hex = 1,      ///< As GetAsHexString()
    be_Base64 = 2,   ///< As GetAsBase64()
    be_Short = 3,    ///< Two's complement numbers of 2 octets
    be_Int = 4,      ///< Two's complement numbers of 4 octets
    be_Long = 5,     ///< Two's complement numbers of 8 octets
    be_Boolean = 6,  ///< Bits, behind four bits that say how many at the end of the last octet are unused
    be_Float = 7,    ///< IEEE 754 numbers of 4 octets, printed with up to 7 digits
    be_Double = 8,   ///< IEEE 754 numbers of 8 octets, printed with up to 16 digits
    be_UUID = 9,     ///< 32 hexadecimal digits, without hyphens, for each 16 octets
};

/// A sequence of octets. Copies share one holder of the octets, which is counted; an object takes a copy for
/// itself when it is about to change shared ones. Without a holder, an object is empty, and it differs from
/// one with a holder of no octets.
///
/// Objects that share a holder may be used by different threads, since the count is atomic; one object may
/// not.
///
/// A null pointer to octets stands for no octets, a null text for the empty one. An argument may point into
/// the object itself.
class BXXMLLIB5_API CBinaryData {
public:
    /// No holder.
    CBinaryData() noexcept;

    /// Shares the holder.
    CBinaryData(CBinaryData const& other) noexcept;
    /// Drops its own holder and shares the other one.
    CBinaryData& operator=(CBinaryData const& other) noexcept;

    /// Takes the holder; the other object has none afterwards.
    CBinaryData(CBinaryData&& other) noexcept;
    /// Drops its own holder and takes the other one; the other object has none afterwards.
    CBinaryData& operator=(CBinaryData&& other) noexcept;

    /// Frees the octets with the last object that shares them.
    ~CBinaryData();

    /// @param takeOwnership the octets, which new[] allocated, belong to the object from now on, even if this
    /// fails; otherwise they are copied
    CBinaryData(unsigned char* data, std::size_t length, bool takeOwnership);

    /// Takes over a buffer without copying it.
    CBinaryData(std::unique_ptr<unsigned char[]> data, std::size_t length);

    /// As SetBuffer(octets).
    explicit CBinaryData(std::span<unsigned char const> octets);

    /// As SetBuffer(text).
    CBinaryData(char16_t const* text);

    /// Drops the holder.
    void Clear() noexcept;

    /// The octets themselves, null without a holder. They are those of all objects that share the holder; the
    /// pointer lasts until this object or the last of those changes.
    unsigned char* GetData() const;
    /// The number of octets, 0 without a holder.
    std::size_t GetLength() const;
    /// GetData() and GetLength() in one. Not for a temporary object in the head of a range-based for loop.
    std::span<unsigned char const> GetOctets() const;

    /// @{
    /// Replaces the content by a copy of the octets, or of the text's 16-bit units in the byte order of the
    /// platform, without the terminator.
    void SetBuffer(unsigned char const* data, std::size_t length);
    void SetBuffer(std::span<unsigned char const> octets);
    void SetBuffer(char16_t const* text);
    /// @}

    /// @{
    /// Adds octets at the end, of a text those that SetBuffer would take.
    void Append(unsigned char octet);
    void Append(unsigned char const* data, std::size_t length);
    void Append(std::span<unsigned char const> octets);
    void Append(char16_t const* text);
    void Append(CBinaryData const& other);
    /// @}

    /// Hands the octets to the caller, who frees them with delete[], and leaves a holder of no octets.
    /// @return null without a holder
    /// @throws CBxException if another thread is just sharing the holder
    unsigned char* ReleaseData();

    /// Compresses the object, at the fastest level; without a holder and under any type but cmp_GZip and
    /// cmp_ZLib it stays as it is. The loading operations of CXmlDocument decompress.
    /// @return a copy of the object
    /// @throws CBxException if the result would have more octets than there are, as it has for a few octets
    /// or random ones, or if there are more than 4,294,967,295, with the code of zlib; the octets stay
    CBinaryData CompressData(CompressionType type);

    /// The octets as 16-bit units in the byte order of the platform; an odd one at the end is left out.
    wstring GetString() const;

    /// Two upper-case digits for each octet.
    wstring GetAsHexString() const;
    /// @{
    /// Replaces the content. Digits of both cases are accepted, and nothing else, whitespace included.
    /// @throws CBxException for any other character, where "?" stands for U+0000 and half a surrogate pair,
    /// and for an odd number of digits, as if U+0000 followed; the object stays as it is
    void SetAsHexString(char16_t const* text);
    void SetAsHexString(std::u16string_view text);
    /// @}

    /// Base64 (RFC 4648, 4): padded, without line breaks.
    wstring GetAsBase64() const;
    /// @{
    /// Replaces the content. Only the low seven bits of a unit count. "=" is passed over wherever it stands
    /// and may be missing; bits that fill no octet are dropped. Any other character that is not of the
    /// alphabet, whitespace included, is no failure: there are no octets then.
    void SetAsBase64(char16_t const* text);
    void SetAsBase64(std::u16string_view text);
    /// @}

    /// The values that the octets encode, with one blank between two. Infinite numbers and what is none print
    /// as in XML Schema Part 2: "INF", "-INF", "NaN". No octets give the empty text.
    /// @throws CBxException if the octets are no whole number of values, or the number of unused bits is not
    /// possible, with a character for the octet at fault; if there is no such encoding
    wstring GetAsString(ByteEncoding encoding) const;

    /// Two objects without a holder are equal, one without and one with a holder are not.
    bool operator==(CBinaryData const& other) const;

    /// @{
    /// @throws CBxException if there are not so many octets, with the low 32 bits of the index as a signed
    /// number
    unsigned char const& operator[](std::size_t index) const;
    unsigned char& operator[](std::size_t index);
    /// @}

    /// Writes the octets to a file, replacing the one that is there. Under enc_UTF16 and
    /// enc_UTF16NoDeclaration the byte order mark FF FE comes first. The encoding changes nothing else.
    /// @param fileName in UTF-8 at the system
    /// @throws CBxException with the error number of the system; what was written stays
    void ToFile(char16_t const* fileName, XmlEncoding encoding) const;

    /// Writes the octets to a file by way of CFileReplacement: the one that is there is only replaced once all is
    /// written.
    /// @param path as the system has it, which is UTF-8 as a rule
    /// @throws CBxException with the error number of the system; the old file is as it was
    void SaveTo(std::string_view path) const;

protected:
    /// Sees to it that no other object shares the holder, if there is one.
    void GetExclusiveDataHolder();

    /// Two upper-case digits for each of the octets.
    static wstring GetAsHexString(unsigned char const* data, std::size_t length);

private:
    /// As GetExclusiveDataHolder().
    /// @return what keeps the octets that were there until now, null if they stayed
    CSmartPtr<BinaryDataHolder> TakeExclusiveHolder();
    void ThrowIfShared(char16_t const* message) const;

    CSmartPtr<BinaryDataHolder> m_holder;
};

}  // namespace BxXmlLib5
