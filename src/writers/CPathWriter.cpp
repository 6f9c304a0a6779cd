#include "writers/CPathWriter.h"

#include <algorithm>

#include "core/FailurePlace.h"
#include "core/NestingDepth.h"

namespace BxXmlLib5 {

CPathWriter::CPathWriter(CXmlWriter* writer) : CXmlWriter(u"CPathWriter"), m_writer(writer), m_levels(1) {}

CPathWriter::~CPathWriter() = default;

wstring CPathWriter::Path(Next next, std::vector<wstring> const& repeated) const {
    wstring path;
    auto const addStep = [&](std::u16string_view name, std::size_t position) {
        bool const isNumbered =
            position > 1 || std::find(repeated.begin(), repeated.end(), name) != repeated.end();
        AddPathStep(path, name, isNumbered ? position : 0);
    };
    for (auto level = m_levels.begin() + 1; level != m_levels.end(); ++level)
        addStep(level->m_name, level->m_position);
    if (!m_attribute.empty()) {
        AddPathAttribute(path, m_attribute);
    } else if (next.m_isAttribute) {
        AddPathAttribute(path, next.m_name);
    } else if (!next.m_name.empty()) {
        auto const known = m_levels.back().m_children.find(next.m_name);
        addStep(next.m_name, known == m_levels.back().m_children.end() ? 1 : known->second + 1);
    }
    return path;
}

void CPathWriter::WriteEndDocument() {
    if (m_writer != nullptr) m_writer->WriteEndDocument();
}

void CPathWriter::SetDefaultNamespace(wstring const& namespaceUri) {
    if (m_writer != nullptr) m_writer->SetDefaultNamespace(namespaceUri);
}

void CPathWriter::AddNamespace(wstring const& alias, wstring const& namespaceUri) {
    if (m_writer != nullptr) m_writer->AddNamespace(alias, namespaceUri);
}

void CPathWriter::WriteComment(wstring const& text) {
    if (m_writer != nullptr) m_writer->WriteComment(text);
}

void CPathWriter::WriteProcessingInstruction(wstring const& text) {
    if (m_writer != nullptr) m_writer->WriteProcessingInstruction(text);
}

void CPathWriter::WriteInLineSchema(wstring const& text) {
    if (m_writer != nullptr) m_writer->WriteInLineSchema(text);
}

void CPathWriter::WriteStartElement(wstring const& name, wstring const& namespaceUri) {
    std::size_t const position = ++m_levels.back().m_children[name];
    m_levels.push_back({name, position, {}});
    if (m_levels.size() > kMaxElementDepth + 1) ThrowNestedTooDeeply();
    if (m_writer != nullptr) m_writer->WriteStartElement(name, namespaceUri);
}

void CPathWriter::WriteText(wstring const& text) {
    if (m_writer != nullptr) m_writer->WriteText(text);
}

void CPathWriter::WriteEndElement() {
    if (m_writer != nullptr) m_writer->WriteEndElement();
    if (m_levels.size() > 1) m_levels.pop_back();
}

void CPathWriter::WriteAttribute(wstring const& name, wstring const& namespaceUri, wstring const& value) {
    m_attribute = name;
    if (m_writer != nullptr) m_writer->WriteAttribute(name, namespaceUri, value);
    m_attribute.clear();
}

void CPathWriter::WriteXsiType(wstring const& namespaceUri, wstring const& typeName) {
    m_attribute = u"type";
    if (m_writer != nullptr) m_writer->WriteXsiType(namespaceUri, typeName);
    m_attribute.clear();
}

}  // namespace BxXmlLib5
