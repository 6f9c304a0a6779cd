#include "document/CConvertedSource.h"

#include <algorithm>
#include <array>
#include <utility>

namespace BxXmlLib5 {

std::string_view CConvertedSource::Utf32(std::span<unsigned char const> beginning) {
    // A byte order mark, or the first character (XML, appendix F).
    constexpr std::pair<std::array<unsigned char, 4>, std::string_view> kBeginnings[] = {
        {{0x00, 0x00, 0xFE, 0xFF}, "UTF-32BE"},
        {{0x00, 0x00, 0x00, 0x3C}, "UTF-32BE"},
        {{0xFF, 0xFE, 0x00, 0x00}, "UTF-32LE"},
        {{0x3C, 0x00, 0x00, 0x00}, "UTF-32LE"}};
    for (auto const& [octets, name] : kBeginnings) {
        if (beginning.size() >= octets.size() && std::ranges::equal(beginning.first(octets.size()), octets))
            return name;
    }
    return {};
}

CConvertedSource::CConvertedSource(COctetSource& source, std::string_view encoding)
    : m_source(source), m_encoding(encoding), m_octets(16384) {}

std::size_t CConvertedSource::Read(std::span<unsigned char> room) {
    constexpr std::size_t kLargestCharacter = 64;  // by far: some octets stand for several code points
    if (room.size() < kLargestCharacter) return 0;
    while (m_state == State::kReads) {
        if (m_start < m_end) {
            auto const progress =
                m_encoding.Convert({m_octets.data() + m_start, m_octets.data() + m_end}, room);
            m_start += progress.m_read;
            if (progress.m_isMalformed) m_state = State::kIsMalformed;
            if (progress.m_written > 0) return progress.m_written;
        }
        if (m_state == State::kReads && !Refill()) {
            m_state = State::kIsAtEnd;
            // Part of a character may be left, which ends the text like a tag that is cut off.
            return m_encoding.Convert({}, room).m_written;
        }
    }
    constexpr unsigned char kNoUtf8 = 0xFF;
    if (m_state == State::kIsAtEnd) return 0;
    m_state = State::kIsAtEnd;
    room[0] = kNoUtf8;
    return 1;
}

/// Behind what is left.
/// @return false if nothing came
bool CConvertedSource::Refill() {
    std::move(m_octets.begin() + static_cast<std::ptrdiff_t>(m_start),
              m_octets.begin() + static_cast<std::ptrdiff_t>(m_end), m_octets.begin());
    m_end -= std::exchange(m_start, 0);
    std::size_t const count = m_source.Read(std::span(m_octets).subspan(m_end));
    m_end += count;
    return count > 0;
}

}  // namespace BxXmlLib5
