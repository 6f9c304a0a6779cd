#include "writers/CXmlWriterContext.h"

#include "platform/StandardNamespaces.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

namespace {

wstring const kNoPrefix;
wstring const kXmlPrefix = u"xml";

}  // namespace

CXmlWriter::CXmlWriterContext::CXmlWriterContext() : CInstanceMonitor(u"CXmlWriterContext") {}
CXmlWriter::CXmlWriterContext::~CXmlWriterContext() = default;

void CXmlWriter::CXmlWriterContext::Init(wstring const& name, wstring const& namespaceUri) {
    m_childCount = 0;
    m_startTagOpen = true;
    m_namespace = namespaceUri;
    m_name = name;
    m_hasAttributes = false;
    m_prefixSource.reset();
    m_elementPrefix = nullptr;
}

void CXmlWriter::CXmlWriterContext::InitRoot(wstring const& name, wstring const& namespaceUri,
                                             wstring const& defaultNamespace,
                                             std::map<wstring, wstring> const& namespaces) {
    Init(name, namespaceUri);
    m_depth = 0;
    m_enclosing = nullptr;
    m_scope = this;
    m_defaultNamespace = defaultNamespace;
    m_namespaces = namespaces;
}

void CXmlWriter::CXmlWriterContext::InitChild(wstring const& name, wstring const& namespaceUri,
                                              CXmlWriterContext const& parent) {
    Init(name, namespaceUri);
    m_depth = parent.m_depth + 1;
    m_enclosing = &parent;
    m_scope = parent.m_scope;
}

void CXmlWriter::CXmlWriterContext::TakeScope() {
    if (m_scope == this) return;
    m_namespaces = m_scope->m_namespaces;
    m_defaultNamespace = m_scope->m_defaultNamespace;
    m_scope = this;
}

void CXmlWriter::CXmlWriterContext::SetDefaultNamespace(wstring const& namespaceUri) {
    TakeScope();
    m_defaultNamespace = namespaceUri;
    SettleElementPrefix();
}

void CXmlWriter::CXmlWriterContext::AddNamespace(wstring const& alias, wstring const& namespaceUri) {
    TakeScope();
    m_namespaces[namespaceUri] = alias;
    m_prefixSource.reset();
    SettleElementPrefix();
}

wstring const* CXmlWriter::CXmlWriterContext::FindPrefix(wstring const& namespaceUri) const {
    if (Equal(namespaceUri, kXmlNamespace)) return &kXmlPrefix;
    auto const known = Namespaces().find(namespaceUri);
    bool const found = known != Namespaces().end() && !known->second.empty();  // an empty alias is none
    return found ? &known->second : nullptr;
}

CXmlWriter::CXmlWriterContext::Prefix CXmlWriter::CXmlWriterContext::TakePrefix(wstring const& namespaceUri) {
    if (wstring const* const known = FindPrefix(namespaceUri)) return {*known, false};
    TakeScope();
    if (!m_prefixSource) m_prefixSource.emplace(m_namespaces);
    return {m_namespaces[namespaceUri] = m_prefixSource->Next(), true};
}

bool CXmlWriter::CXmlWriterContext::IsDefault(wstring const& namespaceUri) const {
    return namespaceUri.empty() ||
           (Equal(namespaceUri, DefaultNamespace()) && !Equal(namespaceUri, kXmlNamespace));
}

bool CXmlWriter::CXmlWriterContext::TakeElementPrefix() {
    // Most elements are in the namespace of their parent.
    if (m_enclosing != nullptr && Equal(m_namespace, m_enclosing->m_namespace)) {
        m_elementPrefix = m_enclosing->m_elementPrefix;
        if (m_elementPrefix != nullptr) return false;
    }
    if (IsDefault(m_namespace)) {
        m_elementPrefix = &kNoPrefix;
        return false;
    }
    Prefix const prefix = TakePrefix(m_namespace);
    m_elementPrefix = &prefix.m_alias;
    return prefix.m_isNew;
}

void CXmlWriter::CXmlWriterContext::SettleElementPrefix() {
    m_elementPrefix = IsDefault(m_namespace) ? &kNoPrefix : FindPrefix(m_namespace);
}

wstring const& CXmlWriter::CXmlWriterContext::ElementPrefix() const {
    return m_elementPrefix == nullptr ? kNoPrefix : *m_elementPrefix;
}

}  // namespace BxXmlLib5
