#include "BxXmlLib5/writers/CXmlWriter.h"

#include <algorithm>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "core/Limits.h"
#include "core/NestingDepth.h"
#include "writers/CXmlWriterContext.h"
#include "writers/GeneratedPrefixes.h"

namespace BxXmlLib5 {

CXmlWriter::CXmlWriter(char16_t const* className) : CInstanceMonitor(className) {}

CXmlWriter::CXmlWriter(CXmlWriter const& other)
    : CInstanceMonitor(other),
      m_defaultNamespace(other.m_defaultNamespace),
      m_namespaces(other.m_namespaces) {}

CXmlWriter& CXmlWriter::operator=(CXmlWriter const& other) {
    if (this == &other) return *this;
    m_defaultNamespace = other.m_defaultNamespace;
    m_namespaces = other.m_namespaces;
    m_context.reset();
    return *this;
}

CXmlWriter::~CXmlWriter() = default;

void CXmlWriter::SetDefaultNamespace(wstring const& namespaceUri) {
    if (m_context) {
        m_context->SetDefaultNamespace(namespaceUri);
    } else {
        m_defaultNamespace = namespaceUri;
    }
}

void CXmlWriter::AddNamespace(wstring const& alias, wstring const& namespaceUri) {
    if (m_context) {
        m_context->AddNamespace(alias, namespaceUri);
    } else {
        m_namespaces[namespaceUri] = alias;
    }
}

void CXmlWriter::WriteEndDocument() {
    if (m_context) throw CBxException(u"An Element has not been closed.");
}

wstring CXmlWriter::GetUniquePrefix(std::map<wstring, wstring> const& aliases) {
    return CPrefixSource(aliases).Next();
}

wstring CXmlWriter::NsIntToString(int index) {
    return GeneratedPrefix(static_cast<std::size_t>(std::max(index, 0)));
}

CXmlWriter::CXmlWriterContext& CXmlWriter::InnermostElement() const {
    if (!m_context) throw CBxInvalidStateException(u"No element is open");
    return *m_context;
}

CXmlWriter::CXmlWriterContext& CXmlWriter::ElementOpenForAttributes() const {
    CXmlWriterContext& element = InnermostElement();
    if (!element.m_startTagOpen) throw CBxException(u"Attributes must be added before elements");
    return element;
}

std::unique_ptr<CXmlWriter::CXmlWriterContext> CXmlWriter::NewRecord(wstring const& name,
                                                                     wstring const& namespaceUri) {
    if (m_context && m_context->m_depth + 1 >= kMaxElementDepth) ThrowNestedTooDeeply();
    std::unique_ptr<CXmlWriterContext> record = std::move(m_spare);
    if (record) {
        m_spare = std::move(record->m_parent);
    } else {
        record = std::make_unique<CXmlWriterContext>();
    }
    if (m_context) {
        record->InitChild(name, namespaceUri, *m_context);
    } else {
        record->InitRoot(name, namespaceUri, m_defaultNamespace, m_namespaces);
    }
    return record;
}

void CXmlWriter::Push(std::unique_ptr<CXmlWriterContext> record) {
    record->m_parent = std::move(m_context);
    m_context = std::move(record);
}

void CXmlWriter::Pop() {
    std::unique_ptr<CXmlWriterContext> parent = std::move(m_context->m_parent);
    m_context->m_parent = std::move(m_spare);
    m_spare = std::move(m_context);
    m_context = std::move(parent);
}

}  // namespace BxXmlLib5
