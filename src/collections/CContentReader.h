// From the elements of a document to untyped content.
#pragma once

#include <array>
#include <vector>

#include "BxXmlLib5/core/CSharedText.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/platform/Text.h"
#include "collections/ReadItems.h"
#include "collections/Wildcards.h"

namespace BxXmlLib5 {

class CXmlElement;

/// Shares the names of one document, which are told by their addresses there. Of a document with many names
/// some may come twice.
class CSharedNames {
public:
    CSharedText Name(wstring const& name);
    CSharedText Namespace(wstring const& ns);

    /// A wildcard of any namespace, with this one for what is added without.
    CSmartPtr<CWildcard const> Wildcard(wstring const& ns, CSharedText const& targetNamespace);

private:
    struct Entry {
        wstring const* m_source = nullptr;
        CSharedText m_text;
        CSmartPtr<CWildcard const> m_wildcard;
    };

    template <std::size_t kSize>
    static Entry& Find(std::array<Entry, kSize>& entries, wstring const& source);

    std::array<Entry, 64> m_names;
    std::array<Entry, 8> m_namespaces;
};

/// Makes elements of untyped content of those of one document, with all below them. Their depth takes no
/// stack.
class CContentReader {
public:
    /// For elements that are made in their namespaces.
    explicit CContentReader(CSharedText targetNamespace);
    /// For elements that are made in no namespace and moved to theirs.
    CContentReader();

    CSmartPtr<CReadItem<CElement>> Read(CXmlElement const& source);

private:
    struct Level {
        CElementCol* m_target;
        CXmlElement const* m_next;
    };

    CReadItem<CElement>* New(CXmlElement const& source);
    void Fill(CElement& target, CXmlElement const& source);

    CSharedNames m_names;
    CBlockMemory m_memory;
    CSharedText m_targetNamespace;
    CSmartPtr<CWildcard const> m_wildcard;  // of all elements; null if each has that of its namespace
    std::vector<Level> m_levels;
};

}  // namespace BxXmlLib5
