#include "BxXmlLib5/core/CSharedText.h"

#include "platform/TextView.h"

namespace BxXmlLib5 {

CSharedText::CSharedText(std::u16string_view text) {
    if (!text.empty()) m_text = new Text(text);
}

wstring const& CSharedText::Get() const {
    // Never destroyed, so that a destructor of static storage may use it.
    static wstring const& s_empty = *new wstring;
    return m_text ? m_text->m_text : s_empty;
}

bool CSharedText::Is(std::u16string_view text) const {
    return Equal(Get(), text);
}

void CSharedText::Set(std::u16string_view text) {
    if (!Is(text)) *this = CSharedText(text);
}

}  // namespace BxXmlLib5
