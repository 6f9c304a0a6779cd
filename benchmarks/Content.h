// Whole documents, as benchmarks read them.
#pragma once

#include <string_view>

#include "BxXmlLib5/BxXmlLib5.h"

namespace BxBench {

inline void LoadStream(BxXmlLib5::CXmlDocument& document, std::string_view input) {
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(input.data()), input.size());
}

/// An element that reads the root of a document.
class Content : public BxXmlLib5::CElement {
public:
    Content() : CElement(u"") {}
    void Read(std::string_view input) {
        BxXmlLib5::CXmlDocument document;
        LoadStream(document, input);
        BxXmlLib5::CXmlElement* const root = document.GetDocumentElement();
        FromXml_Int(root, root, BxXmlLib5::CXmlSerializationContext::GetDefaultContext(), false);
    }
};

}  // namespace BxBench
