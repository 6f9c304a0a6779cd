#include "writers/CElementWriter.h"

#include "core/NeverDestroyed.h"

namespace BxXmlLib5 {

CElementWriter::Element& CElementWriter::Start() {
    Element& element = m_context->Start();
    if (!m_context->IsRoot()) return element;
    Scopes().SetDefaultNamespace(m_defaultNamespace);
    for (auto const& [uri, alias] : m_namespaces) Scopes().AddNamespace(alias, uri, true);
    return element;
}

void CElementWriter::WriteXsiType(wstring const& namespaceUri, wstring const& typeName) {
    static NeverDestroyed<wstring> const s_name(u"type"), s_xsiNamespace(kXsiNamespace);
    m_context->OpenForAttributes();
    if (Scopes().IsDefault(namespaceUri)) return WriteAttribute(*s_name, *s_xsiNamespace, typeName);
    WriteAttribute(*s_name, *s_xsiNamespace, DeclaredPrefix(namespaceUri) + u':' + typeName);
}

}  // namespace BxXmlLib5
