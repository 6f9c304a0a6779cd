// XML text as bxconvert writes it.
#pragma once

#include "Emitter.h"
#include "Options.h"
#include "writers/CStringBuffer.h"

namespace BxConvert {

/// What XML text cannot have, which only Fast Infoset can bring.
class UnwritableText : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Writes what it is told as XML text. Throws UnwritableText.
class TextEmitter : public Emitter {
public:
    TextEmitter(Sink& sink, Options const& options);

    void Begin(bool isFastInfoset) override;
    void Finish() override;

    void StartElement(BxXmlLib5::DocumentElement const& element) override;
    void AddText(std::u16string_view text) override;
    void EndElement() override;
    void AddComment(std::u16string_view text) override;
    void AddInstruction(std::u16string_view target, std::u16string_view content) override;
    void AddDocumentType(std::u16string_view text) override;
    void AddEntityReference(std::u16string_view name) override;
    void AddOctets(std::span<unsigned char const> octets) override;

private:
    void CloseTag();
    void Append(std::u16string_view text) { m_text.Append(text); }
    void AppendLines(std::u16string_view text);
    std::size_t FindLineEnd(std::string_view text) const;
    void AppendName(std::u16string_view prefix, std::u16string_view localName);
    void AppendAttributes(BxXmlLib5::DocumentElement const& element);
    void AppendValue(std::u16string_view value);
    /// What stands around markup outside of the root.
    void StartOutside();
    void EndOutside();
    /// What Expat lets pass needs no test.
    void TestCharacters(std::u16string_view text) const {
        if (m_isFastInfoset) TestEachCharacter(text);
    }
    void TestName(std::u16string_view name) const {
        if (m_isFastInfoset) TestEachCharacterOfName(name);
    }
    void TestEachCharacter(std::u16string_view text) const;
    void TestEachCharacterOfName(std::u16string_view name) const;
    void FlushSlice() {
        bool const isSlice =
            m_text.ChunkCount() > 1 || m_text.Octets().size() >= kSlice;  // of UTF-16, or of UTF-8
        if (isSlice) Flush();
    }
    void Flush();
    void WriteAsUtf16();

    Options const& m_options;
    std::u16string_view m_lineEnd;
    BxXmlLib5::CStringBuffer m_text;
    bool m_isFastInfoset = false;
    bool m_hasDocumentType = false;
    bool m_hasRoot = false;
    bool m_isTagOpen = false;
    BxXmlLib5::wstring m_names;       // of the open elements, each behind the other
    std::vector<std::size_t> m_open;  // where each begins
    char m_lastOctet = '\0';          // of those that are told; 0 as long as all are white space
};

}  // namespace BxConvert
