// Names of C++ made from names of a schema.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace BxGen {

/// A name in CamelCase: words begin at what no identifier holds, their first letters are capital. Letters beyond ASCII
/// stay, unless only ASCII is wanted or C++ does not take them: then `u00E9`. A name that begins with a digit gets an
/// N ahead; one without a letter or digit is empty.
std::string Camel(std::string_view name, bool onlyAscii);

/// True for a name that C++ takes, of letters that Camel() leaves.
bool IsIdentifier(std::string_view name);

/// True for names of C++ with `::` between them.
bool IsNamespaceName(std::string_view name);

/// True for a macro of the C or C++ library that a name in CamelCase could be: `NULL`, `EOF`.
bool IsMacro(std::string_view name);

/// The names of one scope of C++, each of them once.
class NameScope {
public:
    NameScope() = default;
    /// @param outer names that are reserved; must outlive the scope
    /// @param inherited names that are taken in a class's base, null for none; must outlive the scope
    explicit NameScope(NameScope const* outer, NameScope const* inherited = nullptr)
        : m_outer(outer), m_inherited(inherited) {}

    bool Has(std::string_view name) const {
        for (NameScope const* scope = this; scope != nullptr; scope = scope->m_inherited) {
            if (scope->m_names.contains(name)) return true;
        }
        return m_outer != nullptr && m_outer->Has(name);
    }
    void Add(std::string name) { m_names.insert(std::move(name)); }

    /// Takes the name, or the first that is free of: name + `_` if it is reserved, name + suffix, name + 2, 3 ...
    /// @param suffix empty for none
    std::string Take(std::string const& name, std::string_view suffix = {});

private:
    NameScope const* m_outer = nullptr;
    NameScope const* m_inherited = nullptr;
    std::map<std::string, int, std::less<>> m_numbers;  ///< the next to try behind a name
    std::set<std::string, std::less<>> m_names;
};

/// Names that no property may have: the public and protected names of the classes that generated ones derive from.
NameScope const& NamesOfObjects();

/// Names that no class, type or constant may have at the scope of a namespace of generated code.
NameScope const& NamesOfNamespaces();

}  // namespace BxGen
