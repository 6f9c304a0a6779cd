// Where in a document a writer stands.
#pragma once

#include <cstddef>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "BxXmlLib5/writers/CXmlWriter.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

/// Keeps account of the elements that are open, with their positions, and of nothing else. What it is told it hands on
/// to another writer, if there is one.
///
/// No document is written through it. It takes a second run, where a first one has failed: that fails at the same
/// place. Or it is told of what was written, where no second run is possible.
class CPathWriter final : public CXmlWriter {
public:
    /// @param writer null for none
    explicit CPathWriter(CXmlWriter* writer);
    /// Goes on for an element in the one where another writer stands. What leads to it was written step by step, so that
    /// nobody knows what else comes: it has positions, and so has the element.
    CPathWriter(CXmlWriter* writer, CPathWriter const& around);
    ~CPathWriter() override;

    /// A step that is being written and not begun.
    struct Next {
        std::u16string_view m_name;  ///< Empty for none.
        bool m_isAttribute = false;
    };

    /// The path of the element or attribute that is being written; empty ahead of the root.
    /// @param repeated names of elements that have a position even where no second one has come yet
    wstring Path(Next next, std::vector<wstring> const& repeated) const;

    /// Counts a whole element in the one that is open.
    void Count(std::u16string_view name) {
        if (m_last == nullptr || !Equal(m_last->first, name)) {
            m_last = m_levels.back().Child(name);
        }
        if (m_last != nullptr) ++m_last->second;
    }

    void WriteEndDocument() override;
    void SetDefaultNamespace(wstring const& namespaceUri) override;
    void AddNamespace(wstring const& alias, wstring const& namespaceUri) override;
    void WriteComment(wstring const& text) override;
    void WriteProcessingInstruction(wstring const& text) override;
    void WriteInLineSchema(wstring const& text) override;
    void WriteStartElement(wstring const& name, wstring const& namespaceUri) override;
    void WriteText(wstring const& text) override;
    void WriteEndElement() override;
    void WriteAttribute(wstring const& name, wstring const& namespaceUri, wstring const& value) override;
    void WriteXsiType(wstring const& namespaceUri, wstring const& typeName) override;

private:
    struct Level {
        wstring m_name;
        std::size_t m_position = 0;
        std::map<wstring, std::size_t, LessBySize> m_children{};  ///< How many of each name.

        /// The position of the next child of a name, 0 if there are too many names to count them.
        std::size_t Next(std::u16string_view name) const;
        /// Where children of a name are counted, null if there are too many names.
        std::pair<wstring const, std::size_t>* Child(std::u16string_view name);
    };

    CXmlWriter* m_writer;
    std::vector<Level> m_levels;                              // the document first
    std::pair<wstring const, std::size_t>* m_last = nullptr;  // child of the last level that was counted
    std::size_t m_lastNumbered = 0;  // of those behind the root, the last that has a position in any case
    wstring m_attribute;             // that is being written
};

}  // namespace BxXmlLib5
