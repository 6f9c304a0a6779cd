#include "TextEmitter.h"

#include <algorithm>

#include "platform/StandardNamespaces.h"
#include "platform/UnitScan.h"
#include "platform/Utf.h"
#include "platform/Utf16Octets.h"
#include "platform/XmlCharacters.h"

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

[[noreturn]] void ThrowUnwritable() {
    throw UnwritableText("a name or a text has characters that XML text cannot have");
}

/// XML 1.0, production [17].
bool IsReservedTarget(std::u16string_view target) {
    return std::ranges::equal(target, std::u16string_view(u"xml"), {},
                              [](char16_t c) { return c >= u'A' && c <= u'Z' ? c | 0x20 : c; });
}

bool IsLineEnd(char octet) {
    return octet == '\r' || octet == '\n';
}

}  // namespace

TextEmitter::TextEmitter(Sink& sink, Options const& options)
    : Emitter(sink), m_options(options), m_lineEnd(LineEnd(options.m_eol)) {
    if (options.m_encoding == enc_UTF8) m_text.ConvertAsItGrows();
}

void TextEmitter::Begin(bool isFastInfoset) {
    m_isFastInfoset = isFastInfoset;
    if (m_options.m_encoding == enc_UTF16) m_sink.Write(kByteOrderMark);
    if (!m_options.m_declaration) return;
    Append(u"<?xml version=\"1.0\" encoding=\"");
    Append(m_options.m_encoding == enc_UTF16 ? u"UTF-16" : u"UTF-8");
    Append(u"\"?>");
    Append(m_lineEnd);
}

void TextEmitter::Finish() {
    if (m_options.m_layout != Layout::kCompact && !IsLineEnd(m_lastOctet)) Append(m_lineEnd);
    if (m_options.m_encoding == enc_UTF8) return m_sink.Write(m_text.TakeUtf8().GetOctets());
    WriteAsUtf16();
}

void TextEmitter::StartElement(DocumentElement const& element) {
    CloseTag();
    m_hasRoot = true;
    m_open.push_back(m_names.size());
    if (!element.m_prefix.empty()) m_names.append(element.m_prefix).append(u":");
    m_names += element.m_name.m_localName;
    TestName(element.m_name.m_localName);
    Append(u"<");
    Append(std::u16string_view(m_names).substr(m_open.back()));
    for (auto const& [prefix, ns] : m_declarations) {
        if (!prefix.empty()) TestName(prefix);
        TestCharacters(ns);
        if (ns == kXmlnsNamespace) ThrowUnwritable();
        Append(prefix.empty() ? u" xmlns" : u" xmlns:");
        Append(prefix);
        Append(u"=");
        AppendValue(ns);
    }
    m_declarations.clear();
    AppendAttributes(element);
    m_isTagOpen = true;
    FlushSlice();
}

void TextEmitter::AppendAttributes(DocumentElement const& element) {
    auto literal = element.m_literals.begin();
    for (std::size_t i = 0; i < element.m_attributes.size(); ++i) {
        DocumentAttribute const& attribute = element.m_attributes[i];
        bool const isInDocumentType = m_hasDocumentType && !attribute.m_isSpecified;
        if (isInDocumentType) continue;
        TestName(attribute.m_name->m_localName);
        TestCharacters(attribute.m_value);
        if (m_isFastInfoset && attribute.m_name->m_localName == u"xmlns") ThrowUnwritable();
        Append(u" ");
        AppendName(attribute.m_prefix, attribute.m_name->m_localName);
        Append(u"=");
        if (literal != element.m_literals.end() && literal->m_attribute == i) {
            Append(literal++->m_text);
        } else {
            AppendValue(attribute.m_value);
        }
    }
}

void TextEmitter::AppendValue(std::u16string_view value) {
    Append(u"\"");
    m_text.AppendExactValue(value);
    Append(u"\"");
}

void TextEmitter::AddText(std::u16string_view text) {
    if (text.empty()) return;
    CloseTag();
    TestCharacters(text);
    if (text == u"\n") {  // Expat gives each end of a line by itself
        Append(m_lineEnd);
    } else {
        m_text.AppendExactContent(text, m_options.m_eol);
    }
    FlushSlice();
}

void TextEmitter::EndElement() {
    if (m_isTagOpen) {
        Append(u"/>");
        m_isTagOpen = false;
    } else {
        Append(u"</");
        Append(std::u16string_view(m_names).substr(m_open.back()));
        Append(u">");
    }
    m_names.resize(m_open.back());
    m_open.pop_back();
}

void TextEmitter::AddComment(std::u16string_view text) {
    if (m_isFastInfoset) {
        TestCharacters(text);
        if (text.find(u"--") != text.npos || text.ends_with(u'-') || text.find(u'\r') != text.npos)
            ThrowUnwritable();
    }
    StartOutside();
    Append(u"<!--");
    AppendLines(text);
    Append(u"-->");
    EndOutside();
}

void TextEmitter::AddInstruction(std::u16string_view target, std::u16string_view content) {
    if (m_isFastInfoset) {
        TestName(target);
        TestCharacters(content);
        if (IsReservedTarget(target) || content.find(u"?>") != content.npos ||
            content.find(u'\r') != content.npos)
            ThrowUnwritable();
    }
    StartOutside();
    Append(u"<?");
    Append(target);
    if (!content.empty()) Append(u" ");
    AppendLines(content);
    Append(u"?>");
    EndOutside();
}

void TextEmitter::AddDocumentType(std::u16string_view text) {
    m_hasDocumentType = true;
    StartOutside();
    AppendLines(text);
    EndOutside();
}

void TextEmitter::AddEntityReference(std::u16string_view name) {
    if (!m_hasDocumentType) {
        ++m_losses.m_references;
        return;
    }
    CloseTag();
    Append(u"&");
    Append(name);
    Append(u";");
}

/// All but the line ends stays. The white space ahead is that behind the declaration, which is written anew.
void TextEmitter::AddOctets(std::span<unsigned char const> octets) {
    FlushSlice();  // since all that is there is checked now
    std::string_view text(reinterpret_cast<char const*>(octets.data()), octets.size());
    if (m_lastOctet == '\0') text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    while (!text.empty()) {
        bool const isPairOfEnds = m_lastOctet == '\r' && text[0] == '\n';
        std::size_t const end = isPairOfEnds ? 0 : FindLineEnd(text);
        m_text.AppendOctets(text.substr(0, end));
        m_lastOctet = end == text.size() ? text.back() : text[end];
        if (end == text.size()) return;
        if (!isPairOfEnds) Append(m_lineEnd);
        text.remove_prefix(end + 1);
    }
}

/// One that may not be as it is to be, or the end.
std::size_t TextEmitter::FindLineEnd(std::string_view text) const {
    if (m_options.m_eol == eol_LF) return std::min(text.find('\r'), text.size());
    return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), IsLineEnd) - text.begin());
}

void TextEmitter::StartOutside() {
    CloseTag();
    if (m_open.empty() && m_hasRoot) Append(m_lineEnd);
}

void TextEmitter::EndOutside() {
    if (m_open.empty() && !m_hasRoot) Append(m_lineEnd);
    FlushSlice();
}

void TextEmitter::CloseTag() {
    if (m_isTagOpen) Append(u">");
    m_isTagOpen = false;
}

void TextEmitter::AppendLines(std::u16string_view text) {
    for (;;) {
        std::size_t const end = text.find(u'\n');
        Append(text.substr(0, end));
        if (end == text.npos) return;
        Append(m_lineEnd);
        text.remove_prefix(end + 1);
    }
}

void TextEmitter::AppendName(std::u16string_view prefix, std::u16string_view localName) {
    Append(prefix);
    if (!prefix.empty()) Append(u":");
    Append(localName);
}

void TextEmitter::TestEachCharacter(std::u16string_view text) const {
    if (text.starts_with(u'\n')) text.remove_prefix(1);  // as indentation does
    auto const unusual = [](std::uint64_t units) {
        return UnitsBelow(units, 0x20) | UnitsFrom(units, 0xD800);
    };
    if (!HasUnit(text, unusual)) return;
    for (std::size_t at = 0; at < text.size();) {
        if (!IsXmlCharacter(Utf::Next(text, at))) ThrowUnwritable();
    }
}

void TextEmitter::TestEachCharacterOfName(std::u16string_view name) const {
    if (name.empty()) ThrowUnwritable();
    for (std::size_t at = 0; at < name.size();) {
        bool const isFirst = at == 0;
        char32_t const c = Utf::Next(name, at);
        if (c == u':' || !(isFirst ? IsNameStart(c) : IsNameCharacter(c))) ThrowUnwritable();
    }
}

void TextEmitter::Flush() {
    if (m_options.m_encoding == enc_UTF16) return WriteAsUtf16();
    m_sink.Write(m_text.Octets());
    m_text.DropOctets();
}

void TextEmitter::WriteAsUtf16() {
    std::vector<unsigned char> octets;
    m_text.ForEachChunk([&](std::u16string_view chunk) {
        octets.resize(chunk.size() * sizeof(char16_t));
        WriteUtf16(chunk, octets.data());
        m_sink.Write(octets);
    });
    m_text.Clear();
}

}  // namespace BxConvert
