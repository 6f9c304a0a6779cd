#include "PrefixScopes.h"

#include <algorithm>
#include <string>
#include <utility>

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

wstring NewPrefix(std::size_t number) {
    return u"ns" + FromUtf8(std::to_string(number));
}

}  // namespace

void PrefixScopes::EndElement() {
    for (; !m_bindings.empty() && m_bindings.back().m_depth == m_depth; m_bindings.pop_back()) {
        Binding const& binding = m_bindings.back();
        m_lastOfPrefix[*binding.m_declaration.m_prefix] = binding.m_formerOfPrefix;
        m_lastOfNamespace[binding.m_declaration.m_namespace] = binding.m_formerOfNamespace;
    }
    --m_depth;
}

void PrefixScopes::Bind(PrefixDeclaration const& declaration, std::size_t made) {
    auto const lastIn = [this](auto& table, auto const& key) {
        return std::exchange(table.try_emplace(key, kNone).first->second, m_bindings.size());
    };
    std::size_t const formerOfPrefix = lastIn(m_lastOfPrefix, *declaration.m_prefix);
    std::size_t const formerOfNamespace = lastIn(m_lastOfNamespace, declaration.m_namespace);
    m_bindings.push_back({declaration, m_depth, made, formerOfPrefix, formerOfNamespace});
}

wstring const& PrefixScopes::BindNew(wstring const& namespaceUri, CNameTable& names) {
    std::size_t number = std::max(Made(), m_passed) + 1;
    wstring prefix = NewPrefix(number);
    for (; NamespaceOf(prefix) != nullptr; prefix = NewPrefix(++number)) m_passed = number;
    wstring const& bound = names.InternText(prefix);
    Bind({&bound, &namespaceUri}, number);
    return bound;
}

wstring const* PrefixScopes::NamespaceOf(std::u16string_view prefix) const {
    constexpr std::size_t kFew = 8;
    if (m_bindings.size() <= kFew) {
        auto const binding = std::find_if(
            m_bindings.rbegin(), m_bindings.rend(),
            [prefix](auto const& known) { return Equal(*known.m_declaration.m_prefix, prefix); });
        return binding == m_bindings.rend() ? nullptr : binding->m_declaration.m_namespace;
    }
    auto const last = m_lastOfPrefix.find(prefix);
    bool const isBound = last != m_lastOfPrefix.end() && last->second != kNone;
    return isBound ? m_bindings[last->second].m_declaration.m_namespace : nullptr;
}

wstring const* PrefixScopes::PrefixOf(wstring const& namespaceUri, bool mayBeEmpty) const {
    auto const last = m_lastOfNamespace.find(&namespaceUri);
    if (last == m_lastOfNamespace.end()) return nullptr;
    // A document may hide any number of them; a new prefix is as good then.
    int left = 8;
    for (std::size_t at = last->second; at != kNone && left > 0;
         at = m_bindings[at].m_formerOfNamespace, --left) {
        wstring const* const prefix = m_bindings[at].m_declaration.m_prefix;
        if ((mayBeEmpty || !prefix->empty()) && NamespaceOf(*prefix) == &namespaceUri) return prefix;
    }
    return nullptr;
}

}  // namespace BxConvert
