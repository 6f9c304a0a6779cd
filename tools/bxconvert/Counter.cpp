#include "Counter.h"

#include <algorithm>
#include <utility>

#include "OneLine.h"

namespace BxConvert {

using namespace BxXmlLib5;

void Counter::StartElement(DocumentElement const& element) {
    if (++m_elements == 1) {
        m_root = OneLine(ToUtf8(element.m_name.m_localName));
        m_namespace = OneLine(ToUtf8(element.m_name.m_namespaceUri));
    }
    m_attributes += element.m_attributes.size();
    m_depth = std::max(m_depth, ++m_open);
}

std::string Counter::ToText(bool isFastInfoset, bool isCompressed, std::uintmax_t octets) const {
    std::string const form = isFastInfoset ? "Fast Infoset" : "XML text";
    std::pair<char const*, std::string> const facts[] = {
        {"form", isCompressed ? form + ", compressed" : form},
        {"root", m_root},
        {"namespace", m_namespace.empty() ? "(none)" : m_namespace},
        {"elements", std::to_string(m_elements)},
        {"attributes", std::to_string(m_attributes)},
        {"depth", std::to_string(m_depth)},
        {"octets", std::to_string(octets)},
    };
    std::string text;
    for (auto const& [name, value] : facts) text += std::string(name) + ": " + value + '\n';
    return text;
}

}  // namespace BxConvert
