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
    m_outerScope = nullptr;
    m_namespaces.clear();
    m_recent = nullptr;
    m_hidesAlias = false;
    m_prefixes.reset();
    m_elementPrefix = nullptr;
}

void CXmlWriter::CXmlWriterContext::InitRoot(wstring const& name, wstring const& namespaceUri,
                                             wstring const& defaultNamespace,
                                             std::map<wstring, wstring> const& namespaces) {
    Init(name, namespaceUri);
    m_depth = 0;
    m_scope = this;
    m_defaultNamespace = defaultNamespace;
    m_namespaces = namespaces;
}

void CXmlWriter::CXmlWriterContext::InitChild(wstring const& name, wstring const& namespaceUri,
                                              CXmlWriterContext const& parent) {
    Init(name, namespaceUri);
    m_depth = parent.m_depth + 1;
    m_scope = parent.m_scope;
}

void CXmlWriter::CXmlWriterContext::TakeScope() {
    if (m_scope == this) return;
    m_outerScope = m_scope;
    m_defaultNamespace = m_outerScope->m_defaultNamespace;
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
    m_hidesAlias = true;
    m_prefixes.reset();
    SettleElementPrefix();
}

wstring const* CXmlWriter::CXmlWriterContext::FindPrefix(wstring const& namespaceUri) const {
    if (Equal(namespaceUri, kXmlNamespace)) return &kXmlPrefix;
    for (CXmlWriterContext const* scope = m_scope; scope != nullptr; scope = scope->m_outerScope) {
        auto const*& recent = scope->m_recent;
        if (recent == nullptr || !Equal(recent->first, namespaceUri)) {
            auto const known = scope->m_namespaces.find(namespaceUri);
            if (known == scope->m_namespaces.end()) continue;
            recent = &*known;
        }
        return recent->second.empty() ? nullptr : &recent->second;
    }
    return nullptr;
}

CXmlWriter::CXmlWriterContext::Prefix CXmlWriter::CXmlWriterContext::TakePrefix(wstring const& namespaceUri) {
    if (wstring const* const known = FindPrefix(namespaceUri)) return {*known, false};
    TakeScope();
    return {m_namespaces[namespaceUri] = Prefixes().Next(), true};
}

/// A scope goes on where the one outside it stands: the prefixes used there are used here too.
CPrefixSource& CXmlWriter::CXmlWriterContext::Prefixes() {
    if (!m_prefixes) {
        bool const asOutside = m_outerScope != nullptr && !m_hidesAlias;
        m_prefixes = asOutside ? m_outerScope->Prefixes() : CPrefixSource(AllNamespaces());
    }
    return *m_prefixes;
}

std::map<wstring, wstring> CXmlWriter::CXmlWriterContext::AllNamespaces() const {
    std::map<wstring, wstring> all = m_namespaces;
    for (CXmlWriterContext const* scope = m_outerScope; scope != nullptr; scope = scope->m_outerScope) {
        all.insert(scope->m_namespaces.begin(), scope->m_namespaces.end());  // does not replace
    }
    return all;
}

bool CXmlWriter::CXmlWriterContext::IsDefault(wstring const& namespaceUri) const {
    return namespaceUri.empty() ||
           (Equal(namespaceUri, DefaultNamespace()) && !Equal(namespaceUri, kXmlNamespace));
}

bool CXmlWriter::CXmlWriterContext::TakeElementPrefix(CXmlWriterContext const* parent) {
    // Most elements are in the namespace of their parent.
    if (parent != nullptr && Equal(m_namespace, parent->m_namespace)) {
        m_elementPrefix = parent->m_elementPrefix;
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
