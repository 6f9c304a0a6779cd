#include "BxXmlLib5/binding/CRecordReader.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/core/CBxException.h"
#include "binding/CUntypedTest.h"
#include "binding/IgnoredContent.h"
#include "collections/CContentReader.h"
#include "document/CDocumentStream.h"
#include "document/CRecordCutter.h"
#include "document/InputLimits.h"
#include "document/ReadPlace.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

namespace {

class CFunctionSource : public COctetSource {
public:
    explicit CFunctionSource(CRecordReader::Source read) : m_read(std::move(read)) {
        if (!m_read) throw CBxInvalidParamException(u"There is no source");
    }

    std::size_t Read(std::span<unsigned char> room) override {
        std::size_t const count = m_read(room);
        if (count <= room.size()) return count;
        throw CBxInvalidStateException(u"The source gave more octets than there was room for");
    }

private:
    CRecordReader::Source m_read;
};

RecordCutterSettings CutterSettings(RecordReaderSettings const& settings) {
    return {.m_surroundings = {.m_schemaType = settings.m_context.GetSchemaType(),
                               .m_keepsContent = settings.m_keepsSurroundings,
                               .m_maxOctets = settings.m_maxSurroundings},
            .m_maxRecord = settings.m_maxRecord,
            .m_tellsEnds = settings.m_onEnd != nullptr};
}

DocumentStreamSettings StreamSettings(RecordReaderSettings const& settings) {
    CXmlSerializationContext const& context = settings.m_context;
    std::uint64_t const octets = context.GetDocumentLimits().m_octets;
    return {.m_schemaType = context.GetSchemaType(),
            .m_details = {.m_systemEncodings = context.GetSystemEncodings(), .m_lines = true},
            .m_maxSize = octets,
            .m_maxInflatedSize = std::min(octets, settings.m_maxInflatedSize),
            .m_limits = context.GetDocumentLimits()};
}

}  // namespace

class CRecordReader::Document {
public:
    Document(std::unique_ptr<COctetSource> source, char16_t const* records,
             RecordReaderSettings const& settings)
        : m_settings(settings),
          m_source(std::move(source)),
          m_cutter(m_names,
                   ParseRecordPath(TextOf(records), settings.m_context.GetSchemaType() == st_NoNamespaces),
                   CutterSettings(settings)),
          m_stream(*m_source, m_cutter, m_names, StreamSettings(settings)) {
        m_cutter.SetStream(m_stream);
    }

    /// @return null at the end
    CRecordCutter::Item const* NextRecord() {
        if (m_doing != Doing::Nothing) ThrowBusy();
        m_hasStarted = true;
        while ((m_last = Next()) != nullptr && m_last->m_kind == CRecordCutter::Kind::End) {
            ReadPart(*m_last, [this] { m_settings.m_onEnd(*m_last->m_element); });
        }
        return m_last;
    }

    bool HasFailed() const { return m_isFailureTold; }

    /// Calls a function that reads an item, and gives the failure of it its place in the document.
    template <class Read>
    void ReadPart(CRecordCutter::Item const& item, Read read) {
        try {
            CBusy const busy(m_doing, Doing::Telling);
            read();
        } catch (CBxException& failure) {
            LocateRead(failure, *item.m_element, {item.Path(), PositionOf()});
            throw;
        }
    }

    bool IsUntyped(CXmlObjectBase const& object) { return m_untyped(object); }

    /// What was read last, null if there is none.
    CRecordCutter::Item const* Last() const { return m_last; }

    CXmlElement* Surroundings() {
        if (m_doing == Doing::Reading) ThrowBusy();
        while (!m_hasStarted && !m_cutter.HasBegun() && !m_cutter.HasItems() && Advance()) {
        }
        return m_cutter.Surroundings();
    }

    /// What PlaceOfTree wants.
    std::function<std::size_t(CXmlElement const&)> PositionOf() const {
        return [this](CXmlElement const& element) { return m_cutter.Tree().PositionOf(element); };
    }

    RecordReaderSettings const& Settings() const { return m_settings; }

private:
    /// What functions of others are called for meanwhile. What is in memory must stay as it is then.
    enum class Doing { Nothing, Reading, Telling };

    class CBusy {
    public:
        CBusy(Doing& doing, Doing now) : m_doing(doing), m_before(std::exchange(doing, now)) {}
        CBusy(CBusy const&) = delete;
        CBusy& operator=(CBusy const&) = delete;
        ~CBusy() { m_doing = m_before; }

    private:
        Doing& m_doing;
        Doing m_before;
    };

    [[noreturn]] static void ThrowBusy() {
        throw CBxInvalidStateException(u"The reader cannot read on before it is back from what it called");
    }

    CRecordCutter::Item const* Next() {
        for (;;) {
            CRecordCutter::Item const* const item = m_cutter.Next();
            if (item != nullptr || !Advance()) return item;
        }
    }

    /// @return false at the end
    bool Advance() {
        if (m_isAtEnd) return false;
        if (m_failure) {
            m_isFailureTold = true;
            std::rethrow_exception(m_failure);
        }
        try {
            CBusy const busy(m_doing, Doing::Reading);
            m_cutter.DropItems();
            if (!m_cutter.HasItems()) ReadOn();
        } catch (CEndsInElement const& failure) {
            CBxLocation const open = m_cutter.OpenElement();
            m_failure =
                open.IsKnown() ? std::make_exception_ptr(EndsInside(open)) : std::make_exception_ptr(failure);
        } catch (...) {
            m_failure = std::current_exception();
        }
        return true;
    }

    void ReadOn() {
        m_isAtEnd = !m_stream.Read() && !m_cutter.HasItems();
        SkippedEntities const& skipped = m_stream.GetSkippedEntities();
        if (skipped.m_count == 0 || !m_settings.m_context.GetRequireWholeDocument()) return;
        m_cutter.DropItems();
        throw EntityIsSkipped(skipped.m_name, skipped.m_line);
    }

    RecordReaderSettings m_settings;
    std::unique_ptr<COctetSource> m_source;
    CNameTable m_names;
    CRecordCutter m_cutter;
    CDocumentStream m_stream;
    Doing m_doing = Doing::Nothing;
    bool m_hasStarted = false;
    bool m_isAtEnd = false;
    std::exception_ptr m_failure;
    bool m_isFailureTold = false;
    CUntypedTest m_untyped;
    CRecordCutter::Item const* m_last = nullptr;
};

CRecordReader::CRecordReader(std::string_view path, char16_t const* records,
                             RecordReaderSettings const& settings)
    : m_document(std::make_unique<Document>(std::make_unique<CFileSource>(path), records, settings)) {}
CRecordReader::CRecordReader(std::span<unsigned char const> octets, char16_t const* records,
                             RecordReaderSettings const& settings)
    : m_document(std::make_unique<Document>(std::make_unique<CMemorySource>(octets), records, settings)) {}
CRecordReader::CRecordReader(Source source, char16_t const* records, RecordReaderSettings const& settings)
    : m_document(std::make_unique<Document>(std::make_unique<CFunctionSource>(std::move(source)), records,
                                            settings)) {}
CRecordReader::CRecordReader(CRecordReader&& other) noexcept = default;
CRecordReader& CRecordReader::operator=(CRecordReader&& other) noexcept = default;
CRecordReader::~CRecordReader() = default;

CRecordReader::Document& CRecordReader::Use() const {
    if (m_document) return *m_document;
    throw CBxInvalidStateException(u"The reader was moved");
}

bool CRecordReader::Read(CXmlObjectBase& object) {
    Document& document = Use();
    CRecordCutter::Item const* const record = document.NextRecord();
    if (record == nullptr) return false;
    RecordReaderSettings const& settings = document.Settings();
    if (record->m_kind == CRecordCutter::Kind::LargeRecord) {
        CBxException failure(u"The record takes more than " + FromUtf8(std::to_string(settings.m_maxRecord)) +
                             u" octets, which is the limit (m_maxRecord)");
        failure.SetLocation(record->Location());
        throw failure;
    }
    document.ReadPart(*record, [&] { ReadTree(object, *record->m_element, settings.m_context); });
    return true;
}

void CRecordReader::ReadTree(CXmlObjectBase& object, CXmlElement& element,
                             CXmlSerializationContext const& context) {
    if (m_document->IsUntyped(object)) {
        CSmartPtr<CReadItem<CElement>> const copy = CContentReader(CSharedText()).Read(element);
        static_cast<CElement&>(object) = *copy;
    } else {
        TestRest(object.FromXml_Int(&element, element.GetFirstElement(), context, false), element, context);
    }
}

bool CRecordReader::HasFailed() const {
    return Use().HasFailed();
}

CBxLocation CRecordReader::GetLocation() const {
    CRecordCutter::Item const* const record = Use().Last();
    return record == nullptr ? CBxLocation() : record->Location();
}

CXmlElement const* CRecordReader::GetSurroundings() {
    return Use().Surroundings();
}

void CRecordReader::ReadSurroundings(CXmlObjectBase& object) {
    Document& document = Use();
    CXmlElement* const root = document.Surroundings();
    if (root == nullptr) throw CBxInvalidStateException(u"Nothing stands around the records");
    CXmlSerializationContext context(document.Settings().m_context);
    context.SetIgnoreMissingChoice(true);
    context.SetIgnoreInvalidCollectionCounts(true);
    if (!context.GetIgnoreUnknownElements()) context.SetIgnoreMissingMandatoryElements(true);
    try {
        ReadTree(object, *root, context);
    } catch (CBxException& failure) {
        LocateRead(failure, *root, {{}, document.PositionOf()});
        throw;
    }
}

}  // namespace BxXmlLib5
