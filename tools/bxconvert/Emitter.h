// What writes the document that bxconvert is told.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

#include "Prefixes.h"
#include "Sink.h"

namespace BxConvert {

/// What a form cannot hold, by how many there were.
struct Losses {
    std::size_t m_comments = 0;
    std::size_t m_instructions = 0;
    std::size_t m_documentTypes = 0;
    std::size_t m_references = 0;

    /// On one line; empty if nothing was lost.
    std::string ToText() const;
};

/// Writes a document in one form, piece by piece.
class Emitter : public BxXmlLib5::CDocumentReceiver {
public:
    explicit Emitter(Sink& sink) : m_sink(sink) {}

    /// To be called first.
    /// @param isFastInfoset whether the document comes from Fast Infoset, where names and text may have what XML text
    ///        cannot have
    virtual void Begin(bool isFastInfoset) = 0;
    /// To be called at the end.
    virtual void Finish() = 0;

    Losses const& Lost() const { return m_losses; }

    void DeclareNamespace(BxXmlLib5::wstring const& prefix, BxXmlLib5::wstring const& namespaceUri) override {
        m_prefixes.Declare(prefix, namespaceUri);
    }

    void LoseEntityReference() override { ++m_losses.m_references; }

protected:
    static constexpr std::size_t kSlice = 64 * 1024;

    Sink& m_sink;
    Losses m_losses;
    Prefixes m_prefixes;
};

}  // namespace BxConvert
