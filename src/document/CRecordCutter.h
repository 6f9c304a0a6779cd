// How the records of a document are cut out of it.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

#include "BxXmlLib5/core/CBxLocation.h"
#include "document/CDocumentReader.h"
#include "document/CSurroundings.h"
#include "document/RecordPath.h"

namespace BxXmlLib5 {

class CDocumentStream;

struct RecordCutterSettings {
    SurroundingsSettings m_surroundings;
    std::size_t m_maxRecord = 0;  ///< octets of its tree
    bool m_tellsEnds = false;     ///< whether the ends of elements that lead to records are items
};

/// Makes a tree of each record, in memory that serves one after another, and a tree of what stands around them. If the
/// stream can, it goes on behind a record up to the end of a slice, or until enough is in memory: in turns with the
/// parser for each record, parser and reader of objects would both be slower. What comes between records then, and is
/// to be seen behind the one ahead of it only, pauses the stream, and is held until the items are dropped.
class CRecordCutter final : public CDocumentReceiver {
public:
    enum class Kind { Record, LargeRecord, End };

    using Aliases = std::map<wstring const*, wstring const*>;

    /// What was cut out. It lives until DropItems().
    struct Item {
        Kind m_kind = Kind::Record;
        CXmlElement* m_element = nullptr;  // null if the record is too large
        std::size_t m_line = 0;
        std::vector<std::pair<wstring const*, std::size_t>> m_steps;  // names and positions
        Aliases m_changes;  // of those of the one ahead; null for one that is gone

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
    /// Before the stream goes on. There may be one more then, and the stream waits.
    /// @throws CBxException what the stream would throw
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

    /// A step, by texts of the name table; null for any.
    struct Step {
        wstring const* m_name;
        wstring const* m_namespaceUri;

        bool HasName(CXmlName const& name) const { return m_name == nullptr || m_name == &name.m_localName; }
        bool HasNamespace(CXmlName const& name) const {
            return m_namespaceUri == nullptr || m_namespaceUri == &name.m_namespaceUri;
        }
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

    /// Of an element behind a record.
    bool IsNextRecord(CXmlName const& name) const {
        return m_held.empty() && m_path.back().HasName(name) && m_path.back().HasNamespace(name);
    }
    void Hold(std::function<void()> event);
    // Cold, since what they are called by is called for all that comes.
    [[gnu::cold]] void HoldElement(DocumentElement const& element);
    [[gnu::cold]] void HoldText(std::u16string_view text);
    [[gnu::cold]] void HoldEnd();
    void TellHeld();
    void StartChild(DocumentElement const& element);
    void StartLevel(DocumentElement const& element, std::size_t position);
    void StartRecord(DocumentElement const& element, std::size_t position);
    void EndRecord();
    void EndLevel();
    void CountInRecord(std::size_t octets);
    Item& NewItem(std::size_t line);
    void DeclareNew();
    void UndoDeclarations(std::size_t left);
    Item& FinishItem();
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
    bool m_isAhead = false;                      // of the items, which were not dropped
    std::vector<std::function<void()>> m_held;   // until they are
    DocumentPlace m_heldPlace;                   // of the first of those
    std::vector<Declaration> m_newDeclarations;  // of the element that comes next
    Aliases m_aliases;  // in scope, null for one that was; and those of the open record
    Aliases m_changes;  // of them since the last item
    std::vector<Declaration> m_formerAliases;  // what each declaration hides, null for nothing
    std::size_t m_declarationsOutside = 0;     // of the open record
    std::deque<Item> m_items;                  // the memory of which is used again
    std::size_t m_count = 0;
    std::size_t m_taken = 0;
};

}  // namespace BxXmlLib5
