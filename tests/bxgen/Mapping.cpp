// How components are mapped: the plan's types, properties and rows.

#include <gtest/gtest.h>

#include "Cases.h"
#include "PlanText.h"

namespace BxGen {
namespace {

TEST(Mapping, GivesThePlanOfEachCase) {
    Folder const folder;
    for (Case const& each : CasesIn("mapping")) {
        folder.Put("a.xsd", Schema(each.m_body, each.m_attributes));
        EXPECT_EQ(PlanOf(folder), each.m_outcome) << each.m_place;
    }
}

}  // namespace
}  // namespace BxGen
