#include "binding/SiblingSearch.h"

#include <iterator>

#include "BxXmlLib5/document/CXmlElement.h"

namespace BxXmlLib5Data {

namespace {

thread_local CSiblingSearches* t_searches = nullptr;

}  // namespace

CSiblingSearches::CSiblingSearches(CXmlElement const* element, CXmlSerializationContext const& context)
    : m_outer(t_searches), m_element(element), m_context(&context) {
    if (m_outer == nullptr || m_outer->m_element != element || m_outer->m_context != m_context) {
        t_searches = this;
    }
}

CSiblingSearches::~CSiblingSearches() {
    t_searches = m_outer;
}

std::optional<std::size_t> CSiblingSearches::PlaceOf(CXmlElement const* child) {
    if (m_places.empty()) {
        CXmlElement const* sibling = m_element->GetFirstElement();
        for (; sibling != nullptr; sibling = sibling->GetNextSiblingElement()) {
            m_places.emplace(sibling, m_places.size());
        }
    }
    auto const place = m_places.find(child);
    return place == m_places.end() ? std::nullopt : std::optional(place->second);
}

CXmlElement* CSiblingSearch::After(CXmlElement* child) {
    if (m_first == nullptr) {
        m_first = child;
        if (m_entry != nullptr && t_searches != nullptr) m_known = &t_searches->m_stretches[m_entry];
    }
    m_last = child;
    CXmlElement* const next = child->GetNextSiblingElement();
    if (next == nullptr || m_known == nullptr || m_known->empty()) return next;
    // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage): what is known, the searches know
    auto const place = t_searches->PlaceOf(next);
    if (!place) return next;
    auto const behind = m_known->upper_bound(*place);
    if (behind == m_known->begin()) return next;
    CSiblingSearches::Stretch const& stretch = std::prev(behind)->second;
    return place <= stretch.m_lastPlace ? stretch.m_last : next;
}

void CSiblingSearch::End(CXmlElement* found) {
    if (m_known == nullptr) return;
    CXmlElement* const last = found == nullptr ? m_last : found;
    auto const firstPlace = t_searches->PlaceOf(m_first), lastPlace = t_searches->PlaceOf(last);
    if (!firstPlace || lastPlace < firstPlace) return;
    auto const behind = m_known->upper_bound(*firstPlace);
    if (behind != m_known->begin() && std::prev(behind)->second.m_lastPlace >= *firstPlace) return;
    m_known->erase(behind, m_known->upper_bound(*lastPlace));
    m_known->emplace(*firstPlace, CSiblingSearches::Stretch{*lastPlace, last});
}

}  // namespace BxXmlLib5Data
