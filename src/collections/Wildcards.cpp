#include "collections/Wildcards.h"

#include <utility>

#include "core/NeverDestroyed.h"

namespace BxXmlLib5 {

CWildcard::CWildcard(CSharedText defaultNamespace, CSharedText namespaceRestriction,
                     CSharedText targetNamespace)
    : m_defaultNamespace(std::move(defaultNamespace)),
      m_namespaceRestriction(std::move(namespaceRestriction)),
      m_targetNamespace(std::move(targetNamespace)) {}

bool CWildcard::Equals(CWildcard const& other) const {
    return m_defaultNamespace == other.m_defaultNamespace &&
           m_namespaceRestriction == other.m_namespaceRestriction &&
           m_targetNamespace == other.m_targetNamespace;
}

bool CWildcard::IsAny(std::u16string_view defaultNamespace, std::u16string_view targetNamespace) const {
    return m_defaultNamespace == defaultNamespace && m_targetNamespace == targetNamespace &&
           m_namespaceRestriction == AnyNamespace();
}

CSmartPtr<CWildcard const> CWildcard::OfContent() const {
    if (m_namespaceRestriction == AnyNamespace()) return this;
    return AnyWildcard(m_defaultNamespace, m_targetNamespace);
}

CSmartPtr<CWildcard const> MakeWildcard(CSharedText const& defaultNamespace,
                                        std::u16string_view namespaceRestriction,
                                        std::u16string_view targetNamespace) {
    CSharedText const target(targetNamespace);
    if (AnyNamespace() == namespaceRestriction) return AnyWildcard(defaultNamespace, target);
    CSharedText restriction = defaultNamespace;  // mostly the same
    restriction.Set(namespaceRestriction);
    return new CWildcard(defaultNamespace, restriction, target);
}

CSharedText const& AnyNamespace() {
    static NeverDestroyed<CSharedText> const s_any(u"##any");
    return *s_any;
}

CSmartPtr<CWildcard const> AnyWildcard(CSharedText const& defaultNamespace,
                                       CSharedText const& targetNamespace) {
    // Nearly all elements that are made by hand have this one.
    static NeverDestroyed<CSmartPtr<CWildcard const>> const s_none(new CWildcard({}, AnyNamespace(), {}));
    if (defaultNamespace.empty() && targetNamespace.empty()) return *s_none;
    return new CWildcard(defaultNamespace, AnyNamespace(), targetNamespace);
}

std::u16string_view DefaultNamespace(std::u16string_view ns, std::u16string_view namespaceRestriction) {
    if (!ns.empty()) return ns;
    std::u16string_view const token = namespaceRestriction.substr(0, namespaceRestriction.find(u' '));
    bool const isConcrete = token.size() >= 2 && token[0] != u'#' && token[1] != u'#';
    return isConcrete ? token : std::u16string_view();
}

}  // namespace BxXmlLib5
