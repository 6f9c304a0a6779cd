#include "BxXmlLib5/document/CNodeText.h"

#include "core/NeverDestroyed.h"

namespace BxXmlLib5 {

wstring const& CNodeText::String() const {
    static NeverDestroyed<wstring> const s_empty;
    if (m_size == 0) return *s_empty;
    if (m_size != kString) MakeString(View());
    return *m_string;
}

void CNodeText::MakeString(std::u16string_view text) const {
    m_string = new wstring(text);
    m_size = kString;
}

}  // namespace BxXmlLib5
