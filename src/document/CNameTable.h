// The names of a document, each held once.
#pragma once

#include <array>
#include <functional>
#include <set>
#include <string_view>

#include "BxXmlLib5/document/CXmlAttribute.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

/// Names repeat, and so do their namespaces: a table of a document takes as much memory as the distinct ones,
/// however namespaces and local names combine. What it gives lives as long as it does.
class CNameTable {
public:
    CXmlName const& Intern(std::u16string_view namespaceUri, std::u16string_view localName);
    void Clear();

private:
    struct Key {
        wstring const& m_namespaceUri;  // of this table
        std::u16string_view m_localName;
    };

    /// By local name; a namespace is told by its address.
    struct Less {
        using is_transparent = void;

        template <class A, class B>
        bool operator()(A const& a, B const& b) const {
            std::u16string_view const aName = a.m_localName;
            std::u16string_view const bName = b.m_localName;
            if (aName.size() != bName.size()) return aName.size() < bName.size();
            int const order = LessBySize::Compare(aName, bName);
            return order != 0 ? order < 0 : std::less<>()(&a.m_namespaceUri, &b.m_namespaceUri);
        }
    };

    wstring const& InternNamespace(std::u16string_view namespaceUri);
    wstring const& InternText(std::u16string_view text);
    CXmlName const& Find(wstring const& namespaceUri, std::u16string_view localName);

    std::set<wstring, LessBySize> m_texts;
    std::set<CXmlName, Less> m_names;
    wstring const m_noNamespace;
    wstring const* m_lastNamespace = nullptr;    // that is not empty
    std::array<CXmlName const*, 64> m_recent{};  // by a number made of the local name, to be looked at first
};

}  // namespace BxXmlLib5
