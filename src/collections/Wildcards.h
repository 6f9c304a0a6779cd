// What untyped content takes from a schema wildcard.
#pragma once

#include <string_view>

#include "BxXmlLib5/core/CCounted.h"
#include "BxXmlLib5/core/CSharedText.h"
#include "BxXmlLib5/core/CSmartPtr.h"

namespace BxXmlLib5 {

/// What an element or a collection was made with. Most objects of a tree share one.
struct CWildcard : CCounted<CWildcard> {
    CWildcard(CSharedText defaultNamespace, CSharedText namespaceRestriction, CSharedText targetNamespace);

    bool Equals(CWildcard const& other) const;

    /// Whether it allows every namespace, and has these two.
    bool IsAny(std::u16string_view defaultNamespace, std::u16string_view targetNamespace) const;

    /// What stands below an element is not restricted.
    CSmartPtr<CWildcard const> OfContent() const;

    CSharedText const m_defaultNamespace;  // of what is added without a namespace
    CSharedText const m_namespaceRestriction;
    CSharedText const m_targetNamespace;
};

/// The restriction that allows every namespace.
CSharedText const& AnyNamespace();

CSmartPtr<CWildcard const> MakeWildcard(CSharedText const& defaultNamespace,
                                        std::u16string_view namespaceRestriction,
                                        std::u16string_view targetNamespace);

/// A wildcard that allows every namespace.
CSmartPtr<CWildcard const> AnyWildcard(CSharedText const& defaultNamespace,
                                       CSharedText const& targetNamespace);

/// The namespace that a collection was given or, if that is empty, the first token of its restriction where
/// that is a concrete namespace; empty for none.
std::u16string_view DefaultNamespace(std::u16string_view ns, std::u16string_view namespaceRestriction);

}  // namespace BxXmlLib5
