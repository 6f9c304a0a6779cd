#include <map>
#include <string>

#include "Suite.h"

namespace Suite {

namespace {

/// Made when the first group asks for it, as the order in which constants of several sources are made is open.
std::map<std::string, Group const*, std::less<>>& Groups() {
    static std::map<std::string, Group const*, std::less<>> groups;
    return groups;
}

}  // namespace

Group::Group(std::string_view name, std::initializer_list<BxXmlLib5::Generated::Class const*> roots)
    : m_roots(roots) {
    Groups().emplace(name, this);
}

Group const* Group::Find(std::string_view name) {
    auto const found = Groups().find(name);
    return found == Groups().end() ? nullptr : found->second;
}

BxXmlLib5::Generated::Class const* Group::FindRoot(std::u16string_view name,
                                                   std::u16string_view namespaceUri) const {
    for (auto const* root : m_roots) {
        auto const& facts = root->GetFacts();
        if (facts.name == name && facts.namespaceUri == namespaceUri) return root;
    }
    return nullptr;
}

}  // namespace Suite
