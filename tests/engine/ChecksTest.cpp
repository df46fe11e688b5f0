#include "tests/support/RandomCase.h"
#include "tests/support/ReviewCase.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>

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

/// The ids that a calculation's notices can have, as they stand in its source; those that end in a
/// hyphen take the number of a person.
std::set<std::string> idsOfCalculation(const std::string& folder) {
    static const std::regex id(R"re((?:\.id = |perPerson\()"([^"]+)")re");
    std::ifstream in(FISCAREL_SOURCE_DIR "/TaxCore/" + folder + "/Notices.cpp");
    const std::string text(std::istreambuf_iterator<char>(in), {});
    std::set<std::string> ids;
    for (std::sregex_iterator at(text.begin(), text.end(), id), end; at != end; ++at) {
        const std::string found = (*at)[1];
        for (const char* person : {"1", "2"}) {
            ids.insert(found.ends_with('-') ? found + person : found);
        }
    }
    return ids;
}

TEST(Checks, leadFromEveryNoticeOfTheCalculationToAField) {
    const std::set<std::string> withoutField{"li-pk-max"};
    std::size_t tried = 0;
    for (const auto& [folder, taxCase] :
         {std::pair("stgallen", testing::spotlessHousehold()),
          std::pair("liechtenstein", testing::spotlessLiechtenstein())}) {
        const auto calculator = CaseCalculator::forCase(taxCase).value();
        TaxResult result = calculator.calculate(taxCase);
        for (const std::string& id : idsOfCalculation(folder)) {
            result.notices.emplace_back().id = id;
        }
        for (const Notice& notice :
             Checks::of({calculator, taxCase, result, Date::of(2026, 3, 1).value()})) {
            ++tried;
            EXPECT_EQ(notice.path.has_value(), !withoutField.contains(notice.id)) << notice.id;
            EXPECT_TRUE(!notice.path || valueAt(taxCase, *notice.path)) << *notice.path;
            EXPECT_TRUE(!notice.id.ends_with("-2") || notice.path->starts_with("deductions2."))
                << notice.id;
        }
    }
    EXPECT_EQ(tried, 17U);
}

} // namespace
} // namespace taxcore
