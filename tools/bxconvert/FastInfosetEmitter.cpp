#include "FastInfosetEmitter.h"

namespace BxConvert {

using namespace BxXmlLib5;

void FastInfosetEmitter::Begin(bool) {
    m_writer.LimitTables();
    m_writer.WriteStartDocument(m_options.m_finfDeclaration);
}

void FastInfosetEmitter::Finish() {
    m_writer.WriteEndDocument();
    m_sink.Write(m_writer.Octets());
}

void FastInfosetEmitter::StartElement(DocumentElement const& element) {
    WriteText();
    m_writer.WriteStartTag(element, m_declarations);
    m_declarations.clear();
    for (AttributeLiteral const& literal : element.m_literals) m_losses.m_references += literal.m_references;
    FlushSlice();
}

void FastInfosetEmitter::AddText(std::u16string_view text) {
    m_text += text;
    if (m_text.size() < kSlice) return;
    // Not between the halves of a pair.
    char16_t const last = m_text.back();
    bool const isHalf = last >= 0xD800 && last <= 0xDBFF;
    if (isHalf) m_text.pop_back();
    WriteText();
    if (isHalf) m_text += last;
}

void FastInfosetEmitter::EndElement() {
    WriteText();
    m_writer.WriteEndElement();
    FlushSlice();
}

void FastInfosetEmitter::WriteText() {
    if (m_text.empty()) return;
    m_writer.WriteText(m_text);
    m_text.clear();
}

void FastInfosetEmitter::FlushSlice() {
    if (m_writer.Octets().size() < kSlice) return;
    m_sink.Write(m_writer.Octets());
    m_writer.DropOctets();
}

}  // namespace BxConvert
