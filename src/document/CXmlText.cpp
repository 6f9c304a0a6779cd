#include "BxXmlLib5/document/CXmlText.h"

namespace BxXmlLib5 {

wstring const& CXmlText::GetString() const {
    if (m_text.empty()) {
        static wstring const s_empty;
        return s_empty;
    }
    if (!m_string) m_string = std::make_unique<wstring>(m_text);
    return *m_string;
}

}  // namespace BxXmlLib5
