// The namespaces that are in scope where a writer stands.
#pragma once

#include <cstddef>
#include <map>
#include <string_view>
#include <vector>

#include "BxXmlLib5/platform/Text.h"
#include "platform/TextView.h"
#include "writers/GeneratedPrefixes.h"

namespace BxXmlLib5 {

/// A change holds until it is undone, the latest one first; so a scope is the changes made since it began.
class CNamespaceScopes {
    struct Binding {
        wstring m_alias;
        bool m_isDeclared;
    };
    using Bindings = std::vector<Binding>;  // of one namespace, of which the last one holds

public:
    /// What stands for a namespace in names. It lasts until the next change.
    struct Prefix {
        wstring const& m_alias;
        bool m_isNew;  // it was made just now
    };

    /// How many changes hold.
    std::size_t Changes() const { return m_changes.size(); }
    /// Undoes changes until so many are left.
    void UndoTo(std::size_t changes) {
        while (m_changes.size() > changes) UndoOne();
    }

    void SetDefaultNamespace(std::u16string_view namespaceUri);

    /// @param alias the empty alias is none
    /// @param isDeclared whether the document says so
    void AddNamespace(std::u16string_view alias, std::u16string_view namespaceUri, bool isDeclared);

    /// Whether a name in this namespace takes no prefix where the default namespace counts.
    bool IsDefault(std::u16string_view namespaceUri) const;

    /// Stands for a namespace that has been looked up. It lasts as long as the scopes.
    using Handle = Bindings*;

    /// @param namespaceUri not empty
    Handle HandleOf(std::u16string_view namespaceUri);

    /// The prefix of a namespace, made if there is none.
    Prefix TakePrefix(Handle handle) {
        if (!handle->empty() && !handle->back().m_alias.empty()) return {handle->back().m_alias, false};
        return {Bind(*handle, {m_prefixes.FirstFree(), false}).m_alias, true};
    }
    Prefix TakePrefix(std::u16string_view namespaceUri) { return TakePrefix(HandleOf(namespaceUri)); }

    /// The same, and it counts as declared from now on.
    /// @return whether it did not before
    bool Declare(std::u16string_view namespaceUri);

private:
    struct Change {
        Bindings* m_bindings;  // that one was added to; null if the default namespace changed
        wstring m_formerDefault;
    };

    Bindings& BindingsOf(std::u16string_view namespaceUri);
    Binding const& Bind(Bindings& bindings, Binding binding);
    void UndoOne();

    std::map<wstring, Bindings, LessBySize> m_namespaces;  // by URI; none is ever taken out
    wstring m_defaultNamespace;
    CPrefixesInUse m_prefixes;
    std::vector<Change> m_changes;
};

}  // namespace BxXmlLib5
