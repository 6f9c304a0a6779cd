#include "writers/CElementWriter.h"

namespace BxXmlLib5 {

CElementWriter::Element& CElementWriter::Start(wstring const& name, wstring const& namespaceUri) {
    bool const isRoot = !m_context->IsOpen();
    Element& element = m_context->Start(name, namespaceUri);
    if (!isRoot) return element;
    Scopes().SetDefaultNamespace(m_defaultNamespace);
    for (auto const& [uri, alias] : m_namespaces) Scopes().AddNamespace(alias, uri, true);
    return element;
}

void CElementWriter::WriteXsiType(wstring const& namespaceUri, wstring const& typeName) {
    // Never destroyed, so that a destructor of static storage may write.
    static wstring const& s_name = *new wstring(u"type");
    static wstring const& s_xsiNamespace = *new wstring(kXsiNamespace);
    m_context->OpenForAttributes();
    if (Scopes().IsDefault(namespaceUri)) return WriteAttribute(s_name, s_xsiNamespace, typeName);
    WriteAttribute(s_name, s_xsiNamespace, DeclaredPrefix(namespaceUri) + u':' + typeName);
}

}  // namespace BxXmlLib5
