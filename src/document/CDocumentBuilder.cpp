#include "document/CDocumentBuilder.h"

#include <utility>

#include "platform/TextView.h"

namespace BxXmlLib5 {

void CDocumentBuilder::Restart() {
    Forget();
    m_nodes.Clear();
}

void CDocumentBuilder::Forget() {
    m_documentElement = nullptr;
    m_elementStack.clear();
    TakeTextFromStore();
    m_openText.clear();
    m_lastMixedText = {};
}

std::size_t CDocumentBuilder::OctetsOf(DocumentElement const& element) {
    std::size_t octets = sizeof(CXmlElement);
    if (!element.m_attributes.empty()) octets += sizeof(CNodeAttributes);
    for (DocumentAttribute const& attribute : element.m_attributes) {
        octets += sizeof(CXmlAttribute) + attribute.m_value.size() * sizeof(char16_t);
    }
    return octets;
}

void CDocumentBuilder::DeclareNamespace(wstring const& alias, wstring const& namespaceUri) {
    m_nodes.m_namespaceAliases.insert_or_assign(&alias, &namespaceUri);
}

void CDocumentBuilder::StartElement(DocumentElement const& started) {
    TakeTextFromStore();
    CXmlElement* const element =
        m_nodes.m_elements.Create(&m_document, started.m_name, m_nodes.m_noAttributes, started.m_line);
    AddElement(element);
    if (!started.m_attributes.empty()) AddAttributes(*element, started.m_attributes);
    m_growsInStore = true;
}

CXmlElement* CDocumentBuilder::Attach(CXmlElement& child) {
    OpenElement& parent = m_elementStack.back();
    CXmlElement* const before = std::exchange(parent.m_lastChild, &child);
    (before == nullptr ? parent.m_element->m_firstChild : before->m_nextSibling) = &child;
    return before;
}

void CDocumentBuilder::Detach(CXmlElement& child, CXmlElement* before) {
    OpenElement& parent = m_elementStack.back();
    if (parent.m_lastChild == &child) parent.m_lastChild = before;
    (before == nullptr ? parent.m_element->m_firstChild : before->m_nextSibling) =
        std::exchange(child.m_nextSibling, nullptr);
}

void CDocumentBuilder::ShowText(bool isShown) {
    TakeTextFromStore();
    m_elementStack.back().m_element->m_text.Replace(isShown ? OpenText() : std::u16string_view());
}

void CDocumentBuilder::AddElement(CXmlElement* element) {
    if (m_elementStack.empty()) {
        m_documentElement = element;
    } else {
        Attach(*element);
    }
    m_elementStack.push_back({.m_element = element, .m_textStart = m_openText.size()});
}

void CDocumentBuilder::AddAttributes(CXmlElement& element, std::span<DocumentAttribute const> attributes) {
    CXmlAttribute* const first = m_nodes.m_attributes.Reserve(attributes.size());
    for (DocumentAttribute const& attribute : attributes) {
        std::u16string_view const value =
            m_texts == kTextsAreKept ? attribute.m_value : m_nodes.m_texts.Add(attribute.m_value);
        m_nodes.m_attributes.Create(*attribute.m_name, value);
    }
    element.m_attributes = m_nodes.m_attributeLists.Create(std::span(first, attributes.size()));
}

void CDocumentBuilder::AddText(std::u16string_view text) {
    // What no element of the tree has comes by itself.
    if (text.front() == u'\r' || text.front() == u'\0') return;
    if (m_growsInStore && m_nodes.m_texts.Append(text)) return;
    TakeTextFromStore();
    m_openText.append(text);
}

void CDocumentBuilder::TakeTextFromStore() {
    if (std::exchange(m_growsInStore, false)) m_openText.append(m_nodes.m_texts.TakeBack());
}

std::size_t CDocumentBuilder::AddKeptText(std::u16string_view text) {
    m_growsInStore = false;
    OpenElement& open = m_elementStack.back();
    std::size_t const former = m_openText.size();
    if (open.m_storedText.empty() && former == open.m_textStart) {
        open.m_storedText = text;
        return 0;
    }
    m_openText.append(std::exchange(open.m_storedText, {})).append(text);
    return m_openText.size() - former;
}

void CDocumentBuilder::EndElement() {
    OpenElement const closed = m_elementStack.back();
    if (std::exchange(m_growsInStore, false)) {
        closed.m_element->m_text.Set(m_nodes.m_texts.Close());
    } else {
        std::u16string_view const text = OpenText();
        closed.m_element->m_text.Set(text.empty() ? closed.m_storedText : StoreText(closed, text));
        m_openText.resize(closed.m_textStart);
    }
    m_elementStack.pop_back();
}

/// The white space around children is mostly that of the element before.
std::u16string_view CDocumentBuilder::StoreText(OpenElement const& element, std::u16string_view text) {
    if (element.m_lastChild == nullptr) return m_nodes.m_texts.Add(text);
    if (!Equal(text, m_lastMixedText)) m_lastMixedText = m_nodes.m_texts.Add(text);
    return m_lastMixedText;
}

std::vector<CXmlElement const*> CDocumentBuilder::OpenElements() const {
    std::vector<CXmlElement const*> elements;
    for (OpenElement const& open : m_elementStack) elements.push_back(open.m_element);
    return elements;
}

CXmlElement* CDocumentBuilder::CloseAllElements() {
    while (HasOpenElement()) EndElement();
    return m_documentElement;
}

}  // namespace BxXmlLib5
