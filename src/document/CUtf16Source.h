// UTF-16 as UTF-8.
#pragma once

#include <optional>
#include <vector>

#include "document/COctetSource.h"

namespace BxXmlLib5 {

/// The UTF-8 form of a source in UTF-16.
class CUtf16Source : public COctetSource {
public:
    /// The place of the high octet in each unit, if an input is UTF-16; Expat tells it by the same octets.
    static std::optional<std::size_t> HighOctet(std::span<unsigned char const> beginning);
    /// Whether there are surrogates, or one of the signs U+00AA, U+00B5 and U+00BA.
    static bool IsMisread(std::span<unsigned char const> input, std::size_t highOctet);

    /// @param source outlives this one
    CUtf16Source(COctetSource& source, std::size_t highOctet) : m_source(source), m_highOctet(highOctet) {}

    /// @param room for six octets at least
    /// @throws CBxException also for half of a surrogate pair
    std::size_t Read(std::span<unsigned char> room) override;

private:
    std::u16string_view TakeUnits(std::size_t size, bool isLast);

    COctetSource& m_source;
    std::size_t m_highOctet;
    std::vector<unsigned char> m_octets;
    std::size_t m_carried = 0;  // of the octets, from the time before
    wstring m_units;
};

}  // namespace BxXmlLib5
