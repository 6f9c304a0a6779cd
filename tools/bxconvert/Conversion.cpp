#include "Conversion.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxException.h"
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

bool HasNamesOf(CXmlElement const& written, CXmlElement const& original) {
    auto const sameName = [](auto const* a, auto const* b) { return a->GetLocalName() == b->GetLocalName(); };
    if (!sameName(&written, &original) ||
        !std::ranges::equal(written.GetAttributes(), original.GetAttributes(), sameName)) {
        return false;
    }
    CXmlElement const* child = written.GetFirstElement();
    CXmlElement const* originalChild = original.GetFirstElement();
    while (child != nullptr && originalChild != nullptr && HasNamesOf(*child, *originalChild)) {
        child = child->GetNextSiblingElement();
        originalChild = originalChild->GetNextSiblingElement();
    }
    return child == nullptr && originalChild == nullptr;
}

bool ReadsBack(CBinaryData const& text, CXmlElement const& original) {
    CXmlDocument document;
    try {
        document.LoadXmlStream(text.GetData(), text.GetLength());
    } catch (CBxException const&) {
        return false;
    }
    return document.IsComplete() && HasNamesOf(*document.GetDocumentElement(), original);
}

CBinaryData Rewrite(std::unique_ptr<CXmlDocument> document, Statistics const& statistics,
                    Options const& options) {
    CUntypedDocument const content(*document, statistics, options);
    // Fast Infoset may have any characters in names and text, so XML text that is made of it has to prove
    // itself.
    bool const isCertain = options.m_form == Form::kFastInfoset || !document->IsFastInfoset();
    if (isCertain) document.reset();  // which has no part in writing, but as much memory as the content
    if (options.m_form == Form::kFastInfoset) {
        return content.ToFastInfosetStream(
            options.m_finfDeclaration, CXmlSerializationContext::GetDefaultContext(), options.m_compression);
    }
    CBinaryData text = ToText(content, options);
    if (!isCertain && !ReadsBack(text, *document->GetDocumentElement())) {
        throw std::runtime_error("a name or a text has characters that XML text cannot have");
    }
    return text.CompressData(options.m_compression);
}

}  // namespace

CBinaryData Convert(Options const& options, Statistics& statistics) {
    auto document = std::make_unique<CXmlDocument>(options.m_namespaces ? st_Default : st_NoNamespaces);
    document->SetRequireWholeDocument(true);
    document->SetSystemEncodings(true);
    auto const octets = LoadInput(*document, options.m_input);
    CXmlElement const& root = *document->GetDocumentElement();
    statistics = Survey(root);
    if (options.m_strict && statistics.m_mixed > 0) {
        throw std::runtime_error("mixed content, text beside children, in " + InElements(statistics.m_mixed));
    }
    if (options.m_info) return OctetsOf(InfoText(root, statistics, octets));
    return Rewrite(std::move(document), statistics, options);
}

}  // namespace BxConvert
