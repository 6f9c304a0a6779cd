// Fast Infoset as bxconvert writes it.
#pragma once

#include "Emitter.h"
#include "Options.h"
#include "writers/CFastInfosetWriter.h"

namespace BxConvert {

/// Writes what it is told as Fast Infoset: elements, attributes and text, with each prefix declared where the document
/// declares it. What else a document has not every reader takes, so it is counted and left out.
///
/// Throws std::runtime_error at what would be left out, if that is asked for.
class FastInfosetEmitter : public Emitter {
public:
    FastInfosetEmitter(Sink& sink, Options const& options) : Emitter(sink), m_options(options) {}

    void Begin(bool isFastInfoset) override;
    void Finish() override;

    void StartElement(BxXmlLib5::DocumentElement const& element) override;
    void AddText(std::u16string_view text) override;
    void EndElement() override;
    void AddComment(std::u16string_view) override { ++m_losses.m_comments; }
    void AddInstruction(std::u16string_view, std::u16string_view) override { ++m_losses.m_instructions; }
    void AddDocumentType(std::u16string_view) override { ++m_losses.m_documentTypes; }
    void AddEntityReference(std::u16string_view) override { ++m_losses.m_references; }

private:
    void WriteText();
    void FlushSlice();

    Options const& m_options;
    BxXmlLib5::CFastInfosetWriter m_writer;
    BxXmlLib5::wstring m_text;  // which comes in parts, and is written in one
};

}  // namespace BxConvert
