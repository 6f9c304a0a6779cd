#include "writers/CXmlTextWriter.h"

#include "BxXmlLib5/core/CBxException.h"
#include "platform/Utf16Octets.h"

namespace BxXmlLib5 {

namespace {

CBinaryData ToUtf16Octets(std::u16string_view text) {
    std::size_t const size = text.size() * sizeof(char16_t);
    auto octets = std::make_unique_for_overwrite<unsigned char[]>(size);
    WriteUtf16(text, octets.get());
    return {std::move(octets), size};
}

}  // namespace

CXmlTextWriter::CXmlTextWriter() : CElementWriter(u"CXmlTextWriter") {}
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

CBinaryData CXmlTextWriter::TakeBinaryData(XmlEncoding encoding) {
    switch (encoding) {
        case enc_UTF8:
            return m_buffer.TakeUtf8();
        case enc_UTF16:
        case enc_UTF16NoDeclaration:
            return ToUtf16Octets(m_buffer.TakeString());
        default:
            throw CBxException(u"Unknown Encoding, select UTF-8 or ask the vendor's support");
    }
}

void CXmlTextWriter::WriteComment(wstring const& text) {
    CloseStartTag();
    m_buffer.Append(u"<!--");
    if (m_isExact) {
        m_buffer.Append(text);
    } else {
        m_buffer.AppendEscaped(text, m_eolType);
    }
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
    Context().TestDepth();
    CloseStartTag();
    Start();
    AppendIndentation();
    m_buffer.Append(u'<');
    if (Scopes().IsDefault(namespaceUri)) {
        Context().SetTagName({}, name);
        m_buffer.Append(name);
    } else {
        auto const prefix = Scopes().TakePrefix(namespaceUri);
        Context().SetTagName(prefix.m_alias, name);
        m_buffer.Append(Context().TagName());
        if (prefix.m_isNew) AppendDeclaration(prefix.m_alias, namespaceUri);
    }
    if (Context().IsRoot()) {
        ForEachRootDeclaration([this](auto const& alias, auto const& uri) { AppendDeclaration(alias, uri); });
    }
}

void CXmlTextWriter::WriteAttribute(wstring const& name, wstring const& namespaceUri, wstring const& value) {
    Context().OpenForAttributes();
    if (namespaceUri.empty()) {
        m_buffer.Append(u' ');
        m_buffer.Append(name);
    } else {
        auto const prefix = Scopes().TakePrefix(namespaceUri);
        if (prefix.m_isNew) AppendDeclaration(prefix.m_alias, namespaceUri);
        m_buffer.Append(u' ');
        m_buffer.Append(prefix.m_alias);
        m_buffer.Append(u':');
        m_buffer.Append(name);
    }
    m_buffer.Append(u"=\"");
    if (m_isExact) {
        m_buffer.AppendExactValue(value);
    } else {
        m_buffer.AppendEscaped(value, m_eolType);
    }
    m_buffer.Append(u'"');
}

wstring CXmlTextWriter::DeclaredPrefix(wstring const& namespaceUri) {
    auto const prefix = Scopes().TakePrefix(namespaceUri);
    if (prefix.m_isNew) {
        AppendDeclaration(prefix.m_alias, namespaceUri);
        m_buffer.Append(u' ');
    }
    return prefix.m_alias;
}

void CXmlTextWriter::WriteText(wstring const& text) {
    if (text.empty()) return;
    Element& element = Context().Innermost();
    if (element.m_startTagOpen) {
        element.m_startTagOpen = false;
        m_buffer.Append(u'>');
    }
    if (m_isExact) {
        m_buffer.AppendExactContent(text, m_eolType);
    } else {
        m_buffer.AppendEscaped(text, m_eolType);
    }
}

void CXmlTextWriter::WriteEndElement() {
    Element const& element = Context().Innermost();
    if (element.m_startTagOpen) {
        m_buffer.Append(u"/>");
    } else {
        if (element.m_childCount > 0) AppendIndentation();
        m_buffer.Append(u"</");
        m_buffer.Append(Context().TagName());
        m_buffer.Append(u'>');
    }
    BreakLine();
    Context().End();
}

/// Closes the start tag of the innermost open element, if there is one, for what is to stand on lines of its
/// own.
void CXmlTextWriter::CloseStartTag() {
    if (!Context().IsOpen() || !Context().Innermost().m_startTagOpen) return;
    Context().Innermost().m_startTagOpen = false;
    m_buffer.Append(u'>');
    BreakLine();
}

void CXmlTextWriter::BreakLine() {
    if (m_formatting) m_buffer.Append(m_eol);
}

/// For a tag of the innermost open element.
void CXmlTextWriter::AppendIndentation() {
    if (m_formatting) m_buffer.Append(Context().Depth() - 1, u'\t');
}

/// @param prefix empty for the default namespace
void CXmlTextWriter::AppendDeclaration(std::u16string_view prefix, std::u16string_view namespaceUri) {
    m_buffer.Append(prefix.empty() ? u" xmlns" : u" xmlns:");
    m_buffer.Append(prefix);
    m_buffer.Append(u"=\"");
    m_buffer.Append(namespaceUri);
    m_buffer.Append(u'"');
}

}  // namespace BxXmlLib5
