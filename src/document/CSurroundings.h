// What stands around the records of a document.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "document/CDocumentBuilder.h"
#include "document/CPartDocument.h"

namespace BxXmlLib5 {

struct SurroundingsSettings {
    SchemaType m_schemaType = st_Default;
    bool m_keepsContent = true;  ///< of the elements that lead to the records, beside these and themselves
    std::size_t m_maxOctets = 0;
};

/// The tree of the elements that lead to the records, with all that they have but these. Of each there is one, the
/// last, so the tree has one branch of them; another element in its place ends it. Each has memory of its own.
class CSurroundings {
public:
    /// @param names outlive this
    CSurroundings(CNameTable& names, SurroundingsSettings const& settings);

    void DeclareNamespace(wstring const& prefix, wstring const& namespaceUri);

    /// An element that leads to records, inside of the one that is open.
    /// @param position among the children of its name
    /// @param keepsFormer whether the element in whose place it comes is there until DropFormer()
    /// @throws CBxException if all of it takes more than it may, as the operations below
    void StartStep(DocumentElement const& element, std::size_t position, bool keepsFormer);
    CXmlElement* EndStep();
    void DropFormer();

    // What else is inside of the innermost of those. White space that stands directly in it, behind a tag, is
    // left out: there is some beside each record.
    void StartElement(DocumentElement const& element);
    void AddText(std::u16string_view text);
    /// Whether that leaves all of the text out.
    bool LeavesOut(std::u16string_view text) const;
    void EndElement();
    void PassRecord() { m_isBehindTag = true; }

    /// The root as it is now, null if there is none. It must be hidden before anything else comes.
    CXmlElement* Show();
    void Hide();

    /// What PlaceOfTree wants.
    std::size_t PositionOf(CXmlElement const& element) const;
    /// The innermost element that has not ended; null if it is not kept.
    CXmlElement const* Innermost() const;
    CXmlElement* Root() const { return m_levels.empty() ? nullptr : m_levels[0]->m_builder.Root(); }

private:
    struct Level {
        Level(CPartDocument const& document, CNameTable& names)
            : m_nodes(names), m_builder(document, m_nodes, CDocumentBuilder::kTextsPass) {}

        CDocumentNodes m_nodes;
        CDocumentBuilder m_builder;
        CXmlElement* m_before = nullptr;  // the sibling before it
        std::size_t m_position = 0;
        std::size_t m_octets = 0;
    };

    bool LeavesOutSpace() const { return m_depth == 0 && m_isBehindTag; }
    void DropEnded(bool keeps);
    void ShowTexts(bool isShown);
    void Count(std::size_t octets);
    Level& Open() const { return *m_levels[m_openLevels - 1]; }

    SurroundingsSettings m_settings;
    CNameTable& m_names;
    CPartDocument m_document;
    std::vector<std::unique_ptr<Level>> m_levels;  // those that are open, then those that were
    std::size_t m_openLevels = 0;
    std::size_t m_depth = 0;  // inside of the innermost one
    bool m_isBehindTag = false;
    bool m_isShown = false;
    std::size_t m_octets = 0;
    std::vector<std::unique_ptr<Level>> m_former;
};

}  // namespace BxXmlLib5
