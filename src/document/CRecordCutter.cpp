#include "document/CRecordCutter.h"

#include "BxXmlLib5/core/CBxException.h"
#include "core/FailurePlace.h"
#include "document/CDocumentStream.h"
#include "document/InputLimits.h"
#include "document/ReadPlace.h"

namespace BxXmlLib5 {

namespace {

/// Of records that are read ahead, so that they stay in the caches. More gains nothing.
constexpr std::size_t kMostStoredOctets = 256 * 1024;
constexpr std::size_t kAliasOctets = 64;

}  // namespace

wstring CRecordCutter::Item::Path() const {
    wstring path;
    for (auto const& [name, position] : m_steps) AddPathStep(path, *name, position);
    return path;
}

CRecordCutter::CRecordCutter(CNameTable& names, std::vector<RecordStep> const& path,
                             RecordCutterSettings const& settings)
    : m_settings(settings),
      m_surroundings(names, settings.m_surroundings),
      m_document(names, settings.m_surroundings.m_schemaType),
      m_builder(m_document, m_document.Nodes(), CDocumentBuilder::kTextsPass),
      m_levels(path.size() - 1) {
    for (RecordStep const& step : path) {
        m_path.push_back({step.m_name ? &names.InternText(*step.m_name) : nullptr,
                          step.m_namespaceUri ? &names.InternText(*step.m_namespaceUri) : nullptr});
    }
}

CRecordCutter::Item const* CRecordCutter::Next() {
    if (m_taken == m_count) return nullptr;
    Item& item = m_items[m_taken++];
    Aliases& aliases = m_document.Nodes().m_namespaceAliases;
    for (auto const& [prefix, uri] : item.m_changes) {
        if (uri == nullptr) {
            aliases.erase(prefix);
        } else {
            aliases.insert_or_assign(prefix, uri);
        }
    }
    return &item;
}

void CRecordCutter::DropItems() {
    m_surroundings.Hide();
    m_surroundings.DropFormer();
    bool const isOpen = m_recordDepth > 0 && !m_isPassedOver;
    if (isOpen && m_count > 0) std::swap(m_items[0], m_items[m_count]);
    m_count = m_taken = 0;
    m_isAhead = false;
    if (isOpen) return;
    m_builder.Forget();
    m_document.Nodes().Empty();
    m_octets = m_storedOctets = 0;
    TellHeld();
}

void CRecordCutter::Hold(std::function<void()> event) {
    if (m_held.empty()) {
        m_heldPlace = m_stream->Place();
        m_stream->Pause();
    }
    m_held.push_back(std::move(event));
}

/// Its name stays, its values do not.
void CRecordCutter::HoldElement(DocumentElement const& element) {
    std::vector<DocumentAttribute> attributes(element.m_attributes.begin(), element.m_attributes.end());
    std::vector<wstring> values;
    values.reserve(attributes.size());
    for (DocumentAttribute const& attribute : attributes) values.emplace_back(attribute.m_value);
    Hold([this, &name = element.m_name, attributes = std::move(attributes), values = std::move(values),
          line = element.m_line]() mutable {
        for (std::size_t i = 0; i < values.size(); ++i) attributes[i].m_value = values[i];
        StartElement({name, {}, attributes, line});
    });
}

void CRecordCutter::HoldText(std::u16string_view text) {
    Hold([this, held = wstring(text)] { AddText(held); });
}

void CRecordCutter::HoldEnd() {
    Hold([this] { EndElement(); });
}

void CRecordCutter::TellHeld() {
    if (m_held.empty()) return;
    try {
        for (auto const& event : std::exchange(m_held, {})) event();
    } catch (CBxException& failure) {
        SetPlace(failure, m_heldPlace);
        throw;
    }
}

void CRecordCutter::DeclareNamespace(wstring const& prefix, wstring const& namespaceUri) {
    m_newDeclarations.emplace_back(&prefix, &namespaceUri);
}

void CRecordCutter::StartElement(DocumentElement const& element) {
    if (m_recordDepth == 0) {
        return m_isAhead && !IsNextRecord(element.m_name) ? HoldElement(element) : StartChild(element);
    }
    ++m_recordDepth;
    if (m_isPassedOver) return m_newDeclarations.clear();
    if (!m_newDeclarations.empty()) DeclareNew();
    m_builder.StartElement(element);
    CountInRecord(CDocumentBuilder::OctetsOf(element));
}

/// Outside of records.
void CRecordCutter::StartChild(DocumentElement const& element) {
    if (m_otherDepth == 0) {
        CXmlName const& name = element.m_name;
        Step const& step = m_path[m_openLevels];
        std::size_t const position =
            step.HasName(name) && m_openLevels > 0 ? m_levels[m_openLevels - 1].Count(name.m_localName) : 0;
        if (step.HasName(name) && step.HasNamespace(name)) {
            return m_openLevels < m_levels.size() ? StartLevel(element, position)
                                                  : StartRecord(element, position);
        }
        if (m_openLevels == 0) ThrowWrongRoot(element);
    }
    ++m_otherDepth;
    for (auto const& [prefix, uri] : m_newDeclarations) m_surroundings.DeclareNamespace(*prefix, *uri);
    m_newDeclarations.clear();
    m_surroundings.StartElement(element);
}

std::size_t CRecordCutter::Level::Count(wstring const& name) {
    if (m_firstName == nullptr) m_firstName = &name;
    return m_firstName == &name ? ++m_firstCount : ++m_otherCounts[&name];
}

void CRecordCutter::StartLevel(DocumentElement const& element, std::size_t position) {
    Level& level = m_levels[m_openLevels++];
    level = {};
    level.m_name = &element.m_name.m_localName;
    level.m_position = position;
    level.m_declarations = m_formerAliases.size();
    for (auto const& [prefix, uri] : m_newDeclarations) m_surroundings.DeclareNamespace(*prefix, *uri);
    DeclareNew();
    m_surroundings.StartStep(element, position, m_settings.m_tellsEnds && HasItems());
}

void CRecordCutter::StartRecord(DocumentElement const& element, std::size_t position) {
    if (!m_hasBegun) m_stream->Pause();
    m_hasBegun = true;
    m_recordDepth = 1;
    m_surroundings.PassRecord();
    if (m_isAhead) m_octets = 0;
    m_isPassedOver = m_octets > m_settings.m_maxRecord;  // with one that was ahead of it in an entity
    if (m_isPassedOver) return m_newDeclarations.clear();
    Item& item = NewItem(element.m_line);
    item.m_steps.emplace_back(&element.m_name.m_localName, position);
    m_declarationsOutside = m_formerAliases.size();
    if (!m_newDeclarations.empty()) DeclareNew();
    m_builder.StartElement(element);
    CountInRecord(CDocumentBuilder::OctetsOf(element));
}

/// What is declared in a record counts for all of it, as it does in the document as a whole.
void CRecordCutter::DeclareNew() {
    for (auto const& [prefix, uri] : m_newDeclarations) {
        m_formerAliases.emplace_back(prefix, std::exchange(m_aliases[prefix], uri));
        m_changes[prefix] = uri;
    }
    m_newDeclarations.clear();
}

void CRecordCutter::UndoDeclarations(std::size_t left) {
    for (; m_formerAliases.size() > left; m_formerAliases.pop_back()) {
        auto const [prefix, uri] = m_formerAliases.back();
        m_aliases[prefix] = m_changes[prefix] = uri;
    }
}

/// The item that the open record makes is complete.
CRecordCutter::Item& CRecordCutter::FinishItem() {
    Item& item = m_items[m_count++];
    if (!m_changes.empty()) item.m_changes.swap(m_changes);
    UndoDeclarations(m_declarationsOutside);
    return item;
}

void CRecordCutter::AddText(std::u16string_view text) {
    if (m_recordDepth == 0) {
        if (!m_isAhead) return m_surroundings.AddText(text);
        if (m_held.empty() && m_surroundings.LeavesOut(text)) return;
        return HoldText(text);
    }
    if (m_isPassedOver) return;
    m_builder.AddText(text);
    CountInRecord(text.size() * sizeof(char16_t));
}

void CRecordCutter::EndElement() {
    if (m_recordDepth > 0) {
        if (!m_isPassedOver) m_builder.EndElement();
        if (--m_recordDepth == 0 && !m_isPassedOver) EndRecord();
    } else if (m_isAhead) {
        HoldEnd();
    } else if (m_otherDepth > 0) {
        --m_otherDepth;
        m_surroundings.EndElement();
    } else {
        EndLevel();
    }
}

/// The item that the next one will be, inside of the elements that are open.
CRecordCutter::Item& CRecordCutter::NewItem(std::size_t line) {
    if (m_items.size() == m_count) m_items.emplace_back();
    Item& item = m_items[m_count];
    item.m_kind = Kind::Record;
    item.m_element = nullptr;
    item.m_line = line;
    if (!item.m_changes.empty()) item.m_changes.clear();
    item.m_steps.clear();
    for (std::size_t i = 0; i < m_openLevels; ++i)
        item.m_steps.emplace_back(m_levels[i].m_name, m_levels[i].m_position);
    return item;
}

void CRecordCutter::EndRecord() {
    Item& item = FinishItem();
    item.m_element = m_builder.Root();
    m_storedOctets += m_octets + sizeof(Item) + item.m_changes.size() * kAliasOctets;
    m_isAhead = m_stream->PauseBehindSlice();
    if (m_storedOctets >= kMostStoredOctets) m_stream->Pause();
}

/// Of a record that is too large no more is kept than is there.
void CRecordCutter::CountInRecord(std::size_t octets) {
    m_octets += octets;
    if (m_octets <= m_settings.m_maxRecord) return;
    m_isPassedOver = true;
    m_builder.Forget();
    FinishItem().m_kind = Kind::LargeRecord;
    m_stream->Pause();
}

void CRecordCutter::EndLevel() {
    Level const& level = m_levels[m_openLevels - 1];
    UndoDeclarations(level.m_declarations);
    CXmlElement* const element = m_surroundings.EndStep();
    if (m_settings.m_tellsEnds) {
        Item& item = NewItem(element->GetLine());
        item.m_kind = Kind::End;
        item.m_element = element;
        ++m_count;
        m_stream->Pause();
    }
    --m_openLevels;
}

void CRecordCutter::ThrowWrongRoot(DocumentElement const& root) const {
    Step const& step = m_path[0];
    // No failure of the data, behind which reading could go on.
    CBxException failure(
        WrongRoot(root.m_name, step.m_name == nullptr ? u"*" : step.m_name->c_str(), step.m_namespaceUri));
    wstring path;
    AddPathStep(path, root.m_name.m_localName, 0);
    failure.SetLocation(CBxLocation(std::move(path), root.m_line));
    throw failure;
}

CBxLocation CRecordCutter::OpenElement() const {
    CBxException failure;
    auto const locate = [&](CXmlElement const& innermost, CXmlElement const& root, PlaceOfTree const& tree) {
        MarkRead(failure, &innermost);
        LocateRead(failure, root, tree);
        return failure.GetLocation();
    };
    if (m_recordDepth > 0 && !m_isPassedOver)
        return locate(*m_builder.OpenElements().back(), *m_builder.Root(), {m_items[m_count].Path(), {}});
    if (m_surroundings.Innermost() == nullptr) return {};
    auto const positionOf = [this](auto const& element) { return m_surroundings.PositionOf(element); };
    return locate(*m_surroundings.Innermost(), *m_surroundings.Root(), {{}, positionOf});
}

}  // namespace BxXmlLib5
