// The writer of XML text.
#pragma once

#include <span>
#include <string_view>

#include "BxXmlLib5/core/Enumerations.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "writers/CElementWriter.h"
#include "writers/CStringBuffer.h"

namespace BxXmlLib5 {

/// Writes XML 1.0 text. Formatting breaks lines and indents by one tab for each level; it adds nothing after
/// text. Names, namespaces and aliases are written as they are; text, attribute values and comments are
/// escaped alike. A comment or an instruction closes a start tag that is open.
class CXmlTextWriter : public CElementWriter {
public:
    CXmlTextWriter();
    ~CXmlTextWriter() override;

    void SetFormatting(bool formatting) { m_formatting = formatting; }

    /// @throws CBxException for a type that is not one of the two; nothing changes
    void SetEOLType(EOLType eolType);

    /// Keeps what a parser would not give back otherwise: line ends and tabs of attribute values and CR in text
    /// become character references, and comments stay as they are.
    void WriteExactly() { m_isExact = true; }

    /// Begins anew, with an XML declaration.
    void WriteStartDocument(XmlEncoding encoding);

    /// The text so far.
    wstring GetString() { return m_buffer.ToString(); }

    /// The text so far, which is gone from the writer.
    wstring TakeString() { return m_buffer.TakeString(); }

    /// To be called first where the text is wanted as UTF-8 alone: TakeBinaryData(enc_UTF8) gives it then and
    /// nothing else, and what is written may throw as that does.
    void ConvertAsItGrows() { m_buffer.ConvertAsItGrows(); }

    /// What was converted since the last DropOctets(): for a document that is written piece by piece.
    std::span<unsigned char const> Octets() const { return m_buffer.Octets(); }
    void DropOctets() { m_buffer.DropOctets(); }

    /// The text so far, as octets, which is gone from the writer. What the declaration says plays no part.
    /// @param encoding enc_UTF8, or one of the two UTF-16, whose octets come low first and without a byte
    ///        order mark
    /// @throws CBxException for any other encoding
    /// @throws CBxInvalidValueException if the text has no UTF-8 form
    CBinaryData TakeBinaryData(XmlEncoding encoding);

    void WriteComment(wstring const& text) override;
    void WriteProcessingInstruction(wstring const& text) override;
    void WriteInLineSchema(wstring const& text) override;
    void WriteStartElement(wstring const& name, wstring const& namespaceUri) override;
    void WriteText(wstring const& text) override;
    void WriteEndElement() override;
    void WriteAttribute(wstring const& name, wstring const& namespaceUri, wstring const& value) override;

private:
    wstring DeclaredPrefix(wstring const& namespaceUri) override;
    void CloseStartTag();
    void BreakLine();
    void AppendIndentation();
    void AppendDeclaration(std::u16string_view prefix, std::u16string_view namespaceUri);

    CStringBuffer m_buffer;
    std::u16string_view m_eol = u"\n";
    EOLType m_eolType = eol_LF;
    bool m_formatting = true;
    bool m_isExact = false;
    XmlEncoding m_encoding = enc_Unspecified;
};

}  // namespace BxXmlLib5
