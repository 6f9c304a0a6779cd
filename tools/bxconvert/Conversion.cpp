#include "Conversion.h"

#include <memory>
#include <stdexcept>
#include <utility>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "CUntypedDocument.h"
#include "Input.h"
#include "Octets.h"

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

/// XML text, ahead of any compression.
CBinaryData ToText(CUntypedDocument const& content, Options const& options) {
    constexpr unsigned char kByteOrderMark[] = {0xFF, 0xFE};
    CBinaryData text =
        content.ToXmlStream(options.m_declaration, options.m_formatted, options.m_encoding, options.m_eol,
                            CXmlSerializationContext::GetDefaultContext(), cmp_None);
    if (options.m_encoding != enc_UTF16) return text;
    CBinaryData marked;
    marked.Append(kByteOrderMark);
    marked.Append(text);
    return marked;
}

CBinaryData Write(CUntypedDocument const& content, Options const& options) {
    if (options.m_form == Form::kXml) return ToText(content, options).CompressData(options.m_compression);
    return content.ToFastInfosetStream(options.m_finfDeclaration,
                                       CXmlSerializationContext::GetDefaultContext(), options.m_compression);
}

CBinaryData Rewrite(std::unique_ptr<CXmlDocument> document, Statistics const& statistics,
                    Options const& options) {
    CUntypedDocument const content(*document, statistics, options);
    document.reset();  // which has no part in writing, but as much memory as the content
    return Write(content, options);
}

}  // namespace

CBinaryData Convert(Options const& options, Statistics& statistics) {
    auto document = std::make_unique<CXmlDocument>(options.m_namespaces ? st_Default : st_NoNamespaces);
    auto const octets = LoadInput(*document, options.m_input);
    if (!document->IsComplete()) throw std::runtime_error("the document ends inside an element");
    CXmlElement const& root = *document->GetDocumentElement();
    statistics = Survey(root);
    if (options.m_strict && statistics.m_mixed > 0) {
        throw std::runtime_error("mixed content, text beside children, in " + InElements(statistics.m_mixed));
    }
    if (options.m_info) return OctetsOf(InfoText(root, statistics, octets));
    return Rewrite(std::move(document), statistics, options);
}

}  // namespace BxConvert
