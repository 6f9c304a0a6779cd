#include "writers/CXmlWriterContext.h"

#include "BxXmlLib5/core/CBxException.h"

namespace BxXmlLib5 {

CXmlWriter::CXmlWriterContext::CXmlWriterContext() : CInstanceMonitor(u"CXmlWriterContext") {}
CXmlWriter::CXmlWriterContext::~CXmlWriterContext() = default;

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

void CXmlWriter::CXmlWriterContext::ThrowNoElement() {
    throw CBxInvalidStateException(u"No element is open");
}

void CXmlWriter::CXmlWriterContext::ThrowTagClosed() {
    throw CBxException(u"Attributes must be added before elements");
}

}  // namespace BxXmlLib5
