// How a parser makes the tree of a document.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "document/CDocumentNodes.h"
#include "document/CDocumentReceiver.h"

namespace BxXmlLib5 {

/// The tree of one document while it is parsed: its nodes, and the elements that are open.
class CDocumentBuilder final : public CDocumentReceiver {
public:
    enum Texts { kTextsAreKept, kTextsPass };

    /// @param nodes the document's, empty
    /// @param texts whether the parser keeps texts, in the store of the nodes, or they are to be copied there, which
    ///        nobody else uses meanwhile
    CDocumentBuilder(CXmlDocument const& document, CDocumentNodes& nodes, Texts texts)
        : m_document(document), m_nodes(nodes), m_texts(texts) {}

    /// Drops the tree.
    void Restart() override;
    /// A later namespace of the same alias takes the place of the earlier one.
    void DeclareNamespace(wstring const& alias, wstring const& namespaceUri) override;
    /// Opens the root, or a child of the innermost open element.
    void StartElement(DocumentElement const& element) override;
    void AddText(std::u16string_view text) override;
    /// If nothing joins the text, it is not copied.
    std::size_t AddKeptText(std::u16string_view text) override;
    void EndElement() override;

    /// Lets go of the tree. Its nodes stay, and another one may be begun beside it.
    void Forget();

    /// What the nodes of an element take, without its text.
    static std::size_t OctetsOf(DocumentElement const& element);

    // An element that another builder makes may be a child of the innermost open one.

    /// @return the child before it, null for none
    CXmlElement* Attach(CXmlElement& child);
    /// @param before what Attach() gave
    void Detach(CXmlElement& child, CXmlElement* before);

    /// Lets the innermost open element be seen with the text that it has so far. Before anything else comes, the text
    /// is hidden again.
    void ShowText(bool isShown);

    bool HasOpenElement() const { return !m_elementStack.empty(); }
    /// From the root to the innermost one.
    std::vector<CXmlElement const*> OpenElements() const;
    /// @return the root, null if there is none
    CXmlElement* CloseAllElements();
    CXmlElement* Root() const { return m_documentElement; }

private:
    /// An element that the parser is inside of. Its text so far stands in m_openText, from m_textStart to
    /// that of the element inside it: children give theirs away when they close, so every text is allocated
    /// once, at its size. The text of an element that has no children yet grows in the store. One that was there
    /// from the beginning stays there as long as it is the only one.
    struct OpenElement {
        CXmlElement* m_element;
        CXmlElement* m_lastChild = nullptr;
        std::size_t m_textStart = 0;
        std::u16string_view m_storedText{};
    };

    /// What the innermost open element has of text so far, as far as it is not in the text store.
    std::u16string_view OpenText() const {
        return std::u16string_view(m_openText).substr(m_elementStack.back().m_textStart);
    }
    void TakeTextFromStore();
    std::u16string_view StoreText(OpenElement const& element, std::u16string_view text);
    void AddElement(CXmlElement* element);
    void AddAttributes(CXmlElement& element, std::span<DocumentAttribute const> attributes);

    CXmlDocument const& m_document;
    CDocumentNodes& m_nodes;
    Texts m_texts;
    CXmlElement* m_documentElement = nullptr;
    std::vector<OpenElement> m_elementStack;
    wstring m_openText;
    bool m_growsInStore = false;          // the text of the innermost element so far, which has no children
    std::u16string_view m_lastMixedText;  // of an element with children, in the text store
};

}  // namespace BxXmlLib5
