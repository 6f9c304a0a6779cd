// What the writers have in common: open elements and namespace scopes.
#pragma once

#include <string_view>

#include "platform/StandardNamespaces.h"
#include "writers/CXmlWriterContext.h"

namespace BxXmlLib5 {

class CElementWriter : public CXmlWriter {
public:
    void WriteXsiType(wstring const& namespaceUri, wstring const& typeName) final;

protected:
    using Element = CXmlWriterContext::Element;

    using CXmlWriter::CXmlWriter;

    CXmlWriterContext& Context() { return *m_context; }
    CNamespaceScopes& Scopes() { return m_context->m_scopes; }

    /// Starts an element; the root's scope begins with what was set before.
    Element& Start();

    /// The prefix of a namespace in the value of an attribute, declared in the open start tag.
    virtual wstring DeclaredPrefix(wstring const& namespaceUri) = 0;

    /// Calls back with each namespace that the root declares, as (alias, URI): first the default namespace,
    /// with the empty alias, if there is one.
    template <class Declare>
    void ForEachRootDeclaration(Declare declare) const {
        if (!m_defaultNamespace.empty() && m_defaultNamespace != kXmlNamespace) {
            declare(wstring(), m_defaultNamespace);
        }
        for (auto const& [namespaceUri, alias] : m_namespaces) {
            if (!alias.empty() && namespaceUri != kXmlNamespace) declare(alias, namespaceUri);
        }
    }
};

}  // namespace BxXmlLib5
