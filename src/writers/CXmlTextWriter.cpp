#include "writers/CXmlTextWriter.h"

#include "BxXmlLib5/core/CBxException.h"
#include "platform/StandardNamespaces.h"
#include "platform/TextView.h"
#include "platform/Utf16Octets.h"
#include "values/Utf8Conversion.h"
#include "writers/CXmlWriterContext.h"

namespace BxXmlLib5 {

namespace {

CBinaryData ToUtf8Octets(std::u16string_view text) {
    CBinaryData octets = WideToUtf8(text);
    if (octets.GetLength() == 0) CheckedUtf8Size(text);  // which throws for a text without this form
    return octets;
}

CBinaryData ToUtf16Octets(std::u16string_view text) {
    std::size_t const size = text.size() * sizeof(char16_t);
    auto octets = std::make_unique_for_overwrite<unsigned char[]>(size);
    WriteUtf16(text, octets.get());
    return {std::move(octets), size};
}

}  // namespace

CXmlTextWriter::CXmlTextWriter() : CXmlWriter(u"CXmlTextWriter") {}
CXmlTextWriter::~CXmlTextWriter() = default;

void CXmlTextWriter::SetEOLType(EOLType eolType) {
    m_eol = LineEnd(eolType);
    m_eolType = eolType;
}

void CXmlTextWriter::WriteStartDocument(XmlEncoding encoding) {
    m_encoding = encoding;
    m_buffer.Clear();
    m_buffer.Append(u"<?xml version=\"1.0\"");
    if (encoding == enc_UTF8) m_buffer.Append(u" encoding=\"UTF-8\"");
    if (encoding == enc_UTF16) m_buffer.Append(u" encoding=\"UTF-16\"");
    m_buffer.Append(u"?>");
    m_buffer.Append(m_eol);
}

CBinaryData CXmlTextWriter::GetBinaryData(XmlEncoding encoding) {
    switch (encoding) {
        case enc_UTF8:
            return ToUtf8Octets(m_buffer.View());
        case enc_UTF16:
        case enc_UTF16NoDeclaration:
            return ToUtf16Octets(m_buffer.View());
        default:
            throw CBxException(u"Unknown Encoding, select UTF-8 or ask the vendor's support");
    }
}

void CXmlTextWriter::WriteComment(wstring const& text) {
    CloseStartTag();
    m_buffer.Append(u"<!--");
    m_buffer.AppendEscaped(text, m_eolType);
    m_buffer.Append(u"-->");
    m_buffer.Append(m_eol);
}

void CXmlTextWriter::WriteProcessingInstruction(wstring const& text) {
    CloseStartTag();
    m_buffer.Append(text);
    m_buffer.Append(m_eol);
    m_buffer.Append(m_eol);
}

void CXmlTextWriter::WriteInLineSchema(wstring const& text) {
    m_buffer.Append(u' ');
    m_buffer.Append(m_eol);
    m_buffer.Append(text);
    m_buffer.Append(m_eol);
}

void CXmlTextWriter::WriteStartElement(wstring const& name, wstring const& namespaceUri) {
    auto element = NewRecord(name, namespaceUri);
    bool const isRoot = Current() == nullptr;
    if (!isRoot) {
        CloseStartTag();
        ++Current()->m_childCount;
    }
    AppendIndentation(*element);
    m_buffer.Append(u'<');
    bool const declares = element->TakeElementPrefix(Current());
    AppendElementName(*element);
    if (declares) AppendDeclaration(element->ElementPrefix(), namespaceUri);
    if (isRoot) AppendRootDeclarations();
    Push(std::move(element));
}

void CXmlTextWriter::WriteAttribute(wstring const& name, wstring const& namespaceUri, wstring const& value) {
    CXmlWriterContext& element = ElementOpenForAttributes();
    if (!namespaceUri.empty()) {
        auto const prefix = element.TakePrefix(namespaceUri);
        if (prefix.m_isNew) AppendDeclaration(prefix.m_alias, namespaceUri);
        m_buffer.Append(u' ');
        m_buffer.Append(prefix.m_alias);
        m_buffer.Append(u':');
    } else {
        m_buffer.Append(u' ');
    }
    m_buffer.Append(name);
    m_buffer.Append(u"=\"");
    m_buffer.AppendEscaped(value, m_eolType);
    m_buffer.Append(u'"');
}

void CXmlTextWriter::WriteXsiType(wstring const& namespaceUri, wstring const& typeName) {
    // Never destroyed, so that a destructor of static storage may write.
    static wstring const& s_name = *new wstring(u"type");
    static wstring const& s_xsiNamespace = *new wstring(kXsiNamespace);
    CXmlWriterContext& element = ElementOpenForAttributes();
    if (element.IsDefault(namespaceUri)) return WriteAttribute(s_name, s_xsiNamespace, typeName);
    auto const prefix = element.TakePrefix(namespaceUri);
    if (prefix.m_isNew) {
        AppendDeclaration(prefix.m_alias, namespaceUri);
        m_buffer.Append(u' ');
    }
    WriteAttribute(s_name, s_xsiNamespace, prefix.m_alias + u':' + typeName);
}

void CXmlTextWriter::WriteText(wstring const& text) {
    CXmlWriterContext& element = InnermostElement();
    if (text.empty()) return;
    if (element.m_startTagOpen) {
        element.m_startTagOpen = false;
        m_buffer.Append(u'>');
    }
    m_buffer.AppendEscaped(text, m_eolType);
}

void CXmlTextWriter::WriteEndElement() {
    CXmlWriterContext const& element = InnermostElement();
    if (element.m_startTagOpen) {
        m_buffer.Append(u"/>");
    } else {
        if (element.m_childCount > 0) AppendIndentation(element);
        m_buffer.Append(u"</");
        AppendElementName(element);
        m_buffer.Append(u'>');
    }
    BreakLine();
    Pop();
}

/// Closes the start tag of the innermost open element, if there is one, for what is to stand on lines of its
/// own.
void CXmlTextWriter::CloseStartTag() {
    CXmlWriterContext* const element = Current();
    if (element == nullptr || !element->m_startTagOpen) return;
    element->m_startTagOpen = false;
    m_buffer.Append(u'>');
    BreakLine();
}

void CXmlTextWriter::BreakLine() {
    if (m_formatting) m_buffer.Append(m_eol);
}

void CXmlTextWriter::AppendIndentation(CXmlWriterContext const& element) {
    if (m_formatting) m_buffer.Append(element.m_depth, u'\t');
}

void CXmlTextWriter::AppendElementName(CXmlWriterContext const& element) {
    wstring const& prefix = element.ElementPrefix();
    if (!prefix.empty()) {
        m_buffer.Append(prefix);
        m_buffer.Append(u':');
    }
    m_buffer.Append(element.m_name);
}

void CXmlTextWriter::AppendDeclaration(std::u16string_view prefix, std::u16string_view namespaceUri) {
    m_buffer.Append(u" xmlns:");
    m_buffer.Append(prefix);
    m_buffer.Append(u"=\"");
    m_buffer.Append(namespaceUri);
    m_buffer.Append(u'"');
}

void CXmlTextWriter::AppendRootDeclarations() {
    if (!RootDefaultNamespace().empty() && !Equal(RootDefaultNamespace(), kXmlNamespace)) {
        m_buffer.Append(u" xmlns=\"");
        m_buffer.Append(RootDefaultNamespace());
        m_buffer.Append(u'"');
    }
    for (auto const& [namespaceUri, alias] : RootNamespaces()) {
        if (!alias.empty() && !Equal(namespaceUri, kXmlNamespace)) AppendDeclaration(alias, namespaceUri);
    }
}

}  // namespace BxXmlLib5
