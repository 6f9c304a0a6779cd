// A document that is read piece by piece.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>

#include "BxXmlLib5/core/Enumerations.h"
#include "document/CDocumentReader.h"
#include "document/CInflatingSource.h"
#include "document/COctetSource.h"

namespace BxXmlLib5 {

/// How a document is read piece by piece.
struct DocumentStreamSettings {
    SchemaType m_schemaType = st_Default;
    DocumentDetails m_details{};
    /// Octets of a document that is not compressed, and of one that is, after decompression.
    std::uint64_t m_maxSize = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t m_maxInflatedSize = std::numeric_limits<std::uint64_t>::max();
    /// Of elements and levels.
    CDocumentLimits m_limits{};
};

/// Reads a document of any size in constant memory: as much as the largest tag, comment or string of Fast Infoset
/// takes, the distinct names, and what the tables of Fast Infoset hold. What the source is, it finds out as
/// CXmlDocument does: zlib or gzip data or as it is, Fast Infoset or text. All its limits but that of the size hold.
///
/// Unlike there, compressed data that is damaged is refused, and so is text that breaks off; and Fast Infoset may have
/// other items ahead of its root.
///
///     CMyReceiver receiver;
///     CNameTable names;
///     CFileSource file("large.xml");
///     CDocumentStream stream(file, receiver, names);
///     while (stream.Read()) {
///         // the receiver called stream.Pause(); it can be looked at, and reading goes on
///     }
class CDocumentStream {
public:
    /// Looks at the beginning.
    /// @param source,receiver,names outlive the stream. The names of what is read are in that table, and only added
    ///        to it
    /// @throws CBxException if the source cannot be read
    CDocumentStream(COctetSource& source, CDocumentReceiver& receiver, CNameTable& names,
                    DocumentStreamSettings const& settings = {})
        : CDocumentStream(
              source, [&receiver](bool) -> CDocumentReceiver& { return receiver; }, names, settings) {}
    /// The same where the receiver depends on the form.
    /// @param receiverOf tells it, given whether that is Fast Infoset; called once
    CDocumentStream(COctetSource& source, std::function<CDocumentReceiver&(bool)> const& receiverOf,
                    CNameTable& names, DocumentStreamSettings const& settings = {});
    CDocumentStream(CDocumentStream const&) = delete;
    CDocumentStream& operator=(CDocumentStream const&) = delete;
    ~CDocumentStream();

    bool IsCompressed() const { return m_inflating.has_value(); }
    bool IsFastInfoset() const { return m_isFastInfoset; }

    /// Tells the receiver what comes next, up to the end of the document or until it calls Pause().
    /// @return whether there may be more; false at the end, and then the document was whole
    /// @throws CBxException for a document that is not well-formed, breaks off or breaks a limit, and what the
    ///         source and the receiver throw. The stream is of no use then
    bool Read() { return m_reader->Read(); }

    /// To be called by the receiver while it is told something: Read() returns soon. What belongs to the same piece
    /// of the input may still come first: the rest of a text, the end of an empty element, all that an entity stands
    /// for.
    void Pause() { m_reader->Pause(); }
    /// As CDocumentReader has it.
    bool PauseBehindSlice() { return m_reader->PauseBehindSlice(); }

    /// Of what the receiver is told, or was told last.
    DocumentPlace Place() const { return m_reader->Place(); }

    /// Those of which the receiver was told nothing, so far.
    SkippedEntities const& GetSkippedEntities() const { return m_reader->GetSkippedEntities(); }

private:
    /// Refuses to give more than it may.
    class CLimitedSource : public COctetSource {
    public:
        CLimitedSource(COctetSource& source, std::uint64_t most) : m_source(source), m_most(most) {}
        std::size_t Read(std::span<unsigned char> room) override;

    private:
        COctetSource& m_source;
        std::uint64_t m_most;
        std::uint64_t m_count = 0;
    };

    CTextStore m_texts;
    CPeekedSource m_input;
    std::optional<CInflatingSource> m_inflating;
    CLimitedSource m_limited;
    CPeekedSource m_content;
    bool m_isFastInfoset;
    std::unique_ptr<CDocumentReader> m_reader;
};

}  // namespace BxXmlLib5
