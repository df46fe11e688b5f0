#include "TaxCore/review/YearComparison.h"

#include "TaxCore/demo/DemoData.h"
#include "TaxCore/review/Advisor.h"
#include "tests/support/CaseFile.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace taxcore {
namespace {

std::vector<TaxCase> households(const std::string& region) {
    std::vector<TaxCase> cases;
    for (const auto& file : testing::readCaseFiles(region)) {
        cases.push_back(file.household);
    }
    return cases;
}

Decimal causes(const YearComparison& c) { return c.ageing + c.entries + c.rules + c.tariff + c.multipliers; }

TEST(YearComparison, causesAddUpForEveryHouseholdOfBothRegions) {
    for (const std::string region : {"sg", "li"}) {
        for (TaxCase earlier : households(region)) {
            TaxCase later = earlier;
            earlier.year = 2025;
            later.year = 2026;
            later.income1.selfEmployment += 12'345.65_dec;
            later.municipality = region == "sg" ? "Wil" : "Schaan";
            const auto comparison = YearComparison::of(earlier, later).value();
            EXPECT_EQ(causes(comparison), comparison.after - comparison.before);
            const auto tax = [](const TaxCase& taxCase) {
                return Advisor::totalTax(CaseCalculator::forCase(taxCase)->calculate(taxCase));
            };
            EXPECT_EQ(comparison.before, tax(earlier));
            EXPECT_EQ(comparison.after, tax(later));
        }
    }
}

TEST(YearComparison, separatesWhatTheHouseholdChangedFromWhatTheLawChanged) {
    const TaxCase demo = DemoData::family(2025);
    TaxCase raised = demo;
    raised.income1.salaries[0].grossSalary += 10'000;
    const auto sameYear = YearComparison::of(demo, raised).value();
    EXPECT_EQ(sameYear.entries, sameYear.difference());
    EXPECT_GT(sameYear.entries, Decimal(0));
    EXPECT_EQ(sameYear.rules + sameYear.tariff.abs() + sameYear.multipliers.abs(), Decimal(0));
    ASSERT_FALSE(sameYear.lines.empty());
    EXPECT_EQ(sameYear.lines.front().code, "haupterwerb1");
    EXPECT_EQ(sameYear.lines.front().cantonAfter - sameYear.lines.front().cantonBefore,
              Decimal(10'000));

    TaxCase single{.year = 2025}; // nothing that depends on the year is entered
    single.civilStatus = CivilStatus::ledig;
    single.income1.boardFees = 90'000;
    TaxCase next = single;
    next.year = 2026;
    const auto law = YearComparison::of(single, next).value();
    EXPECT_EQ(law.entries, Decimal(0));
    EXPECT_NE(law.tariff, Decimal(0)) << "both tariffs were adjusted for 2026";
}

TEST(YearComparison, listsLinesThatCameAndWent) {
    TaxCase earlier = DemoData::family(2025);
    TaxCase later = earlier;
    earlier.income1.selfEmployment = 0;
    later.income1.selfEmployment = 5'000;
    later.income1.boardFees = 0;
    const auto lines = YearComparison::of(earlier, later)->lines;
    const auto came = std::ranges::find(lines, "selbstaendig1", &LineChange::code);
    const auto went = std::ranges::find(lines, "sitzungsgelder1", &LineChange::code);
    ASSERT_NE(came, lines.end());
    ASSERT_NE(went, lines.end());
    EXPECT_EQ(came->cantonBefore, Decimal(0));
    EXPECT_EQ(went->cantonAfter, Decimal(0));
    EXPECT_EQ(went->cantonBefore, Decimal(1'200));
    EXPECT_LT(came, std::ranges::find(lines, "totalEinkuenfte", &LineChange::code));
}

TEST(YearComparison, householdsThatMovedBetweenRegionsDifferByTheirEntries) {
    const auto moved =
        YearComparison::of(DemoData::family(2025), DemoData::liechtensteinFamily(2026)).value();
    EXPECT_EQ(moved.entries, moved.difference());
    TaxCase unknown = DemoData::family(2025);
    unknown.year = 1999;
    EXPECT_FALSE(YearComparison::of(unknown, DemoData::family(2025)).has_value());
}

} // namespace
} // namespace taxcore
