// How the records of a document are cut out of it.
#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "BxXmlLib5/core/CBxLocation.h"
#include "document/CDocumentReceiver.h"
#include "document/CSurroundings.h"
#include "document/RecordPath.h"

namespace BxXmlLib5 {

class CDocumentStream;

struct RecordCutterSettings {
    SurroundingsSettings m_surroundings;
    std::size_t m_maxRecord = 0;  ///< octets of its tree
    bool m_tellsEnds = false;     ///< whether the ends of elements that lead to records are items
};

/// Makes a tree of each record, in memory that serves one after another, and a tree of what stands around them. It
/// pauses the stream behind each record; where the stream goes on for a while, there are more items than one. So there
/// are of small records that follow each other with nothing between that matters: in turns with the parser, each of the
/// two would be slower.
class CRecordCutter final : public CDocumentReceiver {
public:
    enum class Kind { Record, LargeRecord, End };

    /// What was cut out. It lives until DropItems().
    struct Item {
        Kind m_kind = Kind::Record;
        CXmlElement* m_element = nullptr;  // null if the record is too large
        std::size_t m_line = 0;
        std::vector<std::pair<wstring const*, std::size_t>> m_steps;  // names and positions

        wstring Path() const;
        CBxLocation Location() const { return CBxLocation(Path(), m_line); }
    };

    /// @param names outlive the cutter
    CRecordCutter(CNameTable& names, std::vector<RecordStep> const& path,
                  RecordCutterSettings const& settings);

    /// Before the stream tells anything.
    void SetStream(CDocumentStream& stream) { m_stream = &stream; }

    /// Whether a record has begun.
    bool HasBegun() const { return m_hasBegun; }

    /// The next item, null if there is none.
    Item const* Next();
    bool HasItems() const { return m_taken < m_count; }
    /// Before the stream goes on.
    void DropItems();

    /// The root with all that stands around the records; null if there is none. It lives until DropItems().
    CXmlElement* Surroundings() { return m_surroundings.Show(); }
    CSurroundings const& Tree() const { return m_surroundings; }

    /// The innermost element that has not ended; not known if it was not kept.
    CBxLocation OpenElement() const;

    void DeclareNamespace(wstring const& prefix, wstring const& namespaceUri) override;
    void StartElement(DocumentElement const& element) override;
    void AddText(std::u16string_view text) override;
    void EndElement() override;

private:
    using Declaration = std::pair<wstring const*, wstring const*>;
    using Aliases = std::map<wstring const*, wstring const*>;

    /// A step, by texts of the name table; null for any.
    struct Step {
        wstring const* m_name;
        wstring const* m_namespaceUri;
    };

    /// An element that leads to records and has not ended.
    struct Level {
        wstring const* m_name = nullptr;
        std::size_t m_position = 0;
        std::size_t m_declarations = 0;  // of those around it
        // Of its children, by name, as far as the step may have that.
        wstring const* m_firstName = nullptr;
        std::size_t m_firstCount = 0;
        std::unordered_map<wstring const*, std::size_t> m_otherCounts;

        std::size_t Count(wstring const& name);
    };

    void StartChild(DocumentElement const& element);
    void StartLevel(DocumentElement const& element, std::size_t position);
    void StartRecord(DocumentElement const& element, std::size_t position);
    void EndRecord();
    void EndLevel();
    void CountInRecord(std::size_t octets);
    Item& NewItem(std::size_t line);
    void SetAliases();
    void TakeLaterAliases();
    [[noreturn]] void ThrowWrongRoot(DocumentElement const& root) const;

    CDocumentStream* m_stream = nullptr;
    RecordCutterSettings m_settings;
    std::vector<Step> m_path;
    CSurroundings m_surroundings;
    CPartDocument m_document;  // of the records
    CDocumentBuilder m_builder;
    bool m_hasBegun = false;
    std::vector<Level> m_levels;  // one for each step but the last
    std::size_t m_openLevels = 0;
    std::size_t m_otherDepth = 0;                // in an element that leads to no records
    std::size_t m_recordDepth = 0;               // in a record
    bool m_isPassedOver = false;                 // the record that is open
    std::size_t m_octets = 0;                    // of the record, or those that count as one
    std::size_t m_storedOctets = 0;              // of all that are in memory
    bool m_isQueued = false;                     // the record that is open, behind those that are items
    bool m_hasOwnScope = false;                  // the same: its tag declares namespaces
    std::vector<Declaration> m_declarations;     // in scope where a record may begin
    std::vector<Declaration> m_newDeclarations;  // of the element that comes next
    bool m_areAliasesSet = false;
    std::optional<Aliases> m_laterAliases;  // from an item on
    std::size_t m_firstOfLater = 0;
    std::deque<Item> m_items;  // the memory of which is used again
    std::size_t m_count = 0;
    std::size_t m_taken = 0;
};

}  // namespace BxXmlLib5
