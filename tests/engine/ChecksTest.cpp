#include "tests/support/RandomCase.h"
#include "tests/support/ReviewCase.h"

#include <gtest/gtest.h>

namespace taxcore {
namespace {

TEST(Checks, findNothingInAHouseholdInOrder) {
    EXPECT_EQ(testing::reviewedIds(testing::spotlessHousehold()), std::set<std::string>{});
    EXPECT_EQ(testing::reviewedIds(testing::spotlessLiechtenstein()), std::set<std::string>{});
}

TEST(Checks, nameEachFaultOnceAndLeadToFieldsWhateverIsEntered) {
    testing::RandomCase random(20251231);
    for (int i = 0; i < 500; ++i) {
        TaxCase taxCase = random.next();
        taxCase.year = 2025 + i % 2;
        std::set<std::string> ids;
        for (const Notice& notice : testing::reviewed(taxCase)) {
            EXPECT_TRUE(ids.insert(notice.id).second) << notice.id;
            EXPECT_TRUE(!notice.path || valueAt(taxCase, *notice.path)) << *notice.path;
        }
    }
}

} // namespace
} // namespace taxcore
