#include "BxXmlLib5/document/CNodeText.h"

#include "core/NeverDestroyed.h"

namespace BxXmlLib5 {

wstring const& CNodeText::String() const {
    static NeverDestroyed<wstring> const s_empty;
    if (m_size == 0) return *s_empty;
    if (m_size != kString) {
        m_string = new wstring(m_units, m_size);
        m_size = kString;
    }
    return *m_string;
}

}  // namespace BxXmlLib5
