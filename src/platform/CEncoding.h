// The encodings that the system knows.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace BxXmlLib5 {

/// Converts octets of one encoding to UTF-8, piece by piece.
class CEncoding {
public:
    /// @param name as an XML declaration has it, in any case. Names of other characters than the XML recommendation
    ///        allows, or of more than 64, are those of no encoding: the system takes some for instructions.
    explicit CEncoding(std::string_view name);
    CEncoding(CEncoding const&) = delete;
    CEncoding& operator=(CEncoding const&) = delete;
    ~CEncoding();

    bool IsKnown() const { return m_converter != nullptr; }

    /// The code point of each octet, -1 for octets that are no text, if ASCII is as ever and each octet stands for
    /// itself, with a code point below 65,536. Of an encoding that is known, and not between calls of Convert().
    std::optional<std::array<int, 256>> Octets();

    struct Progress {
        std::size_t m_read;
        std::size_t m_written;
        bool m_isMalformed;
    };

    /// Converts until the octets are used up, except for a part of a character at the end; until the room does not
    /// suffice; or until octets are no text, as all are if the encoding is not known.
    /// @param octets empty for the end of the text, at which some encodings give what they held back
    Progress Convert(std::span<unsigned char const> octets, std::span<unsigned char> room);

private:
    void Reset();

    void* m_converter;
};

}  // namespace BxXmlLib5
