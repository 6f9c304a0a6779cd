#include "BxXmlLib5/core/CSharedText.h"

#include "core/NeverDestroyed.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

CSharedText::CSharedText(std::u16string_view text) {
    if (!text.empty()) m_text = new Text(text);
}

wstring const& CSharedText::Get() const {
    static NeverDestroyed<wstring> const s_empty;
    return m_text ? m_text->m_text : *s_empty;
}

bool CSharedText::Is(std::u16string_view text) const {
    return Equal(Get(), text);
}

void CSharedText::Set(std::u16string_view text) {
    if (!Is(text)) *this = CSharedText(text);
}

}  // namespace BxXmlLib5
