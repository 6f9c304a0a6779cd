#include "document/CDocumentStream.h"

#include <string>

#include "BxXmlLib5/core/FormatString.h"
#include "document/CExpatReader.h"
#include "fastinfoset/CFastInfosetReader.h"

namespace BxXmlLib5 {

namespace {

template <class Reader>
std::unique_ptr<CDocumentReader> Started(std::unique_ptr<Reader> reader, CPeekedSource& source,
                                         CDocumentLimits const& limits) {
    reader->SetLimits(limits);
    reader->Start(source);
    return reader;
}

}  // namespace

std::size_t CDocumentStream::CLimitedSource::Read(std::span<unsigned char> room) {
    std::size_t const count = m_source.Read(room);
    if (count > m_most - m_count) {
        throw CBxException(u"The document has more than " + FromUtf8(std::to_string(m_most)) +
                           u" octets, which is the limit");
    }
    m_count += count;
    return count;
}

CDocumentStream::CDocumentStream(COctetSource& source,
                                 std::function<CDocumentReceiver&(bool)> const& receiverOf, CNameTable& names,
                                 DocumentStreamSettings const& settings)
    : m_input(source),
      m_inflating(CInflatingSource::Recognises(m_input.Beginning()) ? std::optional<CInflatingSource>(m_input)
                                                                    : std::nullopt),
      m_limited(m_inflating ? static_cast<COctetSource&>(*m_inflating) : m_input,
                m_inflating ? settings.m_maxInflatedSize : settings.m_maxSize),
      m_content(m_limited),
      m_isFastInfoset(CFastInfosetReader::Recognises(m_content.Beginning())) {
    names.LimitSize(kMaxOctetsOfNames);
    CDocumentReceiver& receiver = receiverOf(m_isFastInfoset);
    DocumentMemory const memory{names, m_texts, false};
    if (m_isFastInfoset) {
        m_reader = Started(std::make_unique<CFastInfosetReader>(receiver, memory, settings.m_details),
                           m_content, settings.m_limits);
    } else {
        m_reader = Started(
            std::make_unique<CExpatReader>(receiver, memory, settings.m_schemaType, settings.m_details),
            m_content, settings.m_limits);
    }
}

CDocumentStream::~CDocumentStream() = default;

}  // namespace BxXmlLib5
