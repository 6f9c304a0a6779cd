#include "writers/CNamespaceScopes.h"

#include <utility>

#include "core/NeverDestroyed.h"
#include "platform/StandardNamespaces.h"

namespace BxXmlLib5 {

namespace {

/// What is added next cannot fail then.
void MakeRoomForOne(auto& list) {
    if (list.size() == list.capacity()) list.reserve(2 * list.size() + 1);
}

}  // namespace

void CNamespaceScopes::UndoTo(std::size_t changes) {
    for (; m_changes.size() > changes; m_changes.pop_back()) {
        Change& change = m_changes.back();
        if (change.m_bindings == nullptr) {
            m_defaultNamespace = std::move(change.m_formerDefault);
            continue;
        }
        Bindings& bindings = *change.m_bindings;
        if (bindings.size() > 1) m_prefixes.Hold(bindings[bindings.size() - 2].m_alias);
        m_prefixes.Drop(bindings.back().m_alias);
        bindings.pop_back();
    }
}

void CNamespaceScopes::SetDefaultNamespace(std::u16string_view namespaceUri) {
    m_changes.push_back({nullptr, m_defaultNamespace});
    m_defaultNamespace = namespaceUri;
}

void CNamespaceScopes::AddNamespace(std::u16string_view alias, std::u16string_view namespaceUri,
                                    bool isDeclared) {
    Bind(namespaceUri, {wstring(alias), isDeclared});
}

bool CNamespaceScopes::IsDefault(std::u16string_view namespaceUri) const {
    return namespaceUri.empty() ||
           (Equal(namespaceUri, m_defaultNamespace) && !Equal(namespaceUri, kXmlNamespace));
}

CNamespaceScopes::Prefix CNamespaceScopes::TakePrefix(std::u16string_view namespaceUri) {
    if (Binding const* const known = Find(namespaceUri)) return {known->m_alias, false};
    return {Bind(namespaceUri, {m_prefixes.FirstFree(), false}).m_alias, true};
}

bool CNamespaceScopes::Declare(std::u16string_view namespaceUri) {
    Prefix const prefix = TakePrefix(namespaceUri);
    if (Find(namespaceUri)->m_isDeclared) return false;
    AddNamespace(wstring(prefix.m_alias), namespaceUri, true);
    return true;
}

CNamespaceScopes::Binding const* CNamespaceScopes::Find(std::u16string_view namespaceUri) const {
    static NeverDestroyed<Binding> const s_xml(Binding{u"xml", true});
    if (Equal(namespaceUri, kXmlNamespace)) return &*s_xml;
    auto const known = m_namespaces.find(namespaceUri);
    if (known == m_namespaces.end() || known->second.empty()) return nullptr;
    Binding const& binding = known->second.back();
    return binding.m_alias.empty() ? nullptr : &binding;
}

CNamespaceScopes::Binding const& CNamespaceScopes::Bind(std::u16string_view namespaceUri, Binding binding) {
    auto known = m_namespaces.find(namespaceUri);
    if (known == m_namespaces.end()) known = m_namespaces.emplace(namespaceUri, Bindings()).first;
    Bindings& bindings = known->second;
    MakeRoomForOne(bindings);
    MakeRoomForOne(m_changes);
    m_prefixes.Hold(binding.m_alias);
    if (!bindings.empty()) m_prefixes.Drop(bindings.back().m_alias);
    m_changes.push_back({&bindings, {}});
    return bindings.emplace_back(std::move(binding));
}

}  // namespace BxXmlLib5
