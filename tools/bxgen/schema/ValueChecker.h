// Whether texts are values of simple types.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "schema/SchemaStore.h"

namespace BxGen {

/// Tests default, fixed and enumerated values against their types. Patterns of the schema are not evaluated; those of
/// the built-in types are.
class ValueChecker {
public:
    explicit ValueChecker(SchemaStore const& store) : m_store(store) {}

    /// @param text as written
    /// @param scope the prefixes where it stands, for QName and NOTATION
    /// @return what is wrong with it, nothing if it is a value of the type
    std::optional<std::string> WhatIsWrong(SimpleType const& type, std::string_view text,
                                           NamespaceScope const* scope);

    /// What a value of QName or NOTATION names; empty if its prefix is not declared.
    QName NameOf(std::string_view text, NamespaceScope const* scope) const;

private:
    using Visited = std::unordered_set<SimpleType const*>;
    using Answer = std::optional<std::string>;

    Answer Check(SimpleType const& type, std::string_view text, NamespaceScope const* scope,
                 Visited& visited);
    Answer CheckAtomic(SimpleType const& type, std::string const& text, NamespaceScope const* scope) const;
    Answer CheckList(SimpleType const& type, std::string_view text, NamespaceScope const* scope,
                     Visited& visited);
    Answer CheckUnion(SimpleType const& type, std::string_view text, NamespaceScope const* scope,
                      Visited& visited);
    Answer CheckEnumeration(SimpleType const& type, std::string const& text);

    SchemaStore const& m_store;
    std::unordered_map<SimpleType const*, std::unordered_set<std::string>> m_keys;
};

/// A text with whitespace handled as the type demands.
std::string WithWhiteSpace(SimpleType const& type, std::string_view text);

}  // namespace BxGen
