// The lines of an input.
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <span>

namespace BxXmlLib5 {

/// Tells the lines of places that come in the order of the input. A line ends with LF, CR or both. To look for the
/// ends of lines one by one costs less than to count them up to each place.
class CLineCounter {
public:
    CLineCounter() = default;
    /// @param text outlives the object
    /// @param highOctet of UTF-16, the place of the high octet in each unit; nothing for encodings in which LF and
    ///        CR are what they are in ASCII
    CLineCounter(std::span<unsigned char const> text, std::optional<std::size_t> highOctet)
        : m_text(text), m_highOctet(highOctet) {}

    /// @param place of an octet, not less than in the call before
    /// @return 1 for the first line
    std::size_t LineAt(std::size_t place) {
        while (m_nextLine <= place) StepLine();
        return m_line;
    }

private:
    static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max() / 2;

    void StepLine();
    std::size_t FindEnd(unsigned char character, std::size_t from) const;

    std::span<unsigned char const> m_text;
    std::optional<std::size_t> m_highOctet;
    std::size_t m_line = 0;
    std::size_t m_nextLine = 0;  // the place where it begins
    std::size_t m_behindLf = 0;  // the first one not before m_nextLine
    std::size_t m_behindCr = 0;  // the same
};

}  // namespace BxXmlLib5
