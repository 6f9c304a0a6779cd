// The names of a document, each held once.
#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <string_view>

#include "BxXmlLib5/document/CXmlAttribute.h"
#include "document/CHashIndex.h"
#include "document/CNodePool.h"

namespace BxXmlLib5 {

/// Names repeat, and so do their parts: a table of a document takes as much memory as the distinct ones, however
/// namespaces and local names combine. What it gives lives as long as it does.
class CNameTable {
public:
    /// The text, which is the same object for equal texts.
    /// @throws CBxException if the names take more octets than they may
    wstring const& InternText(std::u16string_view text);
    /// The same, null if there is none.
    wstring const* FindText(std::u16string_view text) const;

    /// @param namespaceUri of this table
    CXmlName const& Intern(wstring const& namespaceUri, std::u16string_view localName);
    CXmlName const& Intern(wstring&& namespaceUri, std::u16string_view localName) = delete;
    /// Takes the same time for parts of any length.
    /// @param namespaceUri,localName of this table
    CXmlName const& Combine(wstring const& namespaceUri, wstring const& localName);

    void Clear();

    /// From now on the names take at most so many octets.
    void LimitSize(std::size_t octets) { m_mostOctets = octets; }

private:
    void Count(std::size_t octets);

    CBlockStore m_blocks;
    CNodePool<wstring> m_texts{m_blocks};
    CHashIndex<wstring> m_textIndex;
    CNodePool<CXmlName> m_names{m_blocks};
    CHashIndex<CXmlName> m_nameIndex;  // by the addresses of their parts
    std::size_t m_octets = 0;
    std::size_t m_mostOctets = std::numeric_limits<std::size_t>::max();
    std::array<CXmlName const*, 64> m_recent{};  // by a number made of the local name, to be looked at first
};

}  // namespace BxXmlLib5
