#include "Trees.h"

#include "BxXmlLib5/BxXmlLib5.h"

namespace Suite {

using namespace BxXmlLib5;

namespace {

constexpr std::u16string_view kInstance = u"http://www.w3.org/2001/XMLSchema-instance";

std::string Shown(std::u16string_view text) {
    constexpr std::size_t kMost = 60;
    std::string shown = '\'' + ToUtf8(CWhitespaceUtils::Collapse(wstring(text.substr(0, kMost))));
    return shown + (text.size() > kMost ? "...'" : "'");
}

std::string Name(std::u16string_view namespaceUri, std::u16string_view localName) {
    std::string const name = ToUtf8(localName);
    return namespaceUri.empty() ? name : '{' + ToUtf8(namespaceUri) + '}' + name;
}

template <class Node>
std::string NameOf(Node const& node) {
    return Name(node.GetNamespaceURI(), node.GetLocalName());
}

bool IsNil(CXmlElement const& element) {
    return AreEqualValues(element.GetAttribute(u"nil", wstring(kInstance)), u"true");
}

/// The type that an element names by xsi:type, empty for none.
std::string TypeOf(CXmlElement const& element) {
    wstring const value = element.GetAttribute(u"type", wstring(kInstance));
    if (value.empty()) return "";
    std::size_t const colon = value.find(u':');
    wstring const prefix = colon == value.npos ? wstring() : value.substr(0, colon);
    return Name(element.GetDocument()->LookupNamespaceFromAlias(prefix.c_str()),
                colon == value.npos ? value : value.substr(colon + 1));
}

CXmlAttribute const* Find(CXmlElement const& element, CXmlAttribute const& wanted) {
    for (CXmlAttribute const* attribute : element.GetAttributes())
        if (attribute->GetLocalName() == wanted.GetLocalName() &&
            attribute->GetNamespaceURI() == wanted.GetNamespaceURI())
            return attribute;
    return nullptr;
}

std::string Became(std::u16string_view original, std::u16string_view written) {
    return AreEqualValues(original, written) ? "" : Shown(original) + " became " + Shown(written);
}

std::string AttributeDifference(CXmlElement const& original, CXmlElement const& written) {
    if (IsNil(original) != IsNil(written)) return IsNil(original) ? " is nil no more" : " became nil";
    if (std::string const type = TypeOf(original); TypeOf(written) != type)
        return " is of the type '" + TypeOf(written) + "', not '" + type + '\'';
    for (CXmlAttribute const* attribute : original.GetAttributes()) {
        if (attribute->GetNamespaceURI() == kInstance) continue;
        CXmlAttribute const* const other = Find(written, *attribute);
        std::string const place = "/@" + NameOf(*attribute);
        if (other == nullptr) return place + " is lost";
        std::string const became = Became(attribute->GetValueView(), other->GetValueView());
        if (!became.empty()) return place + ": " + became;
    }
    for (CXmlAttribute const* attribute : written.GetAttributes())
        if (attribute->GetNamespaceURI() != kInstance && Find(original, *attribute) == nullptr)
            return "/@" + NameOf(*attribute) + " was added";
    return "";
}

std::string ChildDifference(CXmlElement const& original, CXmlElement const& written) {
    CXmlElement const* a = original.GetFirstElement();
    CXmlElement const* b = written.GetFirstElement();
    for (int position = 1; a != nullptr || b != nullptr; ++position) {
        std::string const place = "/*[" + std::to_string(position) + "]: ";
        if (b == nullptr) return place + NameOf(*a) + " is lost";
        if (a == nullptr) return place + NameOf(*b) + " was added";
        std::string const difference = Difference(*a, *b);
        if (!difference.empty()) return "/*[" + std::to_string(position) + ']' + difference;
        a = a->GetNextSiblingElement();
        b = b->GetNextSiblingElement();
    }
    return "";
}

}  // namespace

std::string Difference(CXmlElement const& original, CXmlElement const& written) {
    if (NameOf(original) != NameOf(written)) return ": " + NameOf(original) + " became " + NameOf(written);
    std::string difference = AttributeDifference(original, written);
    if (difference.empty()) difference = ChildDifference(original, written);
    if (!difference.empty()) return difference;
    difference = Became(original.GetTextView(), written.GetTextView());
    return difference.empty() ? difference : " (" + ToUtf8(original.GetLocalName()) + "): " + difference;
}

}  // namespace Suite
