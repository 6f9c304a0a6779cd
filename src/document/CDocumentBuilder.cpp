#include "document/CDocumentBuilder.h"

#include <utility>

#include "core/Limits.h"
#include "core/NestingDepth.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

void CDocumentBuilder::Clear() {
    m_documentElement = nullptr;
    m_elementStack.clear();
    m_openText.clear();
    m_lastMixedText = {};
    m_nodes.Clear();
}

CXmlElement* CDocumentBuilder::AddElement(CXmlName const& name, std::size_t line) {
    if (m_elementStack.size() == kMaxElementDepth) ThrowNestedTooDeeply();
    CXmlElement* const element =
        m_documentElement == nullptr ? AddDocElement(name, line) : AddChildElement(name, line);
    m_elementStack.push_back({.m_element = element, .m_textStart = m_openText.size()});
    return element;
}

CXmlElement* CDocumentBuilder::AddDocElement(CXmlName const& name, std::size_t line) {
    return m_documentElement = m_nodes.m_elements.Create(&m_document, name, m_nodes.m_noAttributes, line);
}

CXmlElement* CDocumentBuilder::AddChildElement(CXmlName const& name, std::size_t line) {
    CXmlElement* const child = m_nodes.m_elements.Create(&m_document, name, m_nodes.m_noAttributes, line);
    OpenElement& parent = m_elementStack.back();
    (parent.m_lastChild == nullptr ? parent.m_element->m_firstChild : parent.m_lastChild->m_nextSibling) =
        child;
    parent.m_lastChild = child;
    return child;
}

void CDocumentBuilder::ReserveElementAttributes(CXmlElement* element, std::size_t count) {
    element->m_attributes = m_nodes.m_attributeLists.Create();
    element->m_attributes->reserve(count);
}

void CDocumentBuilder::AddElementAttribute(CXmlElement* element, CXmlName const& name,
                                           std::u16string_view value) {
    element->m_attributes->push_back(m_nodes.m_attributes.Create(name, value));
}

void CDocumentBuilder::DeclareNamespace(wstring const& alias, wstring const& namespaceUri) {
    m_nodes.m_namespaceAliases.insert_or_assign(&alias, &namespaceUri);
}

void CDocumentBuilder::AppendTextExcludingCR(std::u16string_view text) {
    // In runs between the CRs, which only come from character references: Expat normalises line ends.
    for (;;) {
        std::size_t const cr = text.find(u'\r');
        AppendText(text.substr(0, cr));
        if (cr == text.npos) return;
        text.remove_prefix(cr + 1);
    }
}

std::size_t CDocumentBuilder::AppendStoredText(std::u16string_view text) {
    OpenElement& open = m_elementStack.back();
    std::size_t const former = m_openText.size();
    if (open.m_storedText.empty() && former == open.m_textStart) {
        open.m_storedText = text;
        return 0;
    }
    m_openText.append(std::exchange(open.m_storedText, {})).append(text);
    return m_openText.size() - former;
}

void CDocumentBuilder::CloseElement() {
    OpenElement const closed = m_elementStack.back();
    std::u16string_view const text = OpenText();
    closed.m_element->m_text.Set(text.empty() ? closed.m_storedText : StoreText(closed, text));
    m_openText.resize(closed.m_textStart);
    m_elementStack.pop_back();
}

/// The white space around children is mostly that of the element before.
std::u16string_view CDocumentBuilder::StoreText(OpenElement const& element, std::u16string_view text) {
    if (element.m_lastChild == nullptr) return Texts().Add(text);
    if (!Equal(text, m_lastMixedText)) m_lastMixedText = Texts().Add(text);
    return m_lastMixedText;
}

std::vector<CXmlElement const*> CDocumentBuilder::OpenElements() const {
    std::vector<CXmlElement const*> elements;
    for (OpenElement const& open : m_elementStack) elements.push_back(open.m_element);
    return elements;
}

CXmlElement* CDocumentBuilder::CloseAllElements() {
    while (HasOpenElement()) CloseElement();
    return m_documentElement;
}

}  // namespace BxXmlLib5
