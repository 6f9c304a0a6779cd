// Any octets: read into untyped content, written, read and written again.
#include <cstdio>
#include <cstdlib>

#include "BxXmlLib5/BxXmlLib5.h"

using namespace BxXmlLib5;

namespace {

struct Element : CElement {
    using CElement::CElement;
    using CElement::FromXml_Int;
};

wstring Written(CXmlDocument& document, CXmlSerializationContext const& context) {
    Element element(u"");
    CXmlElement* const root = document.GetDocumentElement();
    element.FromXml_Int(root, root, context, false);
    return element.ToXml(false, false, eol_LF, context);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    CXmlSerializationContext const context;
    try {
        CXmlDocument document;
        document.LoadXmlStream(data, size);
        document.LoadXml(Written(document, context).c_str());
        // By now blanks stand for line breaks in attributes, and nothing changes any more.
        wstring const text = Written(document, context);
        document.LoadXml(text.c_str());
        if (Written(document, context) != text) {
            std::fprintf(stderr, "%s\n", ToUtf8(text).c_str());
            std::abort();
        }
    } catch (CBxException const&) {
        // Refused; or the name of a namespace holds what must be escaped, and is written as it is.
    }
    return 0;
}
