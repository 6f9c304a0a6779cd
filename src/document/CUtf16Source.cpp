#include "document/CUtf16Source.h"

#include "BxXmlLib5/core/CBxException.h"
#include "platform/Utf.h"
#include "values/Utf8Conversion.h"

namespace BxXmlLib5 {

std::optional<std::size_t> CUtf16Source::HighOctet(std::span<unsigned char const> beginning) {
    if (beginning.size() < 2) return std::nullopt;
    if (beginning[0] == 0 || (beginning[0] == 0xFE && beginning[1] == 0xFF)) return 0;
    if (beginning[1] == 0 || (beginning[0] == 0xFF && beginning[1] == 0xFE)) return 1;
    return std::nullopt;
}

bool CUtf16Source::IsMisread(std::span<unsigned char const> input, std::size_t highOctet) {
    bool isMisread = false;
    for (std::size_t at = 0; at + 1 < input.size(); at += 2) {
        unsigned const high = input[at + highOctet], low = input[at + 1 - highOctet];
        bool const isSign = low == 0xAA || low == 0xB5 || low == 0xBA;
        isMisread |= (high & 0xF8U) == 0xD8 || (high == 0 && isSign);
    }
    return isMisread;
}

std::size_t CUtf16Source::Read(std::span<unsigned char> room) {
    std::u16string_view units;
    while (units.empty()) {
        // A unit takes three octets at most; a pair takes four.
        m_octets.resize(room.size() / 3 * 2);
        std::size_t const count = m_source.Read(std::span(m_octets).subspan(m_carried));
        if (count == 0 && m_carried < 2) return 0;
        units = TakeUnits(m_carried + count, count == 0);
    }
    std::size_t const size = Utf8Size(units);
    if (size == 0) throw CBxException(u"A text has half of a surrogate pair");
    WriteUtf8(units, room.first(size));
    return size;
}

/// Leaves what is no whole unit or pair for the next time.
/// @param size of the octets that there are
std::u16string_view CUtf16Source::TakeUnits(std::size_t size, bool isLast) {
    m_units.resize(size / 2);
    for (std::size_t i = 0; i < m_units.size(); ++i) {
        m_units[i] =
            static_cast<char16_t>(m_octets[2 * i + m_highOctet] << 8 | m_octets[2 * i + 1 - m_highOctet]);
    }
    if (!isLast && !m_units.empty() && Utf::IsHighSurrogate(m_units.back())) m_units.pop_back();
    m_carried = size - 2 * m_units.size();
    std::copy_n(m_octets.data() + 2 * m_units.size(), m_carried, m_octets.data());
    return m_units;
}

}  // namespace BxXmlLib5
