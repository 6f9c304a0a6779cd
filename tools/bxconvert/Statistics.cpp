#include "Statistics.h"

#include <algorithm>
#include <utility>

#include "BxXmlLib5/document/CXmlAttribute.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "NamespaceText.h"
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
    if (child != nullptr && !IsWhitespace(element.GetTextView())) ++found.m_mixed;
    for (; child != nullptr; child = child->GetNextSiblingElement()) Visit(*child, depth + 1, found);
}

std::string FormOf(CXmlDocument const& document) {
    std::string const form = document.IsFastInfoset() ? "Fast Infoset" : "XML text";
    return document.IsCompressed() ? form + ", compressed" : form;
}

std::string ValueOrNone(wstring const& value) {
    return value.empty() ? "(none)" : OneLine(ToUtf8(value));
}

}  // namespace

bool IsWhitespace(std::u16string_view text) {
    return text.find_first_not_of(u" \t\r\n") == text.npos;
}

std::string InElements(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " element" : " elements");
}

Statistics Survey(CXmlElement const& root) {
    Statistics found;
    Visit(root, 1, found);
    return found;
}

std::string InfoText(CXmlElement const& root, Statistics const& statistics, std::uintmax_t octets) {
    std::pair<char const*, std::string> const facts[] = {
        {"form", FormOf(*root.GetDocument())},
        {"root", ToUtf8(root.GetLocalName())},
        {"namespace", ValueOrNone(root.GetNamespaceURI())},
        {"elements", std::to_string(statistics.m_elements)},
        {"attributes", std::to_string(statistics.m_attributes)},
        {"depth", std::to_string(statistics.m_depth)},
        {"octets", std::to_string(octets)},
    };
    std::string text;
    for (auto const& [name, value] : facts) text += std::string(name) + ": " + value + '\n';
    return text;
}

}  // namespace BxConvert
