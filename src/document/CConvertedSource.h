// Other encodings as UTF-8.
#pragma once

#include <string_view>
#include <vector>

#include "document/COctetSource.h"
#include "platform/CEncoding.h"

namespace BxXmlLib5 {

/// The UTF-8 form of a source in an encoding that the system knows. Where octets are no text, it ends with an octet
/// that is none in UTF-8, so that the parser tells the line.
class CConvertedSource : public COctetSource {
public:
    /// The encoding of a document whose first octets can only be UTF-32; empty if it is none.
    static std::string_view Utf32(std::span<unsigned char const> beginning);

    /// @param source outlives this one
    /// @param encoding one that is known
    CConvertedSource(COctetSource& source, std::string_view encoding);

    /// @param room for 64 octets at least
    std::size_t Read(std::span<unsigned char> room) override;

private:
    enum class State { kReads, kIsMalformed, kIsAtEnd };

    bool Refill();

    COctetSource& m_source;
    CEncoding m_encoding;
    std::vector<unsigned char> m_octets;
    std::size_t m_start = 0;  // of what is not converted yet
    std::size_t m_end = 0;
    State m_state = State::kReads;
};

}  // namespace BxXmlLib5
