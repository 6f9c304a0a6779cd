#include "collections/FacetChecks.h"

#include "BxXmlLib5/binding/CBxException.h"

namespace BxXmlLib5 {

void CheckRestrictions(ItemType, CPrimitiveRestrictions const& facets, char16_t const*, BxVariant const&) {
    bool const isRestricted = facets.m_minLength >= 0 || facets.m_maxLength >= 0 || facets.m_length >= 0 ||
                              !facets.m_pattern.empty() || !facets.m_minInclusive.empty() ||
                              !facets.m_maxInclusive.empty() || !facets.m_minExclusive.empty() ||
                              !facets.m_maxExclusive.empty();
    if (isRestricted) throw CBxException(u"Facets are not tested yet");
}

}  // namespace BxXmlLib5
