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

constexpr std::u16string_view kWhitespace = u" \t\r\n";  // XML 1.0, 2.3

/// @param outside the namespace of the parent, which most names are in as well
void EnterNamespace(wstring const& ns, wstring const& outside, Statistics& found) {
    constexpr std::u16string_view kXmlNamespace = u"http://www.w3.org/XML/1998/namespace";
    if (!ns.empty() && ns != outside && ns != kXmlNamespace) found.m_namespaces.insert(ns);
}

void EnterAttribute(CXmlAttribute const& attribute, CXmlElement const& owner, Statistics& found) {
    ++found.m_attributes;
    wstring const& ns = attribute.GetNamespaceURI();
    EnterNamespace(ns, owner.GetNamespaceURI(), found);
    found.m_hasNamespaceToEscape |= NeedsEscape(ns);
    if (ns != kXsiNamespace) return;
    found.m_hasXsiAttribute = true;
    if (attribute.GetLocalName() == u"type") found.m_typePrefixes.insert(PrefixOf(attribute.GetValueView()));
}

void Visit(CXmlElement const& element, wstring const& outside, std::size_t depth, Statistics& found) {
    ++found.m_elements;
    found.m_depth = std::max(found.m_depth, depth);
    found.m_hasElementWithoutNamespace |= element.GetNamespaceURI().empty();
    found.m_hasNamespaceToEscape |= NeedsEscape(element.GetNamespaceURI());
    EnterNamespace(element.GetNamespaceURI(), outside, found);
    for (CXmlAttribute const* const attribute : element.GetAttributes()) {
        EnterAttribute(*attribute, element, found);
    }
    CXmlElement const* child = element.GetFirstElement();
    if (child != nullptr && !IsWhitespace(element.GetTextView())) ++found.m_mixed;
    for (; child != nullptr; child = child->GetNextSiblingElement()) {
        Visit(*child, element.GetNamespaceURI(), depth + 1, found);
    }
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
    return text.find_first_not_of(kWhitespace) == text.npos;
}

wstring PrefixOf(std::u16string_view name) {
    std::size_t const start = std::min(name.find_first_not_of(kWhitespace), name.size());
    std::size_t const colon = name.find(u':', start);
    return colon == name.npos ? wstring() : wstring(name.substr(start, colon - start));
}

std::string InElements(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " element" : " elements");
}

Statistics Survey(CXmlElement const& root) {
    Statistics found;
    Visit(root, {}, 1, found);
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
