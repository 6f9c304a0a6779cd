#include "collections/CContentReader.h"

#include <cstdint>
#include <utility>

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/document/CXmlElement.h"

namespace BxXmlLib5 {

template <std::size_t kSize>
CSharedNames::Entry& CSharedNames::Find(std::array<Entry, kSize>& entries, wstring const& source) {
    Entry& entry = entries[reinterpret_cast<std::uintptr_t>(&source) / alignof(std::max_align_t) % kSize];
    if (entry.m_source != &source) entry = {&source, CSharedText(source), nullptr};
    return entry;
}

CSharedText CSharedNames::Name(wstring const& name) {
    return Find(m_names, name).m_text;
}
CSharedText CSharedNames::Namespace(wstring const& ns) {
    return Find(m_namespaces, ns).m_text;
}

CSmartPtr<CWildcard const> CSharedNames::Wildcard(wstring const& ns, CSharedText const& targetNamespace) {
    Entry& entry = Find(m_namespaces, ns);
    if (!entry.m_wildcard) entry.m_wildcard = AnyWildcard(entry.m_text, targetNamespace);
    return entry.m_wildcard;
}

CContentReader::CContentReader(CSharedText targetNamespace) : m_targetNamespace(std::move(targetNamespace)) {}
CContentReader::CContentReader() : m_wildcard(AnyWildcard({}, {})) {}

CSmartPtr<CReadItem<CElement>> CContentReader::Read(CXmlElement const& source) {
    CSmartPtr<CReadItem<CElement>> result = New(source);
    Fill(*result, source);
    while (!m_levels.empty()) {
        Level& level = m_levels.back();
        if (level.m_next == nullptr) {
            m_levels.pop_back();
            continue;
        }
        CXmlElement const& child = *level.m_next;
        level.m_next = child.GetNextSiblingElement();
        CReadItem<CElement>* const copy = New(child);
        level.m_target->AppendRead(*copy);
        Fill(*copy, child);
    }
    return result;
}

CReadItem<CElement>* CContentReader::New(CXmlElement const& source) {
    wstring const& ns = source.GetNamespaceURI();
    return new (m_memory)
        CReadItem<CElement>(m_names.Name(source.GetLocalName()), m_names.Namespace(ns),
                            m_wildcard ? m_wildcard : m_names.Wildcard(ns, m_targetNamespace));
}

/// Text and attributes now, the children next.
void CContentReader::Fill(CElement& target, CXmlElement const& source) {
    target.m_text = source.GetTextView();
    if (!source.GetAttributeView().empty()) {
        auto* const attributes = new (m_memory) CReadCol<CAttributeCol>(target.m_wildcard);
        target.m_attributes.Set(attributes);
        attributes->Read(source, m_names, m_memory);
    }
    if (source.GetFirstElement() != nullptr) {
        auto* const childElements = new (m_memory) CReadCol<CElementCol>(target.m_wildcard, 0, -1);
        target.m_childElements.Set(childElements);
        m_levels.push_back({childElements, source.GetFirstElement()});
    }
}

}  // namespace BxXmlLib5
