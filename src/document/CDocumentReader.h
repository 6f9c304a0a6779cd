// What the parsers have in common.
#pragma once

#include <cstdint>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/document/CDocumentLimits.h"
#include "BxXmlLib5/platform/Text.h"
#include "document/CDocumentReceiver.h"
#include "document/CNameTable.h"
#include "document/CTextStore.h"

namespace BxXmlLib5 {

/// Where a parser puts what it tells of.
struct DocumentMemory {
    CNameTable& m_names;
    CTextStore& m_texts;
    /// Whether values of attributes, and texts told by AddKeptText(), live as long as the store. If not, the parser
    /// may use the store for its own purposes, and empties it. Text of XML is never kept.
    bool m_keepsTexts;
};

/// What not every receiver needs or allows.
struct DocumentDetails {
    bool m_systemEncodings = false;  // those that the system knows and Expat does not
    bool m_prefixes = false;
    bool m_lines = false;
    bool m_markup = false;  // comments, instructions, the document type, references to entities
    bool m_octets = false;  // of text in UTF-8, unless it is standalone="yes", in place of all else
    // Of Fast Infoset, malformed UTF-8 is refused and an initial vocabulary applied; of ISO-8859-1, names are
    // refused that other parsers do not read.
    bool m_exact = false;
};

/// Where in the input that stands which a receiver is told.
struct DocumentPlace {
    std::size_t m_line = 0;     // from 1; 0 in Fast Infoset, which has none
    std::size_t m_column = 0;   // the same
    std::uint64_t m_octet = 0;  // from 0, after decompression; of the UTF-8 form if the input is UTF-16
};

/// Unless the failure has a place.
void SetPlace(CBxException& failure, DocumentPlace const& place);

/// References to entities of which the parser does not know what they stand for, so that they stand for nothing.
struct SkippedEntities {
    std::size_t m_count = 0;
    wstring m_name;  // of the first one
    std::size_t m_line = 0;
};

/// A parser that tells a receiver of a document piece by piece.
class CDocumentReader {
public:
    CDocumentReader(CDocumentReceiver& receiver, DocumentMemory const& memory, DocumentDetails details)
        : m_receiver(receiver), m_memory(memory), m_details(details) {
        SetLimits({});
    }
    CDocumentReader(CDocumentReader const&) = delete;
    CDocumentReader& operator=(CDocumentReader const&) = delete;
    virtual ~CDocumentReader() = default;

    /// Tells the receiver what comes next, up to the end of the document or until Pause() is called.
    /// @return whether there may be more
    virtual bool Read() = 0;
    /// To be called by the receiver while it is told something: Read() returns soon. What belongs to the same piece
    /// of the input may still come first: the rest of a text, the end of an empty element, all that an entity stands
    /// for.
    virtual void Pause() = 0;
    /// The same, but Read() returns only at the end of what there is of the input, if the parser can tell that. Then
    /// Pause() can still be called, and comes into force at the end of the tag or text that the receiver is told.
    /// @return whether it can; if not, this was Pause()
    virtual bool PauseBehindSlice() {
        Pause();
        return false;
    }
    virtual DocumentPlace Place() const = 0;

    /// Before reading. The octets are the business of who has them.
    void SetLimits(CDocumentLimits const& limits);
    SkippedEntities const& GetSkippedEntities() const { return m_skippedEntities; }

protected:
    void StartElement(DocumentElement const& element) {
        ++m_depth;
        m_receiver.StartElement(element);
    }
    void EndElement() {
        --m_depth;
        m_receiver.EndElement();
    }
    /// A text that may have a CR or a zero anywhere.
    void AddAnyText(std::u16string_view text);
    bool HasOpenElement() const { return m_depth > 0; }
    /// Before an element starts.
    /// @throws CBxException if it is one too many, or too deep
    void CountElement();
    /// What came so far is told anew.
    void Restart();

    CDocumentReceiver& m_receiver;
    DocumentMemory m_memory;
    DocumentDetails m_details;
    CDocumentLimits m_limits;
    SkippedEntities m_skippedEntities;
    std::size_t m_elements = 0;
    std::size_t m_depth = 0;
};

}  // namespace BxXmlLib5
