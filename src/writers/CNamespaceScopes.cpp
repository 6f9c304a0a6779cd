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

void CNamespaceScopes::UndoOne() {
    Change& change = m_changes.back();
    if (change.m_bindings == nullptr) {
        m_defaultNamespace = std::move(change.m_formerDefault);
    } else {
        Bindings& bindings = *change.m_bindings;
        if (bindings.size() > 1) m_prefixes.Hold(bindings[bindings.size() - 2].m_alias);
        m_prefixes.Drop(bindings.back().m_alias);
        bindings.pop_back();
    }
    m_changes.pop_back();
}

void CNamespaceScopes::SetDefaultNamespace(std::u16string_view namespaceUri) {
    m_changes.push_back({nullptr, m_defaultNamespace});
    m_defaultNamespace = namespaceUri;
}

void CNamespaceScopes::AddNamespace(std::u16string_view alias, std::u16string_view namespaceUri,
                                    bool isDeclared) {
    Bind(BindingsOf(namespaceUri), {wstring(alias), isDeclared});
}

bool CNamespaceScopes::IsDefault(std::u16string_view namespaceUri) const {
    return namespaceUri.empty() ||
           (Equal(namespaceUri, m_defaultNamespace) && !Equal(namespaceUri, kXmlNamespace));
}

bool CNamespaceScopes::Declare(std::u16string_view namespaceUri) {
    Handle const handle = HandleOf(namespaceUri);
    Prefix const prefix = TakePrefix(handle);
    if (handle->back().m_isDeclared) return false;
    Bind(*handle, {prefix.m_alias, true});
    return true;
}

CNamespaceScopes::Handle CNamespaceScopes::HandleOf(std::u16string_view namespaceUri) {
    // Whatever is added for it; so these are never bound anew.
    static NeverDestroyed<Bindings> s_xml(1U, Binding{u"xml", true});
    return Equal(namespaceUri, kXmlNamespace) ? &*s_xml : &BindingsOf(namespaceUri);
}

CNamespaceScopes::Bindings& CNamespaceScopes::BindingsOf(std::u16string_view namespaceUri) {
    auto known = m_namespaces.find(namespaceUri);
    if (known == m_namespaces.end()) known = m_namespaces.emplace(namespaceUri, Bindings()).first;
    return known->second;
}

CNamespaceScopes::Binding const& CNamespaceScopes::Bind(Bindings& bindings, Binding binding) {
    MakeRoomForOne(bindings);
    MakeRoomForOne(m_changes);
    m_prefixes.Hold(binding.m_alias);
    if (!bindings.empty()) m_prefixes.Drop(bindings.back().m_alias);
    m_changes.push_back({&bindings, {}});
    return bindings.emplace_back(std::move(binding));
}

}  // namespace BxXmlLib5
