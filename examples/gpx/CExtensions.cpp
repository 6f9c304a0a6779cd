#include "CExtensions.h"

#include <algorithm>

namespace Gpx {

namespace {

constexpr char16_t kOther[] = u"##other";

bool IsWhitespace(std::u16string_view text) {
    return std::ranges::all_of(text, CWhitespaceUtils::IsWhiteSpace);
}

/// @param source the first of those that the elements were read from
void DropWhitespace(CXmlElement const* source, CElementCol& elements) {
    for (CElement* const element : elements) {
        if (CXmlElement const* const child = source->GetFirstElement()) {
            if (IsWhitespace(source->GetTextView())) element->SetText(u"");
            DropWhitespace(child, *element->GetChildElements());
        }
        source = source->GetNextSiblingElement();
    }
}

}  // namespace

CExtensions::CExtensions(char16_t const* elementName) : CGpxClass(elementName) {
    CExtensions::ResetContent();
}

MetaData CExtensions::Describe() {
    return {u"extensionsType", {new CElementInfoSeqUntpdCol(u"AnyElement", u"", kElements)}, {}};
}

CXmlElement* CExtensions::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                      CXmlSerializationContext const& context, bool allowEmptyChoice) {
    // The collection takes every namespace.
    if (!context.GetIgnoreNamespaces()) TestNamespaces(firstChild);
    CXmlElement* const next = CGpxClass::FromXml_Int(element, firstChild, context, allowEmptyChoice);
    DropWhitespace(firstChild, *m_elements);
    return next;
}

void CExtensions::TestNamespaces(CXmlElement const* child) const {
    for (; child != nullptr; child = child->GetNextSiblingElement()) {
        TestNamespace(child->GetNamespaceURI().c_str(), kOther, kNamespace);
    }
}

void CExtensions::AccessProperty(int, bool read, BxVariant& value) {
    if (read) value.SetXmlCollection(m_elements);
}

void CExtensions::ResetContent() {
    if (m_elements && m_elements->GetCount() == 0) return;
    m_elements = new CElementCol(u"", kOther, kNamespace, 0, -1);
}

}  // namespace Gpx
