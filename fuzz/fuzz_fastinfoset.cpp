// Any octets behind the beginning of Fast Infoset: read into untyped content, written, read and written
// again.
#include <cstdio>
#include <cstdlib>

#include "BxXmlLib5/BxXmlLib5.h"

using namespace BxXmlLib5;

namespace {

struct Element : CElement {
    using CElement::CElement;
    using CElement::FromXml_Int;
};

CBinaryData Written(CXmlDocument& document) {
    CXmlSerializationContext const context;
    Element element(u"");
    CXmlElement* const root = document.GetDocumentElement();
    element.FromXml_Int(root, root, context, false);
    return element.ToFastInfosetStream(fi_None, context, cmp_None);
}

CBinaryData Written(unsigned char const* data, std::size_t size) {
    CXmlDocument document;
    document.LoadXmlStream(data, size);
    // Text is the work of another target.
    if (!document.IsFastInfoset()) throw CBxException(u"no Fast Infoset");
    return Written(document);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    try {
        CBinaryData const first = Written(data, size);
        CBinaryData const second = Written(first.GetData(), first.GetLength());
        if (!(first == second)) {
            std::fprintf(stderr, "%s\n%s\n", ToUtf8(first.GetAsHexString()).c_str(),
                         ToUtf8(second.GetAsHexString()).c_str());
            std::abort();
        }
    } catch (CBxException const&) {
        // Refused; or a text has half of a surrogate pair, which cannot be written.
    }
    return 0;
}
