#include "BxXmlLib5/writers/CXmlWriter.h"

#include <algorithm>

#include "BxXmlLib5/core/CBxException.h"
#include "writers/CXmlWriterContext.h"
#include "writers/GeneratedPrefixes.h"

namespace BxXmlLib5 {

CXmlWriter::CXmlWriter(char16_t const* className)
    : CInstanceMonitor(className), m_context(std::make_unique<CXmlWriterContext>()) {}

CXmlWriter::CXmlWriter(CXmlWriter const& other)
    : CInstanceMonitor(other),
      m_defaultNamespace(other.m_defaultNamespace),
      m_context(std::make_unique<CXmlWriterContext>()),
      m_namespaces(other.m_namespaces) {}

CXmlWriter& CXmlWriter::operator=(CXmlWriter const& other) {
    if (this == &other) return *this;
    m_defaultNamespace = other.m_defaultNamespace;
    m_context = std::make_unique<CXmlWriterContext>();
    m_namespaces = other.m_namespaces;
    return *this;
}

CXmlWriter::~CXmlWriter() = default;

void CXmlWriter::SetDefaultNamespace(wstring const& namespaceUri) {
    if (m_context->IsOpen()) {
        m_context->m_scopes.SetDefaultNamespace(namespaceUri);
    } else {
        m_defaultNamespace = namespaceUri;
    }
}

void CXmlWriter::AddNamespace(wstring const& alias, wstring const& namespaceUri) {
    if (m_context->IsOpen()) {
        m_context->m_scopes.AddNamespace(alias, namespaceUri, false);
    } else {
        m_namespaces[namespaceUri] = alias;
    }
}

void CXmlWriter::WriteEndDocument() {
    if (m_context->IsOpen()) throw CBxException(u"An Element has not been closed.");
}

wstring CXmlWriter::GetUniquePrefix(std::map<wstring, wstring> const& aliases) {
    CPrefixesInUse prefixes;
    for (auto const& [namespaceUri, alias] : aliases) prefixes.Hold(alias);
    return prefixes.FirstFree();
}

wstring CXmlWriter::NsIntToString(int index) {
    return GeneratedPrefix(static_cast<std::size_t>(std::max(index, 0)));
}

}  // namespace BxXmlLib5
