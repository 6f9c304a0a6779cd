#include "BxXmlLib5/binding/CRecordWriter.h"

#include <optional>
#include <utility>
#include <vector>

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/platform/CFileReplacement.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "binding/CUntypedTest.h"
#include "binding/RootDecoration.h"
#include "platform/TextView.h"
#include "values/Deflate.h"
#include "values/NotWritten.h"
#include "writers/CFastInfosetWriter.h"
#include "writers/CPathWriter.h"
#include "writers/CWellFormedWriter.h"
#include "writers/CXmlTextWriter.h"
#include "writers/WrittenPlace.h"

namespace BxXmlLib5 {

namespace {

/// Octets that are handed on at once.
constexpr std::size_t kPiece = 64 * 1024;

/// The document so far, handed on whenever there is enough of it.
template <class Writer>
void Drain(Writer& writer, std::size_t enough, OctetSink const& sink) {
    if (writer.Octets().size() < enough) return;
    sink(writer.Octets());
    writer.DropOctets();
}

}  // namespace

class CRecordWriter::Document {
public:
    Document(std::string_view path, RecordSettings const& settings)
        : Document([this](auto octets) { WriteToFile(octets); }, settings) {
        m_fileName = path;
        m_file = std::make_unique<CFileReplacement>(path);
        ThrowIfFileFailed();
    }

    Document(Sink sink, RecordSettings const& settings)
        : m_context(settings.m_context), m_sink(std::move(sink)) {
        if (!m_sink) throw CBxInvalidParamException(u"There is no sink");
        if (settings.m_compression != cmp_None) {
            m_deflater.emplace(settings.m_compression,
                               std::exchange(m_sink, [this](auto octets) { m_deflater->Add(octets); }));
        }
        if (settings.m_isFastInfoset) {
            m_writer = &m_finf.emplace();
            m_finf->LimitTables();
            m_finf->WriteStartDocument(fi_None);
        } else {
            m_writer = &m_text.emplace();
            m_text->ConvertAsItGrows();
            m_text->SetFormatting(settings.m_layout == Layout::Indented);
            if (m_context.GetCheckWellFormed()) m_text->WriteExactly();
            m_text->WriteStartDocument(enc_UTF8);
        }
        if (!m_context.GetCheckWellFormed()) return;
        m_writer = &m_checked.emplace(*m_writer, WhatIsUnprefixed());
    }

    /// Of the element around what comes next.
    wstring Namespace() const {
        return m_open.empty() ? m_context.GetDefaultNamespaceURI() : m_open.back().m_namespace;
    }

    void Start(std::u16string_view name, wstring ns) {
        bool const isRoot = m_open.empty();
        BeginItem();
        m_open.push_back({wstring(name), std::move(ns)});
        Element const& element = m_open.back();
        Locate([&] {
            m_path.WriteStartElement(element.m_name, element.m_namespace);
            m_writer->WriteStartElement(element.m_name, element.m_namespace);
        });
        if (isRoot) WriteObject(*m_context.GetAdditionalRootAttributes(), u"");
    }

    void Attribute(wstring const& name, wstring const& ns, wstring const& value) {
        Locate([&] { MakeNext(name, Step::Attribute, [&] { m_writer->WriteAttribute(name, ns, value); }); });
    }

    void Text(wstring const& text) {
        Locate([&] { m_writer->WriteText(text); });
    }

    void End() {
        Locate([this] { m_writer->WriteEndElement(); });
        m_path.WriteEndElement();
        m_open.pop_back();
    }

    void Write(CXmlObjectBase const& object, wstring const& ns) {
        BeginItem();
        WriteObject(object, ns);
        if (m_untyped(object)) {
            m_path.Count(static_cast<CElement const&>(object).GetName());
        } else {
            m_path.Count(object.m_elementName);
        }
    }

    void Finish() {
        while (!m_open.empty()) End();
        if (!m_hasRoot) throw CBxInvalidStateException(u"The document has no root");
        if (m_checked) m_checked->TestEnd();  // objects may have written nothing
        m_writer->WriteEndDocument();
        CBinaryData const rest = m_text ? m_text->TakeBinaryData(enc_UTF8) : m_finf->TakeBinaryData();
        if (rest.GetLength() > 0) m_sink(rest.GetOctets());
        if (m_deflater) m_deflater->Finish();
        if (!m_file) return;
        m_file->Finish();
        ThrowIfFileFailed();
    }

    void Drain() {
        if (m_text) BxXmlLib5::Drain(*m_text, kPiece, m_sink);
        if (m_finf) BxXmlLib5::Drain(*m_finf, kPiece, m_sink);
    }

private:
    void StartAgain(CXmlWriter& writer) const {
        WriteAheadOfRoot(m_context, &writer);
        for (auto const& [name, ns] : m_open) writer.WriteStartElement(name, ns);
    }

    Unprefixed WhatIsUnprefixed() const {
        return m_finf ? Unprefixed::kIsInNoNamespace : Unprefixed::kIsDefault;
    }

    /// An element comes next.
    void BeginItem() {
        if (!m_open.empty()) return;
        if (m_hasRoot) throw CBxInvalidStateException(u"The document has a root already");
        m_hasRoot = true;
        WriteAheadOfRoot(m_context, m_writer);
    }

    void WriteObject(CXmlObjectBase const& object, wstring const& ns) {
        try {
            object.ToXml_Int(m_writer, false, ns.c_str(), m_context, false);
        } catch (CBxException& failure) {
            FindPlace(failure, object, ns);
            throw;
        }
    }

    /// Calls a function that writes a step, and gives the failure of it its location.
    template <class Write>
    void Locate(Write write) {
        try {
            write();
        } catch (CBxException& failure) {
            LocateWritten(failure, CPathWriter(nullptr, m_path));
            throw;
        }
    }

    /// Writes once more and nowhere, in elements of the same names, to see where that ends.
    void FindPlace(CBxException& failure, CXmlObjectBase const& object, wstring const& ns) const {
        CPathWriter nowhere(nullptr);
        CWellFormedWriter checked(nowhere, WhatIsUnprefixed());
        CPathWriter path(m_checked ? &checked : nullptr, m_path);
        bool const isFound = LocateWritten(failure, path, [&] {
            if (m_checked) StartAgain(checked);
            object.ToXml_Int(&path, false, ns.c_str(), m_context, false);
        });
        if (!isFound) failure.SetLocation(CBxLocation(CPathWriter(nullptr, m_path).Path({}, {})));
    }

    void WriteToFile(std::span<unsigned char const> octets) {
        m_file->Write(octets);
        ThrowIfFileFailed();
    }
    void ThrowIfFileFailed() const {
        if (m_file->Error() != 0) ThrowNotWritten(FromUtf8(m_fileName), m_file->Error());
    }

    struct Element {
        wstring m_name;
        wstring m_namespace;
    };

    CXmlSerializationContext m_context;
    std::string m_fileName;
    std::unique_ptr<CFileReplacement> m_file;  // null if there is a sink alone
    Sink m_sink;
    std::optional<CDeflater> m_deflater;
    std::optional<CXmlTextWriter> m_text;
    std::optional<CFastInfosetWriter> m_finf;
    std::optional<CWellFormedWriter> m_checked;
    CXmlWriter* m_writer = nullptr;
    bool m_hasRoot = false;
    std::vector<Element> m_open;
    CPathWriter m_path{nullptr};  // where the next record comes
    CUntypedTest m_untyped;
};

CRecordWriter::CRecordWriter(std::string_view path, RecordSettings const& settings)
    : m_document(std::make_unique<Document>(path, settings)) {}
CRecordWriter::CRecordWriter(Sink sink, RecordSettings const& settings)
    : m_document(std::make_unique<Document>(std::move(sink), settings)) {}
CRecordWriter::~CRecordWriter() = default;

/// The document, which is gone from the writer until the next step may come.
std::unique_ptr<CRecordWriter::Document> CRecordWriter::Take() {
    if (m_document) return std::move(m_document);
    throw CBxInvalidStateException(u"Nothing is written any more, since the document is finished or failed");
}

template <class Step>
void CRecordWriter::Run(Step step) {
    auto document = Take();
    step(*document);
    document->Drain();
    m_document = std::move(document);
}

void CRecordWriter::Start(char16_t const* name) {
    Run([name](Document& document) { document.Start(TextOf(name), document.Namespace()); });
}
void CRecordWriter::Start(char16_t const* name, char16_t const* ns) {
    Run([=](Document& document) { document.Start(TextOf(name), wstring(TextOf(ns))); });
}
void CRecordWriter::Attribute(char16_t const* name, char16_t const* value, char16_t const* ns) {
    Run([=](Document& document) {
        document.Attribute(wstring(TextOf(name)), wstring(TextOf(ns)), wstring(TextOf(value)));
    });
}
void CRecordWriter::Text(char16_t const* text) {
    Run([text](Document& document) { document.Text(wstring(TextOf(text))); });
}
void CRecordWriter::End() {
    Run([](Document& document) { document.End(); });
}

void CRecordWriter::Write(CXmlObjectBase const& object) {
    Run([&object](Document& document) { document.Write(object, object.GetTargetNamespace()); });
}
void CRecordWriter::Write(CXmlObjectBase& object, char16_t const* name) {
    object.SetElementName(name);
    Run([&object](Document& document) { document.Write(object, document.Namespace()); });
}
void CRecordWriter::Write(CXmlObjectBase& object, char16_t const* name, char16_t const* ns) {
    object.SetElementName(name);
    Run([&object, ns](Document& document) { document.Write(object, wstring(TextOf(ns))); });
}

void CRecordWriter::Finish() {
    Take()->Finish();
}

}  // namespace BxXmlLib5
