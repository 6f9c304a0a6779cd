#include "document/CSurroundings.h"

#include <algorithm>
#include <string>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"

namespace BxXmlLib5 {

namespace {

constexpr std::size_t kLevelOctets = 3 * 1024;  // with its first nodes, which matters where there are many

/// Without white space at the beginning.
std::u16string_view Trimmed(std::u16string_view text) {
    auto const first = std::ranges::find_if_not(text, CWhitespaceUtils::IsWhiteSpace);
    return text.substr(static_cast<std::size_t>(first - text.begin()));
}

}  // namespace

CSurroundings::CSurroundings(CNameTable& names, SurroundingsSettings const& settings)
    : m_settings(settings), m_names(names), m_document(names, settings.m_schemaType) {}

void CSurroundings::DeclareNamespace(wstring const& prefix, wstring const& namespaceUri) {
    m_document.Nodes().m_namespaceAliases.insert_or_assign(&prefix, &namespaceUri);
}

void CSurroundings::StartStep(DocumentElement const& element, std::size_t position, bool keepsFormer) {
    DropEnded(keepsFormer);
    if (m_levels.size() == m_openLevels) m_levels.push_back(std::make_unique<Level>(m_document, m_names));
    Level& level = *m_levels[m_openLevels];
    level.m_builder.StartElement(element);
    if (m_openLevels > 0) level.m_before = Open().m_builder.Attach(*level.m_builder.Root());
    level.m_position = position;
    ++m_openLevels;
    m_isBehindTag = true;
    Count(CDocumentBuilder::OctetsOf(element));
}

/// Those that have ended are inside of the innermost one that is open.
void CSurroundings::DropEnded(bool keeps) {
    auto const first = m_levels.begin() + static_cast<std::ptrdiff_t>(m_openLevels);
    if (first == m_levels.end() || (*first)->m_builder.Root() == nullptr) return;
    if (m_openLevels > 0) Open().m_builder.Detach(*(*first)->m_builder.Root(), (*first)->m_before);
    if (keeps) {
        std::for_each(first, m_levels.end(), [this](auto const& level) {
            level->m_octets += kLevelOctets;
            m_octets += kLevelOctets;
        });
        std::move(first, m_levels.end(), std::back_inserter(m_former));
        m_levels.erase(first, m_levels.end());
        return;
    }
    std::for_each(first, m_levels.end(), [this](auto const& level) {
        m_octets -= std::exchange(level->m_octets, 0);
        level->m_builder.Forget();
        level->m_nodes.Empty();
    });
}

void CSurroundings::DropFormer() {
    for (auto const& level : m_former) m_octets -= level->m_octets;
    m_former.clear();
}

CXmlElement* CSurroundings::EndStep() {
    CDocumentBuilder& builder = Open().m_builder;
    builder.EndElement();
    --m_openLevels;
    m_isBehindTag = true;
    return builder.Root();
}

void CSurroundings::StartElement(DocumentElement const& element) {
    if (!m_settings.m_keepsContent) return;
    Open().m_builder.StartElement(element);
    ++m_depth;
    Count(CDocumentBuilder::OctetsOf(element));
}

bool CSurroundings::LeavesOut(std::u16string_view text) const {
    return !m_settings.m_keepsContent || (LeavesOutSpace() && Trimmed(text).empty());
}

void CSurroundings::AddText(std::u16string_view text) {
    if (LeavesOut(text)) return;
    if (LeavesOutSpace()) text = Trimmed(text);
    m_isBehindTag = false;
    Open().m_builder.AddText(text);
    Count(text.size() * sizeof(char16_t));
}

void CSurroundings::EndElement() {
    if (!m_settings.m_keepsContent) return;
    Open().m_builder.EndElement();
    --m_depth;
    m_isBehindTag = true;
}

void CSurroundings::Count(std::size_t octets) {
    Open().m_octets += octets;
    m_octets += octets;
    if (m_octets <= m_settings.m_maxOctets) return;
    throw CBxException(
        u"What stands around the records takes more than " +
        FromUtf8(std::to_string(m_settings.m_maxOctets)) +
        u" octets, which is the limit (m_maxSurroundings; without m_keepsSurroundings it is left "
        u"out)");
}

CXmlElement* CSurroundings::Show() {
    if (!std::exchange(m_isShown, true)) ShowTexts(true);
    return Root();
}

void CSurroundings::Hide() {
    if (std::exchange(m_isShown, false)) ShowTexts(false);
}

void CSurroundings::ShowTexts(bool isShown) {
    for (std::size_t i = 0; i < m_openLevels; ++i) m_levels[i]->m_builder.ShowText(isShown);
}

std::size_t CSurroundings::PositionOf(CXmlElement const& element) const {
    auto const isOf = [&](auto const& level) { return level->m_builder.Root() == &element; };
    auto const level = std::ranges::find_if(m_levels, isOf);
    return level == m_levels.end() ? 0 : (*level)->m_position;
}

CXmlElement const* CSurroundings::Innermost() const {
    return m_openLevels == 0 ? nullptr : Open().m_builder.OpenElements().back();
}

}  // namespace BxXmlLib5
