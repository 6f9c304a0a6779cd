// The record of one open element and of the namespace scope inside it.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "BxXmlLib5/writers/CXmlWriter.h"
#include "writers/GeneratedPrefixes.h"

namespace BxXmlLib5 {

/// Most elements have no scope of their own and see that of an ancestor. One that declares something gets a
/// scope, which holds that and hides what it replaces; all else is looked up outwards.
class BXXMLLIB5_LOCAL CXmlWriter::CXmlWriterContext : public CInstanceMonitor {
public:
    /// What stands for a namespace in names.
    struct Prefix {
        wstring const& m_alias;
        bool m_isNew;  // it was made just now and is to be declared
    };

    CXmlWriterContext();
    ~CXmlWriterContext();
    CXmlWriterContext(CXmlWriterContext const&) = delete;
    CXmlWriterContext& operator=(CXmlWriterContext const&) = delete;

    /// Starts the record anew, for a root with this scope.
    void InitRoot(wstring const& name, wstring const& namespaceUri, wstring const& defaultNamespace,
                  std::map<wstring, wstring> const& namespaces);
    /// Starts the record anew, for a child, which must close before its parent does.
    void InitChild(wstring const& name, wstring const& namespaceUri, CXmlWriterContext const& parent);

    wstring const& DefaultNamespace() const { return m_scope->m_defaultNamespace; }

    void SetDefaultNamespace(wstring const& namespaceUri);
    void AddNamespace(wstring const& alias, wstring const& namespaceUri);

    /// The prefix of a namespace that is not empty, made in this record's scope if there is none.
    Prefix TakePrefix(wstring const& namespaceUri);

    /// Whether a name in this namespace takes no prefix where the default namespace counts.
    bool IsDefault(wstring const& namespaceUri) const;

    /// Settles the prefix of the element's own name.
    /// @param parent null at the root
    /// @return whether it was made just now and is to be declared
    bool TakeElementPrefix(CXmlWriterContext const* parent);

    /// The prefix of the element's own name, empty for none.
    wstring const& ElementPrefix() const;

    unsigned m_childCount = 0;
    bool m_startTagOpen = true;
    unsigned m_depth = 0;  // 0 at the root
    wstring m_namespace;
    wstring m_name;
    std::unique_ptr<CXmlWriterContext> m_parent;  // the enclosing element's
    bool m_hasAttributes = false;

private:
    void Init(wstring const& name, wstring const& namespaceUri);
    void TakeScope();
    wstring const* FindPrefix(wstring const& namespaceUri) const;
    CPrefixSource& Prefixes();
    std::map<wstring, wstring> AllNamespaces() const;
    void SettleElementPrefix();

    CXmlWriterContext* m_scope = nullptr;       // this record, or the nearest one outside with a scope
    CXmlWriterContext* m_outerScope = nullptr;  // outside this record's scope, null at the root
    wstring m_defaultNamespace;
    std::map<wstring, wstring> m_namespaces;                              // URI to alias
    mutable std::pair<wstring const, wstring> const* m_recent = nullptr;  // of m_namespaces, found last
    bool m_hidesAlias = false;  // an alias was added, so the outer scope does not tell which are used
    std::optional<CPrefixSource> m_prefixes;   // for this record's scope, once a prefix was made
    wstring const* m_elementPrefix = nullptr;  // null if the scope has none any more
};

}  // namespace BxXmlLib5
