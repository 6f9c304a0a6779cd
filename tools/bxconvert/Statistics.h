// What bxconvert finds out about a document from its tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxConvert {

struct Statistics {
    std::size_t m_elements = 0;
    std::size_t m_attributes = 0;
    std::size_t m_depth = 0;  // levels of elements
    std::size_t m_mixed = 0;  // elements with other text than whitespace beside children
    bool m_hasElementWithoutNamespace = false;
    bool m_hasXsiAttribute = false;
    bool m_hasNamespaceToEscape = false;
    std::set<BxXmlLib5::wstring> m_namespaces;    // of elements and attributes, but that of XML
    std::set<BxXmlLib5::wstring> m_typePrefixes;  // of the values of xsi:type, the empty one for none
};

/// The namespace of XML Schema instance (XML Schema Part 1, 2.6).
inline constexpr char16_t kXsiNamespace[] = u"http://www.w3.org/2001/XMLSchema-instance";

/// Whether a text is empty or only whitespace as XML 1.0, 2.3 has it.
bool IsWhitespace(std::u16string_view text);

/// "1 element", "2 elements".
std::string InElements(std::size_t count);

/// The prefix of a qualified name, empty for none.
BxXmlLib5::wstring PrefixOf(std::u16string_view name);

Statistics Survey(BxXmlLib5::CXmlElement const& root);

/// What --info prints: a line `name: value` for each fact.
/// @param octets the size of the input
std::string InfoText(BxXmlLib5::CXmlElement const& root, Statistics const& statistics, std::uintmax_t octets);

}  // namespace BxConvert
