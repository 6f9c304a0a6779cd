// Documents that are read record by record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <span>
#include <string_view>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxLocation.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/platform/Export.h"

namespace BxXmlLib5 {

class CXmlObjectBase;

/// How a CRecordReader reads. Sizes are those of the tree that is made: some 100 octets for an element, 50 for an
/// attribute, two for a character.
struct RecordReaderSettings {
    /// Entities that the document does not declare are refused, unless another context says otherwise.
    RecordReaderSettings() { m_context.SetRequireWholeDocument(true); }

    /// Of each record, and of the document: its encodings, and its limits, that of the size included.
    CXmlSerializationContext m_context;

    /// Octets of a record. One that has more is refused, and passed over if reading goes on.
    std::size_t m_maxRecord = std::size_t{64} << 20;

    /// Whether all that stands around the records is kept, or only the elements that lead to them, with their
    /// attributes.
    bool m_keepsSurroundings = true;
    /// Octets of what is kept of that. More ends the reading.
    std::size_t m_maxSurroundings = std::size_t{16} << 20;

    /// Octets of a document that comes compressed, after decompression. More ends the reading.
    std::uint64_t m_maxInflatedSize = std::numeric_limits<std::uint64_t>::max();

    /// Called by Read() when it comes to the end of an element that leads to records, with that, as GetSurroundings()
    /// has it. What it throws passes through, a CBxException with the place in the document, and reading can go on.
    std::function<void(CXmlElement const&)> m_onEnd;
};

/// Reads the records of a document of any size in constant memory, each into an object: XML text in any encoding that
/// CXmlDocument reads, or Fast Infoset, either as such or compressed by zlib or gzip.
///
///     CRecordReader reader("track.gpx", u"gpx/trk/trkseg/trkpt");
///     CWpt point;
///     while (reader.Read(point)) Use(point);
///
/// Records are told by their path: the local names from the root down to them, with a slash between two. A name may have
/// a namespace ahead of it, in braces as in `{http://www.topografix.com/GPX/1/1}gpx`, empty for none; without one it is
/// in any. An asterisk is any name. A root of another name than the first is refused. An element inside of a record
/// belongs to that, whatever its name is.
///
/// What is kept in memory is a record, or some small ones that follow each other, the distinct names of the document
/// and what stands around the records: the root, and of the elements inside of it that lead to records the last one
/// each, with all that they have but these.
///
/// What a record's data gives cause for is thrown by the Read() that reads it, and the next Read() goes on behind it. A
/// document that is not well-formed, breaks off or goes beyond a limit is refused where the reader comes to that, as is
/// what the source throws: the records ahead of it have been read, and each Read() to come throws the same. Failures
/// have the place in the document (CBxException::GetLocation), whose path gives the position of each element on the
/// way to the record, as in `/gpx/trk[1]/trkseg[2]/trkpt[17]/ele`.
///
/// What an entity stands for comes at once: its records count as one for the limit, and those behind it are passed over
/// with the one that reaches it; the surroundings are those at its end.
///
/// A reader belongs to one thread at a time. What it calls, which is m_onEnd, the source and the object that reads a
/// record, must not make it read on: that throws CBxInvalidStateException, as does whatever is asked of a reader that
/// was moved from.
class BXXMLLIB5_API CRecordReader {
public:
    /// Gives the octets of the document: fills the beginning of the room, which is not empty, and returns how many octets
    /// it filled; 0 at the end.
    using Source = std::function<std::size_t(std::span<unsigned char>)>;

    // All look at the beginning of the document.

    /// Reads a file, a pipe or a device; /dev/stdin or /dev/fd/N is an open one, read from where it stands.
    /// @param path as the system has it, which is UTF-8 as a rule
    /// @param records the path of the records
    /// @throws CBxInvalidParamException if that is none, or has prefixes where the context does not keep those
    /// @throws CBxException with the error number of the system
    CRecordReader(std::string_view path, char16_t const* records, RecordReaderSettings const& settings = {});
    /// Reads octets in memory.
    /// @param octets outlive the reader
    CRecordReader(std::span<unsigned char const> octets, char16_t const* records,
                  RecordReaderSettings const& settings = {});
    /// Reads what a function gives.
    /// @throws CBxInvalidParamException if there is no function
    CRecordReader(Source source, char16_t const* records, RecordReaderSettings const& settings = {});
    /// @{
    /// A document has one reader.
    CRecordReader(CRecordReader&& other) noexcept;
    CRecordReader& operator=(CRecordReader&& other) noexcept;
    /// @}
    ~CRecordReader();

    /// Reads the next record. An object of a generated class is emptied and reads the record as it would read a member of
    /// that name; a CElement becomes the record, and takes nothing that it shared with copies of it. After a failure
    /// the object has what was stored so far.
    /// @return false if there is none, and then the document was whole; the object is as it was
    /// @throws CBxValidationException if the record does not fit the object
    /// @throws CBxException if the record is too large; and, never as the class derived from it, for what is wrong with
    ///         the document
    bool Read(CXmlObjectBase& object);

    /// Whether the document is refused, which was thrown, so that each Read() throws the same. What a record gives cause
    /// for is told ahead of that.
    bool HasFailed() const;

    /// Where the record stands that was read last, or within m_onEnd the element that ended, for failures that the
    /// application finds; not known ahead of the first record and at the end.
    CBxLocation GetLocation() const;

    /// What stands around the records, as far as it was read: behind the record that was read last, and at the end
    /// all of it. If none was read yet, the document is read up to the first one. The root is not whole until the end;
    /// of its text and that of the other elements that lead to records, white space behind a tag is left out.
    /// @return the root, null if it is a record itself; until the next Read()
    /// @throws CBxException as Read() does
    CXmlElement const* GetSurroundings();

    /// The same, read into an object: one of a generated class for the root, or a CElement. That records are missing, and
    /// other content that may come yet, is no failure, unless the context ignores unknown elements.
    /// @throws CBxInvalidStateException if there is no root but a record
    /// @throws CBxValidationException if what is there does not fit the object
    void ReadSurroundings(CXmlObjectBase& object);

private:
    class Document;

    Document& Use() const;
    void ReadTree(CXmlObjectBase& object, CXmlElement& element, CXmlSerializationContext const& context);

    std::unique_ptr<Document> m_document;  // null after a move
};

}  // namespace BxXmlLib5
