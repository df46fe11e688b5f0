#include "Fiscarel_SG/pages/overview/Scenario.h"

#include "Fiscarel_SG/pages/overview/BillShares.h"
#include "Fiscarel_SG/pages/overview/Progress.h"
#include "TaxCore/demo/DemoData.h"
#include "TaxCore/review/Advisor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace fiscarel::pages {
namespace {

using namespace taxcore;

struct Played {
    explicit Played(TaxCase household)
        : taxCase(std::move(household)), calculator(CaseCalculator::forCase(taxCase).value()) {
        scenario.setLevers(leversOf(taxCase, calculator));
    }

    const Lever* lever(std::string_view id) const {
        const auto found = std::ranges::find_if(
            scenario.levers(), [&](const Lever& one) { return one.id.starts_with(id); });
        return found != scenario.levers().end() ? &*found : nullptr;
    }
    std::set<std::string> changedPaths() const {
        std::set<std::string> paths;
        for (const FieldChange& change : diff(taxCase, scenario.applied(taxCase))) {
            paths.insert(change.path);
        }
        return paths;
    }
    Decimal tax(const TaxCase& of) const { return Advisor::totalTax(calculator.calculate(of)); }

    TaxCase taxCase;
    CaseCalculator calculator;
    Scenario scenario;
};

TEST(Scenario, aLeverWritesItsFieldsAndNoOthers) {
    struct Row {
        const char* lever;
        int value;
        std::set<std::string> paths;
        int sign; ///< of the change of the tax
    };
    const std::vector<Row> rows{
        {"pillar3a-1", 2'000, {"deductions1.pillar3a"}, 1},
        {"pillar3a-2", 6'000, {"deductions2.pillar3a"}, -1},
        {"pensionBuyIn-1", 20'000, {"deductions1.pensionBuyIn"}, -1},
        {"pensionBuyIn-2", 0, {"deductions2.pensionBuyIn"}, 1},
        {"salary-1",
         130'000,
         {"income1.salaries[0].grossSalary", "income1.salaries[0].socialContributions",
          "income1.salaries[0].pensionContributions"},
         1},
        {"gifts", 3'000, {"householdDeductions.donations[3]"}, -1},
        {"maintenance",
         25'000,
         {"realEstate[0].useFlatRateMaintenance", "realEstate[0].actualMaintenanceCosts"},
         -1},
    };
    for (const Row& row : rows) {
        Played played(DemoData::family(2025));
        const Lever* const lever = played.lever(row.lever);
        ASSERT_NE(lever, nullptr) << row.lever;
        played.scenario.move(*lever, row.value);
        EXPECT_EQ(played.changedPaths(), row.paths) << row.lever;
        const Decimal change =
            played.tax(played.scenario.applied(played.taxCase)) - played.tax(played.taxCase);
        EXPECT_TRUE(row.sign > 0 ? change > 0 : change < 0) << row.lever << ": " << change;
    }
}

TEST(Scenario, untouchedOrMovedBackItIsTheCaseItself) {
    for (const TaxRegion region : {TaxRegion::stGallen, TaxRegion::liechtenstein}) {
        Played played(DemoData::household(region, 2025));
        EXPECT_EQ(played.scenario.applied(played.taxCase), played.taxCase);
        for (const Lever& lever : played.scenario.levers()) {
            // Where a lever begins is what the case counts with already.
            TaxCase written = played.taxCase;
            lever.apply(written, lever.now);
            EXPECT_EQ(played.tax(written), played.tax(played.taxCase)) << lever.id;
            played.scenario.move(lever, lever.most);
            EXPECT_TRUE(played.scenario.isMoved());
            played.scenario.move(lever, lever.now);
            EXPECT_FALSE(played.scenario.isMoved()) << lever.id;
        }
        EXPECT_EQ(played.scenario.applied(played.taxCase), played.taxCase);
    }
}

TEST(Scenario, aHigherSalaryTakesItsContributionsAlong) {
    Played played(DemoData::family(2025));
    SalaryCertificate& only = played.taxCase.income2.salaries.front();
    only.netSalaryOverride = 50'000;
    played.scenario.setLevers(leversOf(played.taxCase, played.calculator));
    played.scenario.move(*played.lever("salary-2"), 31'200); // half of 62'400
    const TaxCase half = played.scenario.applied(played.taxCase);
    const SalaryCertificate& certificate = half.income2.salaries.front();
    EXPECT_EQ(certificate.grossSalary, 31'200);
    EXPECT_EQ(certificate.socialContributions, 1'996.80_dec);
    EXPECT_EQ(certificate.pensionContributions, 1'560);
    EXPECT_EQ(certificate.netSalaryOverride, Decimal(25'000));
    played.scenario.move(*played.lever("salary-2"), 0);
    EXPECT_EQ(played.scenario.applied(played.taxCase).income2.salaries.front().netSalary(), 0);
}

TEST(Scenario, leversStandOnlyWhereTheyMakeSense) {
    TaxCase single = DemoData::family(2025);
    single.civilStatus = CivilStatus::ledig;
    single.person1.hasPensionFund = true;
    TaxCase old = DemoData::family(2025);
    old.person1.birthDate = Date::of(1950, 1, 1).value();
    TaxCase jobless = DemoData::family(2025);
    jobless.income2 = {};
    jobless.deductions2 = {};
    TaxCase absurd = DemoData::family(2025);
    absurd.deductions1.pillar3a = Decimal::largest();
    struct Row {
        const char* name;
        TaxCase taxCase;
        std::vector<const char*> there;
        std::vector<const char*> missing;
    };
    const std::vector<Row> rows{
        {"family",
         DemoData::family(2025),
         {"pillar3a-1", "pillar3a-2", "pensionBuyIn-1", "salary-2", "gifts", "maintenance"},
         {"newSalary"}},
        {"single", single, {"pillar3a-1"}, {"pillar3a-2", "pensionBuyIn-2", "salary-2"}},
        {"retired", old, {"salary-1"}, {"pensionBuyIn-1"}},
        {"one income", jobless, {"newSalary-2"}, {"salary-2", "pillar3a-2", "pensionBuyIn-2"}},
        {"typing error", absurd, {"pillar3a-2"}, {"pillar3a-1"}},
        {"Liechtenstein",
         DemoData::liechtensteinFamily(2025),
         {"pensionBuyIn-1", "salary-1", "gifts"},
         {"pillar3a", "maintenance"}},
    };
    for (const Row& row : rows) {
        const Played played(row.taxCase);
        for (const char* id : row.there) {
            EXPECT_NE(played.lever(id), nullptr) << row.name << " " << id;
        }
        for (const char* id : row.missing) {
            EXPECT_EQ(played.lever(id), nullptr) << row.name << " " << id;
        }
    }
}

TEST(Scenario, positionsOfASliderReachBothEndsAndStayWithin) {
    Lever lever{.id = "x", .least = 0, .most = 7'258, .step = 100};
    EXPECT_EQ(lever.lastPosition(), 73);
    EXPECT_EQ(lever.at(0), 0);
    EXPECT_EQ(lever.at(72), 7'200);
    EXPECT_EQ(lever.at(73), 7'258);
    EXPECT_EQ(lever.at(99), 7'258);
    EXPECT_EQ(lever.positionOf(7'258), 73);
    EXPECT_EQ(lever.positionOf(4'049.95_dec), 40);
    EXPECT_EQ(lever.positionOf(-500), 0);
    lever.most = 100;
    EXPECT_EQ(lever.lastPosition(), 1);
    Scenario scenario;
    scenario.setLevers({lever});
    scenario.move(lever, 900);
    EXPECT_EQ(scenario.value(lever), 100);
}

TEST(Scenario, whatWasMovedOutlivesAnEditOfSomethingElse) {
    Played played(DemoData::family(2025));
    played.scenario.move(*played.lever("pillar3a-2"), 6'000);
    played.scenario.move(*played.lever("maintenance"), 9'000);
    played.scenario.move(*played.lever("salary-1"), 100'000);
    // The house is sold, the contribution entered as imagined, and cash found.
    played.taxCase.realEstate.clear();
    played.taxCase.deductions2.pillar3a = 6'000;
    played.taxCase.cash = 9'999;
    played.scenario.setLevers(leversOf(played.taxCase, played.calculator));
    EXPECT_FALSE(played.scenario.isMoved(*played.lever("pillar3a-2")));
    EXPECT_TRUE(played.scenario.isMoved(*played.lever("salary-1")));
    const TaxCase applied = played.scenario.applied(played.taxCase);
    EXPECT_TRUE(applied.realEstate.empty());
    EXPECT_EQ(applied.income1.salaries.front().grossSalary, 100'000);
}

TEST(BillShares, addUpToEverythingPaidForTheYear) {
    TaxCase withoutChurch = DemoData::family(2025);
    withoutChurch.person1.confession = Confession::keine;
    withoutChurch.person2.confession = Confession::keine;
    withoutChurch.capitalPayments.clear();
    struct Row {
        TaxCase taxCase;
        std::size_t recipients;
    };
    const std::vector<Row> rows{{DemoData::family(2025), 5},
                                {withoutChurch, 3},
                                {TaxCase{.year = 2025}, 3},
                                {DemoData::liechtensteinFamily(2025), 2}};
    for (const Row& row : rows) {
        const Played played(row.taxCase);
        const TaxResult result = played.calculator.calculate(row.taxCase);
        const auto shares = billShares(result, row.taxCase.taxRegion());
        EXPECT_EQ(shares.size(), row.recipients);
        Decimal sum;
        for (const BillShare& share : shares) {
            sum += share.amount;
            EXPECT_GE(share.percent, 0);
        }
        EXPECT_EQ(sum, Advisor::totalTax(result));
    }
}

TEST(Progress, countsWhatStandsThereAndWhatIsOpen) {
    TaxCase household = DemoData::family(2025);
    const std::vector<Notice> notices{
        {.id = "a", .level = Notice::Level::error, .area = "income"},
        {.id = "b", .level = Notice::Level::warning, .area = "income"},
        {.id = "c", .level = Notice::Level::info, .area = "income"},
        {.id = "d", .level = Notice::Level::warning},
    };
    auto pages = progressOf(household, notices);
    ASSERT_EQ(pages.size(), 6U);
    for (const PageProgress& page : pages) {
        EXPECT_TRUE(page.hasEntries) << page.id;
        EXPECT_EQ(page.open, page.id == "income" ? 2 : 0) << page.id;
    }
    EXPECT_EQ(pages[0].detail, "2 Personen, 2 Kinder");
    EXPECT_EQ(pages[1].detail, "3 Lohnausweise");

    // The second person of a single household counts nowhere.
    TaxCase single{.year = 2025};
    single.civilStatus = CivilStatus::ledig;
    single.income2 = household.income2;
    single.deductions2 = household.deductions2;
    single.person2 = household.person2;
    for (const PageProgress& page : progressOf(single, {})) {
        EXPECT_FALSE(page.hasEntries) << page.id;
    }
    single.deductions1.work.mealDays = 100;
    pages = progressOf(single, {});
    EXPECT_TRUE(pages[2].hasEntries);
    EXPECT_EQ(pages[2].detail, "Angaben vorhanden");
}

TEST(Progress, aNewCaseIsUntouchedWhateverItsRegion) {
    TaxCase fresh{.year = 2026};
    fresh.region = TaxRegion::liechtenstein;
    fresh.municipality = "Triesen";
    fresh.civilStatus = CivilStatus::ledig;
    fresh.li = LIExtras{};
    EXPECT_TRUE(isUntouched(fresh));
    fresh.li->householdGoods = 1;
    EXPECT_FALSE(isUntouched(fresh));
    EXPECT_FALSE(isUntouched(DemoData::family(2025)));
}

} // namespace
} // namespace fiscarel::pages
