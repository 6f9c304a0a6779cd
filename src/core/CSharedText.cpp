#include "BxXmlLib5/core/CSharedText.h"

#include "platform/TextView.h"

namespace BxXmlLib5 {

CSharedText::CSharedText(std::u16string_view text) {
    if (!text.empty()) m_counted = new Counted{wstring(text)};
}

wstring const& CSharedText::Get() const {
    static wstring const s_empty;
    return m_counted ? m_counted->m_text : s_empty;
}

bool CSharedText::Is(std::u16string_view text) const {
    return Equal(Get(), text);
}

void CSharedText::Set(std::u16string_view text) {
    if (!Is(text)) *this = CSharedText(text);
}

}  // namespace BxXmlLib5
