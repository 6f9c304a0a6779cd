#include "document/CDocumentReader.h"

#include <algorithm>

#include "core/NestingDepth.h"
#include "platform/UnitScan.h"

namespace BxXmlLib5 {

void SetPlace(CBxException& failure, DocumentPlace const& place) {
    if (!failure.GetLocation().IsKnown()) failure.SetLocation(CBxLocation({}, place.m_line, place.m_column));
}

void CDocumentReader::SetLimits(CDocumentLimits const& limits) {
    m_limits = limits;
    m_limits.m_depth = std::min<std::size_t>(limits.m_depth, kMaxElementDepth);
}

void CDocumentReader::CountElement() {
    if (m_depth == m_limits.m_depth) ThrowNestedTooDeeply(m_limits.m_depth);
    if (m_elements++ < m_limits.m_elements) return;
    throw CBxException(u"The document has more than " + FromUtf8(std::to_string(m_limits.m_elements)) +
                       u" elements, which is the limit");
}

void CDocumentReader::AddAnyText(std::u16string_view text) {
    bool const hasSpecial = HasUnit(text, [](std::uint64_t units) {
        return UnitsBelow(units ^ (kEachUnit * u'\r'), 1) | UnitsBelow(units, 1);
    });
    if (!text.empty() && !hasSpecial) return m_receiver.AddText(text);
    while (!text.empty()) {
        std::size_t const special =
            std::min(text.find_first_of(std::u16string_view(u"\r\0", 2)), text.size());
        std::size_t const size = special > 0 ? special : text.front() == u'\r' ? 1 : text.size();
        m_receiver.AddText(text.substr(0, size));
        text.remove_prefix(size);
    }
}

void CDocumentReader::Restart() {
    m_receiver.Restart();
    m_skippedEntities = {};
    m_elements = 0;
    m_depth = 0;
}

}  // namespace BxXmlLib5
