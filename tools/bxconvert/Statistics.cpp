#include "Statistics.h"

#include <algorithm>

#include "BxXmlLib5/document/CXmlAttribute.h"
#include "OneLine.h"

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

void Visit(CXmlElement const& element, std::size_t depth, Statistics& found) {
    ++found.m_elements;
    found.m_attributes += element.GetAttributes().size();
    found.m_depth = std::max(found.m_depth, depth);
    found.m_hasElementWithoutNamespace |= element.GetNamespaceURI().empty();
    found.m_hasNamespaceToEscape |= NeedsEscape(element.GetNamespaceURI());
    for (CXmlAttribute const* const attribute : element.GetAttributes()) {
        found.m_hasXsiAttribute |= attribute->GetNamespaceURI() == kXsiNamespace;
        found.m_hasNamespaceToEscape |= NeedsEscape(attribute->GetNamespaceURI());
    }
    CXmlElement const* child = element.GetFirstElement();
    if (child != nullptr && !IsWhitespace(element.GetText())) ++found.m_mixed;
    for (; child != nullptr; child = child->GetNextSiblingElement()) Visit(*child, depth + 1, found);
}

std::string ValueOrNone(wstring const& value) {
    return value.empty() ? "(none)" : OneLine(ToUtf8(value));
}

}  // namespace

bool IsWhitespace(std::u16string_view text) {
    return text.find_first_not_of(u" \t\r\n") == text.npos;
}

bool NeedsEscape(std::u16string_view namespaceUri) {
    return namespaceUri.find_first_of(u"&<\"\t\r\n") != namespaceUri.npos;
}

Statistics Survey(CXmlElement const& root) {
    Statistics found;
    Visit(root, 1, found);
    return found;
}

std::string InfoText(CXmlElement const& root, Statistics const& statistics, std::uintmax_t octets) {
    return "root: " + ToUtf8(root.GetLocalName()) +                      //
           "\nnamespace: " + ValueOrNone(root.GetNamespaceURI()) +       //
           "\nelements: " + std::to_string(statistics.m_elements) +      //
           "\nattributes: " + std::to_string(statistics.m_attributes) +  //
           "\ndepth: " + std::to_string(statistics.m_depth) +            //
           "\noctets: " + std::to_string(octets) + "\n";
}

}  // namespace BxConvert
