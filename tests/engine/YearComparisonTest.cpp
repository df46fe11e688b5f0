#include "TaxCore/review/YearComparison.h"

#include "TaxCore/demo/DemoData.h"
#include "TaxCore/review/Advisor.h"
#include "TaxCore/review/Review.h"
#include "tests/support/CaseFile.h"
#include "tests/support/ReviewCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace taxcore {
namespace {

using Change = std::function<void(TaxCase&)>;

std::vector<TaxCase> households(const std::string& region) {
    std::vector<TaxCase> cases;
    for (const auto& file : testing::readCaseFiles(region)) {
        cases.push_back(file.household);
    }
    return cases;
}

Decimal taxOf(const TaxCase& taxCase) {
    return Advisor::totalTax(CaseCalculator::forCase(taxCase)->calculate(taxCase));
}

Decimal causes(const YearComparison& c) {
    return c.ageing + c.entries + c.rules + c.tariff + c.multipliers;
}

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
            EXPECT_EQ(comparison.before, taxOf(earlier));
            EXPECT_EQ(comparison.after, taxOf(later));
        }
    }
}

/// A year more is the same as everybody and everything being a year older from the start.
TEST(YearComparison, ageingIsWhatEarlierBirthsAndPurchasesWouldHaveChanged) {
    int changed = 0;
    for (const std::string region : {"sg", "li"}) {
        for (TaxCase earlier : households(region)) {
            earlier.year = 2025;
            TaxCase later = earlier;
            later.year = 2026;
            TaxCase older = earlier;
            for (Child& child : older.children) {
                if (child.birthDate) {
                    const Date& born = *child.birthDate;
                    child.birthDate =
                        Date::of(born.year() - 1, born.month(), std::min(born.day(), 28));
                }
            }
            for (Vehicle& vehicle : older.vehicles) {
                if (vehicle.purchaseYear) {
                    --*vehicle.purchaseYear;
                }
            }
            const auto comparison = YearComparison::of(earlier, later).value();
            EXPECT_EQ(comparison.ageing, taxOf(older) - taxOf(earlier));
            EXPECT_EQ(comparison.entries, Decimal(0));
            changed += comparison.ageing.isZero() ? 0 : 1;
        }
    }
    EXPECT_GE(changed, 5) << "households with children at a limit or vehicles";
}

/// A household, how it goes on in the later year, and every cause of the change.
struct CauseRow {
    const char* name;
    std::function<TaxCase()> household;
    Change before; ///< what both years have
    Change change; ///< what the later one has besides
    Decimal ageing;
    Decimal entries;
    Decimal rules;
    Decimal tariff;
    Decimal multipliers;
};

TaxCase single(const char* municipality) {
    TaxCase taxCase{.year = 2025};
    taxCase.civilStatus = CivilStatus::ledig;
    taxCase.municipality = municipality;
    return taxCase;
}
TaxCase inAmden() { return single("Amden"); }
TaxCase inStGallen() { return single("St.Gallen"); }

void nextYear(TaxCase& c) { c.year = 2026; }

std::vector<CauseRow> causeRows() {
    const auto nothing = [](TaxCase&) {};
    return {
        {"same year, a raise", testing::spotlessHousehold, nothing,
         [](TaxCase& c) { c.income1.salaries[0].grossSalary += 10'000; }, 0, 2'415, 0, 0, 0},
        // Premiums of 9'000 meet a ceiling that rises from 8'100 by 900; 10 % of it.
        {"li, a child turns 17", testing::spotlessLiechtenstein,
         [](TaxCase& c) { c.children[0].birthDate = Date::of(2009, 3, 1); }, nextYear, -90, 0, 0, 0,
         0},
        {"li, a child turns 17 and a raise", testing::spotlessLiechtenstein,
         [](TaxCase& c) { c.children[0].birthDate = Date::of(2009, 3, 1); },
         [](TaxCase& c) {
             c.year = 2026;
             c.income1.salaries[0].grossSalary += 10'000;
         },
         -90, 1'000, 0, 0, 0},
        {"li, nothing changes", testing::spotlessLiechtenstein, nothing, nextYear, 0, 0, 0, 0, 0},
        // 20'000 less at 1.7 per mille, times 105 and 138 percent, each to 5 Rappen.
        {"a car loses a fifth", inStGallen,
         [](TaxCase& c) {
             c.otherAssets = 400'000;
             Vehicle& car = c.vehicles.emplace_back();
             car.purchasePrice = 100'000;
             car.purchaseYear = 2024;
         },
         nextYear, -82.65_dec, 0, 0, 0, 0},
        // The canton's simple tax of 2026, by four percent less.
        {"the municipality lowers its multiplier", inAmden,
         [](TaxCase& c) { c.income1.boardFees = 90'000; }, nextYear, 0, 0, 0, -6.2_dec, -244},
        // 4'000 kilometres at 5 Rappen more.
        {"the kilometre counts for more", inStGallen,
         [](TaxCase& c) {
             c.income1.salaries.emplace_back().grossSalary = 90'000;
             c.deductions1.work.carKmOneWay = 10;
             c.deductions1.work.carWorkDays = 200;
             c.deductions1.work.carJustification = "keine Verbindung";
         },
         nextYear, 0, 0, -57.9_dec, -6.55_dec, 0},
    };
}

TEST(YearComparison, tellsEveryCauseByItself) {
    for (const CauseRow& row : causeRows()) {
        SCOPED_TRACE(row.name);
        TaxCase earlier = row.household();
        row.before(earlier);
        TaxCase later = earlier;
        row.change(later);
        const auto c = YearComparison::of(earlier, later).value();
        EXPECT_EQ(c.ageing, row.ageing);
        EXPECT_EQ(c.entries, row.entries);
        EXPECT_EQ(c.rules, row.rules);
        EXPECT_EQ(c.tariff, row.tariff);
        EXPECT_EQ(c.multipliers, row.multipliers);
        EXPECT_EQ(causes(c), c.after - c.before);
        const auto calculator = CaseCalculator::forCase(later).value();
        EXPECT_EQ(YearComparison::of(earlier, later, calculator, calculator.calculate(later)), c);
    }
}

/// What the rows above state, worked out from bills.
TEST(YearComparison, rulesAndMultipliersAreWhatTheBillsSay) {
    TaxCase earlier = inAmden();
    earlier.income1.boardFees = 90'000;
    TaxCase later = earlier;
    later.year = 2026;
    const auto bill = CaseCalculator::forCase(later)->calculate(later).bill;
    const auto comparison = YearComparison::of(earlier, later).value();
    const Decimal lowered = bill.simpleIncomeTax * (99 - 103) / 100;
    EXPECT_LE((comparison.multipliers - lowered).abs(), 0.05_dec) << "the bill goes by 5 Rappen";

    const TaxCase car = [] {
        TaxCase taxCase = inStGallen();
        causeRows().back().before(taxCase);
        return taxCase;
    }();
    const auto calculator = CaseCalculator::forCase(car).value();
    const TaxResult result = calculator.calculate(car);
    const TaxBill lower = calculator.billFor(car, result, result.bill.taxableIncomeCanton - 200,
                                             result.bill.taxableIncomeFederal - 200);
    EXPECT_EQ(causeRows().back().rules, lower.total() - result.bill.total());
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

TEST(YearComparison, reviewTellsWhyThereIsNone) {
    const TaxCase now = testing::spotlessHousehold();
    TaxCase before = now;
    before.year = 2024;
    const auto calculator = CaseCalculator::forCase(now).value();
    const TaxResult result = calculator.calculate(now);
    ReviewInput input{calculator, now, result, Date::of(2026, 3, 1).value()};
    const Review alone = Review::of(input);
    EXPECT_FALSE(alone.change || alone.changeMissing);
    input.otherYears = {&before};
    const Review without = Review::of(input);
    EXPECT_FALSE(without.change.has_value());
    EXPECT_EQ(without.changeMissing,
              "Für 2024 gibt es keine Regeln; der Vergleich mit dem Vorjahr fehlt.");

    TaxCase next = now;
    next.year = 2026;
    const auto later = CaseCalculator::forCase(next).value();
    const TaxResult computed = later.calculate(next);
    ReviewInput following{later, next, computed, Date::of(2027, 3, 1).value()};
    following.otherYears = {&now, &before};
    const Review compared = Review::of(following);
    EXPECT_EQ(compared.change, YearComparison::of(now, next).value());
    EXPECT_FALSE(compared.changeMissing.has_value());
}

} // namespace
} // namespace taxcore
