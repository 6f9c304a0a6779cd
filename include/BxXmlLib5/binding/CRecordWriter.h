// Documents that are written record by record.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string_view>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/Enumerations.h"
#include "BxXmlLib5/platform/Export.h"

namespace BxXmlLib5 {

class CXmlObjectBase;

/// How a CRecordWriter writes.
struct RecordSettings {
    /// What no parser would read is refused, unless another context says otherwise.
    RecordSettings() { m_context.SetCheckWellFormed(true); }

    bool m_isFastInfoset = false;              ///< Fast Infoset, or XML text in UTF-8 with its declaration
    Layout m_layout = Layout::Compact;         ///< of text
    CompressionType m_compression = cmp_None;  ///< any of them, wherever it goes
    /// Its instructions, namespaces and additional attributes are those of the root. An in-line schema is not written.
    CXmlSerializationContext m_context;
};

/// Writes a document of any size in constant memory: elements are started and ended one by one, and objects, of
/// generated classes or untyped, are written among them. At most one of these is held as octets, besides some
/// 100 KiB and the tables of Fast Infoset, which grow to some 65,000 short strings each, and as many
/// names as there are.
///
///     CRecordWriter writer("track.gpx");
///     writer.Start(u"gpx", u"http://www.topografix.com/GPX/1/1");
///     writer.Start(u"trk");
///     writer.Start(u"trkseg");
///     while (NextPoint(point)) writer.Write(point, u"trkpt");
///     writer.Finish();
///
/// A failure of an element, an attribute, a text or an object has a path, in which what was written step by step has
/// positions, as in `/gpx/trk[1]/trkseg[2]/trkpt[17]/ele`; a name that comes behind a thousand others in one element has
/// none.
///
/// After a failure nothing more is accepted: a document that is not finished is dropped with the object, and a file of
/// its name is as it was. A null text is the empty text.
class BXXMLLIB5_API CRecordWriter {
public:
    /// Takes the octets of the document, in order. What it throws passes through.
    using Sink = std::function<void(std::span<unsigned char const>)>;

    /// Writes to a file by way of CFileReplacement; /dev/fd/N is an open one.
    /// @param path as the system has it, which is UTF-8 as a rule
    /// @throws CBxException with the error number of the system
    explicit CRecordWriter(std::string_view path, RecordSettings const& settings = {});
    /// Hands the octets to a function, in pieces.
    /// @throws CBxInvalidParamException if there is no function
    explicit CRecordWriter(Sink sink, RecordSettings const& settings = {});
    /// @{
    /// A document has one writer.
    CRecordWriter(CRecordWriter const&) = delete;
    CRecordWriter& operator=(CRecordWriter const&) = delete;
    /// @}
    ~CRecordWriter();

    // The surroundings. All throw CBxException if the order of calls makes no document or the octets cannot
    // be written.

    /// Starts an element in the namespace of the one around it; the root is in the context's default namespace.
    void Start(char16_t const* name);
    /// Starts an element in a namespace, empty for none.
    void Start(char16_t const* name, char16_t const* ns);
    /// Adds an attribute to the element that was just started.
    void Attribute(char16_t const* name, char16_t const* value, char16_t const* ns = u"");
    /// Adds text to the element that is open.
    void Text(char16_t const* text);
    /// Ends the element that was started last.
    void End();

    /// Writes an object under the name and in the namespace that it would have as a root.
    /// @throws CBxException also for what the object's data gives cause for
    void Write(CXmlObjectBase const& object);

    /// Writes an object of a class under another name, which it takes, and in the namespace of the element around it;
    /// untyped content keeps its own ones.
    void Write(CXmlObjectBase& object, char16_t const* name);
    /// The same in a namespace that is told.
    void Write(CXmlObjectBase& object, char16_t const* name, char16_t const* ns);

    /// Ends what is open, and puts the file into its place.
    void Finish();

private:
    class Document;

    std::unique_ptr<Document> Take();
    template <class Step>
    void Run(Step step);

    std::unique_ptr<Document> m_document;  // null after a failure, and at the end
};

}  // namespace BxXmlLib5
