#include "document/CLineCounter.h"

#include <algorithm>
#include <cstring>

namespace BxXmlLib5 {

void CLineCounter::StepLine() {
    ++m_line;
    if (m_behindLf <= m_nextLine) m_behindLf = FindEnd('\n', m_nextLine);
    if (m_behindCr <= m_nextLine) m_behindCr = FindEnd('\r', m_nextLine);
    bool const isPair = m_behindCr + (m_highOctet ? 2 : 1) == m_behindLf;
    m_nextLine = isPair ? m_behindLf : std::min(m_behindLf, m_behindCr);
}

/// The place behind the character.
std::size_t CLineCounter::FindEnd(unsigned char character, std::size_t from) const {
    while (from < m_text.size()) {
        auto const* const found = static_cast<unsigned char const*>(
            std::memchr(m_text.data() + from, character, m_text.size() - from));
        if (found == nullptr) break;
        auto const place = static_cast<std::size_t>(found - m_text.data());
        if (!m_highOctet) return place + 1;
        std::size_t const unit = place - place % 2;
        if (unit + 1 < m_text.size() && m_text[unit + *m_highOctet] == 0) return unit + 2;
        from = place + 1;
    }
    return kNone;
}

}  // namespace BxXmlLib5
