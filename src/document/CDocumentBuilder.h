// How a parser makes the tree of a document.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "document/CDocumentNodes.h"

namespace BxXmlLib5 {

/// The tree of one document while it is parsed: its nodes, and the elements that are open.
class CDocumentBuilder {
public:
    /// @param nodes the document's, empty
    CDocumentBuilder(CXmlDocument const& document, CDocumentNodes& nodes)
        : m_document(document), m_nodes(nodes) {}

    /// Names, and the aliases and URIs of namespaces, each held once.
    CNameTable& Names() { return m_nodes.m_names; }
    /// Texts, as the nodes refer to them.
    CTextStore& Texts() { return m_nodes.m_texts; }

    /// Opens the root, or a child of the innermost open element.
    /// @param name of the name table
    /// @param line of the tag, 0 where there are no lines
    /// @throws CBxException if elements are nested too deeply
    CXmlElement* AddElement(CXmlName const& name, std::size_t line = 0);
    /// Makes room for attributes that are about to be added. Call it before the first one, but not if there is
    /// none.
    void ReserveElementAttributes(CXmlElement* element, std::size_t count);
    /// @param name of the name table
    /// @param value in the text store
    void AddElementAttribute(CXmlElement* element, CXmlName const& name, std::u16string_view value);
    /// Both of the name table. A later namespace of the same alias takes the place of the earlier one.
    void DeclareNamespace(wstring const& alias, wstring const& namespaceUri);

    /// Drops the tree, so that another can be built.
    void Clear();

    bool HasOpenElement() const { return !m_elementStack.empty(); }
    /// Adds to the text of the innermost open element.
    void AppendText(std::u16string_view text) {
        if (text.size() == 1) return m_openText.push_back(text[0]);  // as each end of a line comes
        m_openText.append(text);
    }
    void AppendTextExcludingCR(std::u16string_view text);
    /// The same for a text in the text store, without CR. If nothing joins it, it is not copied.
    /// @return how many units were copied
    std::size_t AppendStoredText(std::u16string_view text);
    /// What the innermost open element has of text so far, as far as it is not in the text store.
    std::u16string_view OpenText() const {
        return std::u16string_view(m_openText).substr(m_elementStack.back().m_textStart);
    }
    void CloseElement();
    /// From the root to the innermost one.
    std::vector<CXmlElement const*> OpenElements() const;
    /// @return the root, null if there is none
    CXmlElement* CloseAllElements();

private:
    /// An element that the parser is inside of. Its text so far stands in m_openText, from m_textStart to
    /// that of the element inside it: children give theirs away when they close, so every text is allocated
    /// once, at its size. A text that was in the store from the beginning stays there as long as it is the
    /// only one.
    struct OpenElement {
        CXmlElement* m_element;
        CXmlElement* m_lastChild = nullptr;
        std::size_t m_textStart = 0;
        std::u16string_view m_storedText{};
    };

    std::u16string_view StoreText(OpenElement const& element, std::u16string_view text);
    CXmlElement* AddDocElement(CXmlName const& name, std::size_t line);
    CXmlElement* AddChildElement(CXmlName const& name, std::size_t line);

    CXmlDocument const& m_document;
    CDocumentNodes& m_nodes;
    CXmlElement* m_documentElement = nullptr;
    std::vector<OpenElement> m_elementStack;
    wstring m_openText;
    std::u16string_view m_lastMixedText;  // of an element with children, in the text store
};

}  // namespace BxXmlLib5
