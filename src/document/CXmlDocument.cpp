#include "BxXmlLib5/document/CXmlDocument.h"

#include <algorithm>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "document/CDocumentBuilder.h"
#include "document/CExpatReader.h"
#include "document/COctetSource.h"
#include "document/Inflate.h"
#include "document/InputLimits.h"
#include "document/ReadPlace.h"
#include "fastinfoset/CFastInfosetReader.h"
#include "platform/Files.h"
#include "platform/TextView.h"
#include "platform/Utf16Octets.h"

namespace BxXmlLib5 {

namespace {

/// Octets that are about to be overwritten, so they are not cleared first.
class Buffer {
public:
    explicit Buffer(std::size_t size)
        : m_octets(std::make_unique_for_overwrite<unsigned char[]>(size)), m_size(size) {}
    unsigned char* data() const { return m_octets.get(); }
    std::span<unsigned char> Octets() const { return {m_octets.get(), m_size}; }

private:
    std::unique_ptr<unsigned char[]> m_octets;
    std::size_t m_size;
};

Buffer ReadFile(std::string_view path, std::size_t most) {
    CInputFile file(path);
    if (!file.IsOpen()) ThrowFileError(kCannotOpen, path, file);
    auto const size = file.Size();
    if (!size) ThrowFileError(u"Failed to get the size of the file [%s] Error [0x%08x]", path, file);
    ThrowIfInputTooLarge(*size, most);
    Buffer buffer(*size);
    if (!file.Read(buffer.Octets())) ThrowFileError(kCannotRead, path, file);
    return buffer;
}

void ThrowIfEmpty(std::size_t textLength) {
    if (textLength == 0) throw CBxException(u"XML String is empty!");
}

}  // namespace

CXmlDocument::CXmlDocument(SchemaType schemaType)
    : CInstanceMonitor(u"CXmlDocument"),
      m_schemaType(schemaType),
      m_nodes(std::make_unique<CDocumentNodes>()) {}

CXmlDocument::~CXmlDocument() = default;

void CXmlDocument::Cleanup() {
    m_documentElement = nullptr;
    m_openElements.clear();
    m_skippedEntityCount = 0;
    m_firstSkippedEntity.clear();
    m_isComplete = false;
    m_isCompressed = false;
    m_isFastInfoset = false;
    m_nodes->Clear();
}

void CXmlDocument::Load(char16_t const* path) {
    Load(ToUtf8(TextOf(path)));
}

void CXmlDocument::Load(std::string_view path) {
    Cleanup();
    Buffer const file = ReadFile(path, m_limits.m_octets);
    Parse(file.Octets(), false);
}

void CXmlDocument::LoadXmlStream(unsigned char const* data, std::size_t size) {
    Cleanup();
    if (size == 0) throw CBxException(u"XML Stream is empty!");
    Parse({data, size}, false);
}

void CXmlDocument::LoadXml(char const* text) {
    Cleanup();
    std::string_view const octets = text == nullptr ? std::string_view() : std::string_view(text);
    ThrowIfEmpty(octets.size());
    Parse({reinterpret_cast<unsigned char const*>(octets.data()), octets.size()}, true);
}

void CXmlDocument::LoadXml(char16_t const* text) {
    Cleanup();
    std::u16string_view const units = TextOf(text);
    ThrowIfEmpty(units.size());
    ThrowIfInputTooLarge((units.size() + 1) * sizeof(char16_t), m_limits.m_octets);
    // The byte order mark tells Expat that this is UTF-16, whatever the text claims.
    Buffer const octets((units.size() + 1) * sizeof(char16_t));
    WriteUtf16(units, std::ranges::copy(kByteOrderMark, octets.data()).out);
    Parse(octets.Octets(), true);
}

wstring CXmlDocument::LookupNamespaceFromAlias(char16_t const* alias) const {
    auto const entry = m_nodes->m_namespaceAliases.find(m_nodes->m_names.FindText(TextOf(alias)));
    return entry == m_nodes->m_namespaceAliases.end() ? wstring() : *entry->second;
}

void CXmlDocument::Parse(std::span<unsigned char const> input, bool isText) {
    ThrowIfInputTooLarge(input.size(), m_limits.m_octets);
    auto const inflated = isText ? std::nullopt : Inflate(input, m_limits.m_octets);
    auto const octets = inflated ? std::span<unsigned char const>(*inflated) : input;
    m_isCompressed = inflated.has_value();
    bool const isFastInfoset = !isText && CFastInfosetReader::Recognises(octets);
    CDocumentBuilder builder(*this, *m_nodes,
                             isFastInfoset ? CDocumentBuilder::kTextsAreKept : CDocumentBuilder::kTextsPass);
    DocumentMemory const memory{m_nodes->m_names, m_nodes->m_texts, isFastInfoset};
    try {
        if (isFastInfoset) {
            CFastInfosetReader reader(builder, memory);
            reader.SetLimits(m_limits);
            m_isFastInfoset = reader.Parse(octets);
        } else {
            CExpatReader reader(builder, memory, m_schemaType,
                                {.m_systemEncodings = m_systemEncodings, .m_lines = true});
            reader.SetLimits(m_limits);
            reader.Parse(octets);
            m_skippedEntityCount = reader.GetSkippedEntities().m_count;
            m_firstSkippedEntity = reader.GetSkippedEntities().m_name;
            m_skippedEntityLine = reader.GetSkippedEntities().m_line;
        }
    } catch (...) {
        m_documentElement = builder.CloseAllElements();
        throw;
    }
    m_openElements = builder.OpenElements();
    m_isComplete = m_openElements.empty();
    m_documentElement = builder.CloseAllElements();
    if (m_documentElement == nullptr) {
        Cleanup();
        ThrowNoRoot();
    }
    if (m_requireWholeDocument) ThrowIfNotWhole();
}

void CXmlDocument::ThrowIfNotWhole() const {
    if (m_isComplete) return ThrowIfEntitiesAreSkipped();
    CBxException failure;
    MarkRead(failure, m_openElements.back());
    LocateRead(failure, *m_documentElement);
    throw EndsInside(failure.GetLocation());
}

void CXmlDocument::ThrowIfEntitiesAreSkipped() const {
    if (m_skippedEntityCount == 0) return;
    throw EntityIsSkipped(m_firstSkippedEntity, m_skippedEntityLine);
}

}  // namespace BxXmlLib5
