#include "writers/CXmlWriterContext.h"

#include "BxXmlLib5/core/CBxException.h"

namespace BxXmlLib5 {

CXmlWriter::CXmlWriterContext::CXmlWriterContext() : CInstanceMonitor(u"CXmlWriterContext") {}
CXmlWriter::CXmlWriterContext::~CXmlWriterContext() = default;

CXmlWriter::CXmlWriterContext::Element& CXmlWriter::CXmlWriterContext::Start() {
    if (IsOpen()) ++m_elements.back().m_childCount;
    return m_elements.emplace_back(
        Element{.m_changesOutside = m_scopes.Changes(), .m_tagName = m_tagNames.size()});
}

void CXmlWriter::CXmlWriterContext::SetTagName(std::u16string_view prefix, std::u16string_view name) {
    if (!prefix.empty()) m_tagNames.append(prefix) += u':';
    m_tagNames += name;
}

void CXmlWriter::CXmlWriterContext::ThrowNoElement() {
    throw CBxInvalidStateException(u"No element is open");
}

void CXmlWriter::CXmlWriterContext::ThrowTagClosed() {
    throw CBxException(u"Attributes must be added before elements");
}

}  // namespace BxXmlLib5
