#include "writers/CPathWriter.h"

#include <algorithm>

#include "core/FailurePlace.h"
#include "core/NestingDepth.h"

namespace BxXmlLib5 {

namespace {

constexpr std::size_t kMostNames = 1'000;  // among the children of one element

}  // namespace

CPathWriter::CPathWriter(CXmlWriter* writer) : CXmlWriter(u"CPathWriter"), m_writer(writer), m_levels(1) {}

CPathWriter::CPathWriter(CXmlWriter* writer, CPathWriter const& around)
    : CXmlWriter(u"CPathWriter"),
      m_writer(writer),
      m_levels(around.m_levels),
      m_lastNumbered(around.m_levels.size()) {}

CPathWriter::~CPathWriter() = default;

std::size_t CPathWriter::Level::Next(std::u16string_view name) const {
    auto const known = m_children.find(name);
    if (known != m_children.end()) return known->second + 1;
    return m_children.size() < kMostNames ? 1 : 0;
}

std::pair<wstring const, std::size_t>* CPathWriter::Level::Child(std::u16string_view name) {
    auto const known = m_children.find(name);
    if (known != m_children.end()) return &*known;
    return m_children.size() < kMostNames ? &*m_children.emplace(name, 0).first : nullptr;
}

wstring CPathWriter::Path(Next next, std::vector<wstring> const& repeated) const {
    wstring path;
    std::size_t number = 0;
    auto const addStep = [&](std::u16string_view name, std::size_t position) {
        ++number;
        bool const isNumbered = position > 1 || (number > 1 && number <= m_lastNumbered) ||
                                std::find(repeated.begin(), repeated.end(), name) != repeated.end();
        AddPathStep(path, name, isNumbered ? position : 0);
    };
    for (auto level = m_levels.begin() + 1; level != m_levels.end(); ++level)
        addStep(level->m_name, level->m_position);
    if (!m_attribute.empty()) {
        AddPathAttribute(path, m_attribute);
    } else if (next.m_isAttribute) {
        AddPathAttribute(path, next.m_name);
    } else if (!next.m_name.empty()) {
        addStep(next.m_name, m_levels.back().Next(next.m_name));
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
    Count(name);
    std::size_t const position = m_last == nullptr ? 0 : m_last->second;
    m_last = nullptr;
    m_levels.push_back({name, position});
    if (m_levels.size() > kMaxElementDepth + 1) ThrowNestedTooDeeply();
    if (m_writer != nullptr) m_writer->WriteStartElement(name, namespaceUri);
}

void CPathWriter::WriteText(wstring const& text) {
    if (m_writer != nullptr) m_writer->WriteText(text);
}

void CPathWriter::WriteEndElement() {
    if (m_writer != nullptr) m_writer->WriteEndElement();
    m_last = nullptr;
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
