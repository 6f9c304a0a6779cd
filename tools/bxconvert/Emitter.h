// What writes the document that bxconvert is told.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Sink.h"
#include "document/CDocumentReceiver.h"

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

/// Writes a document in one form, piece by piece. Names have the prefixes that they need, which are declared.
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
        m_declarations.push_back({prefix, namespaceUri});
    }

    void LoseEntityReference() override { ++m_losses.m_references; }
    void LoseDocumentType() override { ++m_losses.m_documentTypes; }

protected:
    static constexpr std::size_t kSlice = 64 * 1024;

    struct Declaration {
        std::u16string_view m_prefix;  // empty for the default namespace
        std::u16string_view m_namespace;
    };

    Sink& m_sink;
    Losses m_losses;
    std::vector<Declaration> m_declarations;  // of the element that comes next
};

}  // namespace BxConvert
