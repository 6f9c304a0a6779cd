// Where the path of a location leads in the tree of a document.
#pragma once

#include <regex>
#include <string>

#include "BxXmlLib5/document/CXmlDocument.h"

namespace BxTest {

/// An element that a path leads to, or an attribute of it.
struct Found {
    BxXmlLib5::CXmlElement const* m_element = nullptr;  ///< Null if the path leads nowhere.
    BxXmlLib5::CXmlAttribute const* m_attribute = nullptr;
};

/// A name without a position must be the only one.
inline Found Follow(BxXmlLib5::CXmlDocument const& document, BxXmlLib5::wstring const& path) {
    using BxXmlLib5::CXmlElement;
    std::string const text = BxXmlLib5::ToUtf8(path);
    static std::regex const s_step(R"(/(@)?([^/\[\]@]+)(?:\[(\d+)\])?)");
    Found found;
    std::size_t length = 0;
    CXmlElement const* first = document.GetDocumentElement();
    for (std::sregex_iterator at(text.begin(), text.end(), s_step), end; at != end; ++at) {
        std::smatch const& step = *at;
        length += static_cast<std::size_t>(step.length());
        BxXmlLib5::wstring const name = BxXmlLib5::FromUtf8(step[2].str());
        if (step[1].matched) {
            for (auto const* attribute : found.m_element->GetAttributes())
                if (attribute->GetLocalName() == name) found.m_attribute = attribute;
            if (found.m_attribute == nullptr) return {};
            continue;
        }
        int const position = step[3].matched ? std::stoi(step[3].str()) : 0;
        int count = 0;
        CXmlElement const* next = nullptr;
        for (; first != nullptr; first = first->GetNextSiblingElement())
            if (first->GetLocalName() == name && (++count == position || position == 0)) next = first;
        if (next == nullptr || (count > 1) != (position > 0)) return {};
        found.m_element = next;
        first = next->GetFirstElement();
    }
    return length == text.size() ? found : Found();
}

}  // namespace BxTest
