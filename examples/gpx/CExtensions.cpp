#include "CExtensions.h"

#include <algorithm>

namespace Gpx {

namespace {

constexpr char16_t kOther[] = u"##other";

/// @param source what the copy was read from
void DropWhitespace(CXmlElement const& source, CElement& copy) {
    CXmlElement const* sourceChild = source.GetFirstElement();
    if (sourceChild == nullptr) return;
    if (std::ranges::all_of(source.GetTextView(), CWhitespaceUtils::IsWhiteSpace)) copy.SetText(u"");
    CSmartPtr<CElementCol> const children = copy.GetChildElements();
    for (CElement* const child : *children) {
        DropWhitespace(*sourceChild, *child);
        sourceChild = sourceChild->GetNextSiblingElement();
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
    CXmlElement* const next = CGpxClass::FromXml_Int(element, firstChild, context, allowEmptyChoice);
    // The collection takes every namespace.
    CXmlElement const* source = firstChild;
    for (CElement* const child : *m_elements) {
        if (!context.GetIgnoreNamespaces()) TestNamespace(child->GetNamespace().c_str(), kOther, kNamespace);
        DropWhitespace(*source, *child);
        source = source->GetNextSiblingElement();
    }
    return next;
}

void CExtensions::AccessProperty(int, bool read, BxVariant& value) {
    if (read) value.SetXmlCollection(m_elements);
}

void CExtensions::ResetContent() {
    m_elements = new CElementCol(u"", kOther, kNamespace, 0, -1);
}

}  // namespace Gpx
