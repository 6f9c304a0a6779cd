// The names of a document, each held once.
#pragma once

#include <array>
#include <functional>
#include <set>
#include <string_view>

#include "BxXmlLib5/document/CXmlAttribute.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

/// Names repeat, and so do their parts: a table of a document takes as much memory as the distinct ones, however
/// namespaces and local names combine. What it gives lives as long as it does.
class CNameTable {
public:
    /// The text, which is the same object for equal texts.
    wstring const& InternText(std::u16string_view text);
    /// The same, null if there is none.
    wstring const* FindText(std::u16string_view text) const;

    CXmlName const& Intern(std::u16string_view namespaceUri, std::u16string_view localName);
    /// Takes the same time for parts of any length.
    /// @param namespaceUri,localName of this table
    CXmlName const& Combine(wstring const& namespaceUri, wstring const& localName);

    void Clear();

private:
    /// Texts of the table are told by their addresses.
    struct ByAddresses {
        bool operator()(CXmlName const& a, CXmlName const& b) const {
            std::less<> const less;
            return &a.m_localName == &b.m_localName ? less(&a.m_namespaceUri, &b.m_namespaceUri)
                                                    : less(&a.m_localName, &b.m_localName);
        }
    };

    std::set<wstring, LessBySize> m_texts;
    std::set<CXmlName, ByAddresses> m_names;
    wstring const* m_lastNamespace = nullptr;
    std::array<CXmlName const*, 64> m_recent{};  // by a number made of the local name, to be looked at first
};

}  // namespace BxXmlLib5
