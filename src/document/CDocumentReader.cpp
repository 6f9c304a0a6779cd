#include "document/CDocumentReader.h"

#include <algorithm>

#include "BxXmlLib5/core/CBxException.h"
#include "core/NestingDepth.h"

namespace BxXmlLib5 {

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

void CDocumentReader::Restart() {
    m_receiver.Restart();
    m_skippedEntities = {};
    m_elements = 0;
    m_depth = 0;
}

}  // namespace BxXmlLib5
