#include "writers/CXmlWriterContext.h"

#include "BxXmlLib5/core/CBxException.h"
#include "core/Limits.h"
#include "core/NestingDepth.h"

namespace BxXmlLib5 {

CXmlWriter::CXmlWriterContext::CXmlWriterContext() : CInstanceMonitor(u"CXmlWriterContext") {}
CXmlWriter::CXmlWriterContext::~CXmlWriterContext() = default;

void CXmlWriter::CXmlWriterContext::TestDepth() const {
    if (m_depth >= kMaxElementDepth) ThrowNestedTooDeeply();
}

CXmlWriter::CXmlWriterContext::Element& CXmlWriter::CXmlWriterContext::Start(wstring const& name,
                                                                             wstring const& namespaceUri) {
    if (m_depth == m_elements.size()) m_elements.emplace_back();
    Element& element = m_elements[m_depth];
    element.m_name = name;
    element.m_namespace = namespaceUri;
    element.m_prefix.clear();
    element.m_childCount = 0;
    element.m_startTagOpen = true;
    element.m_changesOutside = m_scopes.Changes();
    if (m_depth > 0) ++m_elements[m_depth - 1].m_childCount;
    ++m_depth;
    return element;
}

void CXmlWriter::CXmlWriterContext::End() {
    m_scopes.UndoTo(m_elements[--m_depth].m_changesOutside);
}

CXmlWriter::CXmlWriterContext::Element& CXmlWriter::CXmlWriterContext::Innermost() {
    if (m_depth == 0) throw CBxInvalidStateException(u"No element is open");
    return m_elements[m_depth - 1];
}

CXmlWriter::CXmlWriterContext::Element& CXmlWriter::CXmlWriterContext::OpenForAttributes() {
    Element& element = Innermost();
    if (!element.m_startTagOpen) throw CBxException(u"Attributes must be added before elements");
    return element;
}

}  // namespace BxXmlLib5
