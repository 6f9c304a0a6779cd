#include "BxXmlLib5/collections/CPrimitiveRestrictions.h"

#include <tuple>

#include "support/Expect.h"

namespace {

using BxXmlLib5::CPrimitiveRestrictions;

auto Fields(CPrimitiveRestrictions const& facets) {
    return std::tuple(facets.m_pattern, facets.m_minLength, facets.m_maxLength, facets.m_minInclusive,
                      facets.m_maxInclusive, facets.m_minExclusive, facets.m_maxExclusive, facets.m_length);
}

TEST(CPrimitiveRestrictions, KeepsTheFacetsApart) {
    CPrimitiveRestrictions const facets(u"p", 1, 2, u"a", u"b", u"c", u"d", 3);
    EXPECT_EQ(Fields(facets), std::tuple(u"p", 1, 2, u"a", u"b", u"c", u"d", 3));
}

TEST(CPrimitiveRestrictions, RestrictsNothingByDefault) {
    auto const nothing = std::tuple(u"", -1, -1, u"", u"", u"", u"", -1);
    EXPECT_EQ(Fields(CPrimitiveRestrictions()), nothing);
    EXPECT_EQ(Fields(CPrimitiveRestrictions(nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1)),
              nothing);
}

}  // namespace
