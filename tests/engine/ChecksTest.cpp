#include "tests/support/ReviewCase.h"

#include <gtest/gtest.h>

namespace taxcore {
namespace {

using testing::expectChecks;

TEST(Checks, findNothingInAHouseholdInOrder) {
    EXPECT_EQ(testing::reviewedIds(testing::spotlessHousehold()), std::set<std::string>{});
    EXPECT_EQ(testing::reviewedIds(testing::spotlessLiechtenstein()), std::set<std::string>{});
}

TEST(FamilyChecks, speakUp) {
    expectChecks({
        {"name-fehlt-1", [](TaxCase& c) { c.person1.lastName = " "; },
         [](TaxCase& c) { c.person1.lastName = "M"; }},
        {"name-fehlt-2", [](TaxCase& c) { c.person2.firstName = ""; },
         [](TaxCase& c) {
             c.person2.firstName = "";
             c.civilStatus = CivilStatus::geschieden;
         }},
    });
}

} // namespace
} // namespace taxcore
