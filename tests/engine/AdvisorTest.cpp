#include "TaxCore/review/Advisor.h"

#include "TaxCore/demo/DemoData.h"
#include "TaxCore/review/Review.h"
#include "tests/support/CaseFile.h"
#include "tests/support/Computed.h"
#include "tests/support/ReviewCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <tuple>

namespace taxcore {
namespace {

using testing::Computed;
using testing::inTheYear;
using testing::spotlessHousehold;
using testing::spotlessLiechtenstein;
using Change = std::function<void(TaxCase&)>;

/// A tip, a household it is for, what it proposes, and one it is not for.
struct TipRow {
    const char* id;
    const char* law; ///< an article that the message names
    Change forHousehold;
    Change proposed;
    Change notFor;
    std::function<TaxCase()> household = spotlessHousehold;
};

TaxCase laterHousehold() {
    TaxCase taxCase = spotlessHousehold();
    taxCase.year = 2026;
    return taxCase;
}

RealEstate house(bool flat, const Decimal& actual) {
    RealEstate home;
    home.taxValue = 500'000;
    home.imputedRentalValue = 20'000;
    home.useFlatRateMaintenance = flat;
    home.actualMaintenanceCosts = actual;
    return home;
}

RealEstate secondHome(const char* municipality) {
    RealEstate home = house(true, 0);
    home.municipality = municipality;
    home.isPrimaryResidence = false;
    return home;
}

SecurityEntry fund(AssetKind kind) {
    SecurityEntry entry;
    entry.kind = kind;
    entry.taxValue = 300'000;
    return entry;
}

std::vector<TipRow> stGallenRows() {
    return {
        {"tipp-3a-1", "BVV 3 Art. 7", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions1.pillar3a = 7'258; },
         [](TaxCase& c) { c.deductions1.pillar3a = 7'258; }},
        {"tipp-3a-einkauf-2", "BVV 3 Art. 7a", [](TaxCase& c) { c.deductions2.pillar3a = 7'258; },
         [](TaxCase& c) { c.deductions2.pillar3aBuyIn = 7'258; },
         [](TaxCase& c) { c.deductions2.pillar3a = 7'257; }, laterHousehold},
        {"tipp-pk-einkauf-1", "BVG Art. 79b", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions1.pensionBuyIn += 7'000; },
         [](TaxCase& c) {
             CapitalPayment& drawn = c.capitalPayments.emplace_back();
             drawn.kind = CapitalPayment::Kind::saeule2;
             drawn.amount = 50'000;
         }},
        {"tipp-uebrige-berufskosten-1", "DBG Art. 26",
         [](TaxCase& c) { c.deductions1.work.actualOtherCosts = 5'000; },
         [](TaxCase& c) { c.deductions1.work.useActualOtherCosts = true; },
         [](TaxCase& c) { c.deductions1.work.actualOtherCosts = 300; }},
        {"tipp-uebrige-berufskosten-2", "BKV Art. 7",
         [](TaxCase& c) {
             c.deductions2.work.useActualOtherCosts = true;
             c.deductions2.work.actualOtherCosts = 100;
         },
         [](TaxCase& c) { c.deductions2.work.useActualOtherCosts = false; },
         [](TaxCase& c) {
             c.deductions2.work.useActualOtherCosts = true;
             c.deductions2.work.actualOtherCosts = 9'000;
         }},
        {"tipp-nebenerwerb-1", "BKV Art. 10",
         [](TaxCase& c) {
             SalaryCertificate& side = c.income1.salaries.emplace_back();
             side.isMainEmployment = false;
             side.grossSalary = 6'000;
             c.deductions1.work.sideJobActualCosts = 3'500;
         },
         [](TaxCase& c) { c.deductions1.work.sideJobUseActual = true; },
         [](TaxCase& c) {
             SalaryCertificate& side = c.income1.salaries.emplace_back();
             side.isMainEmployment = false;
             side.grossSalary = 6'000;
             c.deductions1.work.sideJobActualCosts = 700;
         }},
        {"tipp-auto-1", "BKV Art. 3",
         [](TaxCase& c) {
             c.deductions1.work.carKmOneWay = 20;
             c.deductions1.work.carWorkDays = 200;
         },
         [](TaxCase& c) { c.deductions1.work.carJustification = "Schichtbeginn um vier Uhr"; },
         [](TaxCase& c) {
             c.deductions1.work.carKmOneWay = 20;
             c.deductions1.work.carWorkDays = 200;
             c.deductions1.work.carJustification = "Schichtbeginn um vier Uhr";
         }},
        // The car instead of the train: 5'600 francs instead of 1'000, not beside them.
        {"tipp-auto-1", "BKV Art. 3",
         [](TaxCase& c) {
             c.deductions1.work.publicTransportCost = 1'000;
             c.deductions1.work.carKmOneWay = 20;
             c.deductions1.work.carWorkDays = 200;
         },
         [](TaxCase& c) {
             c.deductions1.work.publicTransportCost = 0;
             c.deductions1.work.carJustification = "Schichtbeginn um vier Uhr";
         },
         [](TaxCase& c) {
             c.deductions1.work.publicTransportCost = 5'600;
             c.deductions1.work.carKmOneWay = 20;
             c.deductions1.work.carWorkDays = 200;
         }},
        {"tipp-arbeitsweg-2", "BKV Art. 5", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions2.work.useBicycle = true; },
         [](TaxCase& c) { c.deductions2.work.publicTransportCost = 1; }},
        {"tipp-weiterbildung-1", "DBG Art. 33 Abs. 1 Bst. j",
         [](TaxCase& c) { c.deductions1.furtherEducation = 300; },
         [](TaxCase& c) { c.deductions1.furtherEducationFlatRate = true; },
         [](TaxCase& c) { c.deductions1.furtherEducation = 400; }},
        {"tipp-unterhalt-1", "DBG Art. 32 Abs. 2",
         [](TaxCase& c) { c.realEstate.push_back(house(true, 9'000)); },
         [](TaxCase& c) { c.realEstate[0].useFlatRateMaintenance = false; },
         [](TaxCase& c) { c.realEstate.push_back(house(true, 2'800)); }},
        {"tipp-unterhalt-1", "SR 642.116 Art. 5 Abs. 3",
         [](TaxCase& c) {
             c.realEstate.push_back(house(false, 1'000));
             c.realEstate[0].use = PropertyUse::vermietet;
             c.realEstate[0].rentalIncome = 24'000;
         },
         [](TaxCase& c) { c.realEstate[0].useFlatRateMaintenance = true; },
         [](TaxCase& c) {
             c.realEstate.push_back(house(false, 4'800));
             c.realEstate[0].use = PropertyUse::vermietet;
             c.realEstate[0].rentalIncome = 24'000;
         }},
        {"tipp-hauptwohnsitz-2", "StG SG Art. 34 Abs. 3",
         [](TaxCase& c) {
             c.realEstate = {secondHome("Wil"), secondHome("St.Gallen"), secondHome("St.Gallen")};
             c.realEstate[2].use = PropertyUse::vermietet;
         },
         [](TaxCase& c) { c.realEstate[1].isPrimaryResidence = true; },
         [](TaxCase& c) {
             c.realEstate = {secondHome("Wil"), secondHome("St.Gallen"), secondHome("St.Gallen")};
         }},
        {"tipp-hauptwohnsitz-1", "DBG Art. 21",
         [](TaxCase& c) {
             c.realEstate = {secondHome("St.Gallen")};
             c.realEstate[0].use = PropertyUse::gemischt;
         },
         [](TaxCase& c) { c.realEstate[0].isPrimaryResidence = true; },
         [](TaxCase& c) {
             c.realEstate = {secondHome("St.Gallen"), secondHome("Wil")};
             c.realEstate[1].isPrimaryResidence = true;
         }},
        {"tipp-fremdverwaltung", "DBG Art. 32 Abs. 1",
         [](TaxCase& c) { c.securities.push_back(fund(AssetKind::wertschrift)); },
         [](TaxCase& c) { c.securities[1].managedByThirdParty = true; },
         [](TaxCase& c) { c.securities.push_back(fund(AssetKind::krypto)); }},
        {"tipp-fremdverwaltung", "StG SG Art. 44",
         [](TaxCase& c) { c.securities.push_back(fund(AssetKind::wertschrift)); },
         [](TaxCase& c) { c.securities[1].managedByThirdParty = true; },
         [](TaxCase& c) {
             c.securities.push_back(fund(AssetKind::wertschrift));
             c.householdDeductions.actualAssetManagementCosts = 5'000;
         }},
        {"tipp-verwaltungskosten", "DBG Art. 32 Abs. 1",
         [](TaxCase& c) {
             c.securities[0].managedByThirdParty = true;
             c.securities[0].taxValue = 500'000;
             c.householdDeductions.actualAssetManagementCosts = 200;
         },
         [](TaxCase& c) { c.householdDeductions.actualAssetManagementCosts.reset(); },
         [](TaxCase& c) {
             c.securities[0].managedByThirdParty = true;
             c.securities[0].taxValue = 500'000;
             c.householdDeductions.actualAssetManagementCosts = 1'000;
         }},
        {"tipp-spenden", "DBG Art. 33a",
         [](TaxCase& c) { c.householdDeductions.donations.emplace_back().amount = 99; },
         [](TaxCase& c) { c.householdDeductions.donations.emplace_back().amount = 1; },
         [](TaxCase& c) { c.householdDeductions.donations.emplace_back().amount = 100; }},
        {"tipp-mitarbeit", "DBG Art. 33 Abs. 2",
         [](TaxCase& c) {
             c.income1 = {};
             c.income1.selfEmployment = 90'000;
             c.income2 = {};
         },
         [](TaxCase& c) { c.householdDeductions.significantCooperation = true; },
         [](TaxCase& c) { c.income2 = {}; }},
        {"tipp-fahrzeug-1", "StG SG Art. 53",
         [](TaxCase& c) {
             c.otherAssets = 400'000;
             Vehicle& car = c.vehicles.emplace_back();
             car.purchasePrice = 60'000;
             car.purchaseYear = 2022;
             car.taxValueOverride = 60'000;
         },
         [](TaxCase& c) { c.vehicles[0].taxValueOverride.reset(); },
         [](TaxCase& c) {
             c.otherAssets = 400'000;
             Vehicle& car = c.vehicles.emplace_back();
             car.purchasePrice = 60'000;
             car.purchaseYear = 2022;
             car.taxValueOverride = 24'000;
         }},
    };
}

std::vector<TipRow> liechtensteinRows() {
    return {
        {"tipp-li-pk-1", "SteG Art. 16", [](TaxCase&) {},
         // 18 % of 150'000 less 5 % that are paid already
         [](TaxCase& c) { c.deductions1.pensionBuyIn = 19'500; },
         [](TaxCase& c) { c.deductions2.pensionBuyIn = 19'500; }, spotlessLiechtenstein},
        {"tipp-li-versicherungen", "SteV Art. 16",
         [](TaxCase& c) { c.householdDeductions.healthInsurancePremiums = 5'000; },
         [](TaxCase& c) { c.householdDeductions.healthInsurancePremiums = 8'100; },
         [](TaxCase& c) { c.householdDeductions.healthInsurancePremiums = 8'100; },
         spotlessLiechtenstein},
        {"tipp-li-spenden", "SteG Art. 16",
         [](TaxCase& c) {
             c.householdDeductions.donations.emplace_back().amount = 60;
             c.householdDeductions.donations.emplace_back().amount = 70;
         },
         [](TaxCase& c) {
             c.householdDeductions.donations.pop_back();
             c.householdDeductions.donations[0].amount = 130;
         },
         [](TaxCase& c) {
             c.householdDeductions.donations.emplace_back().amount = 60;
             c.householdDeductions.donations.emplace_back().amount = 39;
         },
         spotlessLiechtenstein},
        {"tipp-li-ausbildung-1", "SteG Art. 16",
         [](TaxCase& c) {
             c.children[0].birthDate = Date::of(2007, 3, 1);
             c.children[0].education = ChildEducation::ausbildung;
             c.children[0].scholarships = 2'000;
         },
         [](TaxCase& c) { c.children[0].educationCosts = 14'700; },
         [](TaxCase& c) {
             c.children[0].education = ChildEducation::ausbildung;
             c.children[0].educationCosts = 100;
         },
         spotlessLiechtenstein},
        {"tipp-li-ausbildung-1", "SteG Art. 16",
         [](TaxCase& c) { c.children[0].birthDate = Date::of(2009, 12, 31); },
         [](TaxCase& c) { c.children[0].educationCosts = 12'700; },
         [](TaxCase& c) { c.children[0].birthDate = Date::of(2010, 1, 1); }, spotlessLiechtenstein},
        {"tipp-li-weiterbildung-2", "SteG Art. 16", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions2.furtherEducation = 1'000; },
         [](TaxCase& c) { c.deductions2.furtherEducation = 1; }, spotlessLiechtenstein},
        {"tipp-li-weiterbildung-1", "SteG Art. 16", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions1.furtherEducation = 1'000; },
         [](TaxCase& c) {
             c.income1 = {};
             c.income1.ahvPension = 30'000;
         },
         spotlessLiechtenstein},
    };
}

TEST(Advisor, savesWhatTwoFullCalculationsDiffer) {
    auto rows = stGallenRows();
    std::ranges::copy(liechtensteinRows(), std::back_inserter(rows));
    for (const TipRow& row : rows) {
        SCOPED_TRACE(row.id);
        TaxCase household = row.household();
        row.forHousehold(household);
        const Computed base(household);
        row.proposed(household);
        const Computed changed(household);
        const auto tips = base.tips();
        const auto tip = std::ranges::find(tips, row.id, &Notice::id);
        ASSERT_NE(tip, tips.end());
        EXPECT_EQ(tip->level, Notice::Level::tip);
        EXPECT_EQ(tip->saving, Advisor::totalTax(base.result) - Advisor::totalTax(changed.result));
        EXPECT_GT(tip->saving, Decimal(0));
        EXPECT_NE(tip->message.find(row.law), std::string::npos) << tip->message;
        EXPECT_TRUE(tip->area && tip->path);

        TaxCase other = row.household();
        row.notFor(other);
        EXPECT_FALSE(std::ranges::count(Computed(other).tips(), row.id, &Notice::id));
    }
}

/// The threshold depends on the income: the costs are set from the computed one.
TEST(Advisor, bundlesMedicalCostsInTheUpperHalfOfTheThreshold) {
    const Decimal net = Computed(spotlessHousehold()).result.value("nettoeinkommen");
    const auto tipAt = [&](const Decimal& shareOfThreshold) {
        TaxCase household = spotlessHousehold();
        household.householdDeductions.medicalCosts.emplace_back().gross =
            net * 2 / 100 * shareOfThreshold;
        return std::ranges::count(Computed(household).tips(), "tipp-krankheitskosten", &Notice::id);
    };
    EXPECT_EQ(tipAt(0.4_dec), 0);
    EXPECT_EQ(tipAt(0.9_dec), 1);
    EXPECT_EQ(tipAt(1), 0);
}

TEST(Advisor, proposesOnlyWhatThePersonMayDo) {
    const auto has = [](const TaxCase& taxCase, const char* id,
                        const std::vector<const TaxCase*>& others = {}) {
        const Computed base(taxCase);
        const auto tips =
            Advisor::tips(base.calculator, base.taxCase, base.result, inTheYear(taxCase), others);
        return std::ranges::count(tips, id, &Notice::id) > 0;
    };
    for (const auto& [born, pillar3a, fund] : {std::tuple{1960, true, true},
                                               {1959, true, false},
                                               {1955, true, false},
                                               {1954, false, false}}) {
        TaxCase household = spotlessHousehold();
        household.person1.birthDate = Date::of(born, 1, 1);
        EXPECT_EQ(has(household, "tipp-3a-1"), pillar3a) << born;
        EXPECT_EQ(has(household, "tipp-pk-einkauf-1"), fund) << born;
    }
    TaxCase without = spotlessHousehold();
    without.income1.salaries[0].pensionContributions = 0;
    EXPECT_FALSE(has(without, "tipp-pk-einkauf-1")) << "nothing shows a pension fund";

    TaxCase before = spotlessHousehold();
    TaxCase later = before;
    later.year = 2026;
    later.deductions1.pillar3a = 7'258;
    EXPECT_TRUE(has(later, "tipp-3a-einkauf-1", {&before})) << "258 were left open";
    before.deductions1.pillar3a = 7'258;
    EXPECT_FALSE(has(later, "tipp-3a-einkauf-1", {&before})) << "no gap, no buy-in";
    CapitalPayment& drawn = before.capitalPayments.emplace_back();
    drawn.kind = CapitalPayment::Kind::saeule2;
    drawn.amount = 1;
    EXPECT_FALSE(has(later, "tipp-pk-einkauf-1", {&before})) << "capital drawn the year before";

    TaxCase oldtimer = spotlessHousehold();
    oldtimer.otherAssets = 400'000;
    Vehicle& car = oldtimer.vehicles.emplace_back();
    car.purchasePrice = 60'000;
    car.purchaseYear = 2000;
    car.taxValueOverride = 80'000;
    EXPECT_FALSE(has(oldtimer, "tipp-fahrzeug-1")) << "worth more than its price";
}

TEST(Advisor, ordersTipsBySavingAndTellsWhenItIsTooLate) {
    const Computed demo([] {
        TaxCase household = DemoData::family(2025);
        household.deductions1.furtherEducation = 300; // less than the flat rate
        return household;
    }());
    const auto tips = demo.tips();
    ASSERT_GT(tips.size(), 3U);
    EXPECT_TRUE(std::ranges::is_sorted(tips, std::greater<>{},
                                       [](const Notice& tip) { return tip.saving.value(); }));
    std::set<std::string> ids;
    for (const Notice& tip : tips) {
        EXPECT_TRUE(ids.insert(tip.id).second) << tip.id;
        EXPECT_EQ(tip.message.find("Frist"), std::string::npos) << tip.message;
        EXPECT_FALSE(tip.missed.has_value());
    }
    const auto late =
        Advisor::tips(demo.calculator, demo.taxCase, demo.result, Date::of(2026, 1, 1).value());
    EXPECT_EQ(late.size(), tips.size());
    const auto place = [](const Notice& tip) {
        return std::pair(tip.missed.value_or(false), -tip.saving.value());
    };
    EXPECT_TRUE(std::ranges::is_sorted(late, {}, place));
    EXPECT_FALSE(late.front().missed.has_value()) << "what is still open stands first";
    EXPECT_EQ(late.back().missed, true);

    TaxCase poor = spotlessHousehold();
    poor.income1.salaries[0].grossSalary = 12'000;
    poor.income2 = {};
    EXPECT_TRUE(Computed(poor).tips().empty());
}

/// What a tip tells with its saving is no notice as well; where nothing is saved the notice stays.
TEST(Review, leavesANoticeToTheTipThatTellsTheSame) {
    TaxCase household = spotlessHousehold();
    household.deductions1.work.publicTransportCost = 0;
    household.deductions1.work.carKmOneWay = 30;
    household.deductions1.work.carWorkDays = 220;
    household.deductions1.work.carJustification.clear();
    const auto holds = [](const std::vector<Notice>& list, const std::string& id) {
        return std::ranges::find(list, id, &Notice::id) != list.end();
    };
    const auto reviewOf = [](const TaxCase& taxCase) {
        const Computed computed(taxCase);
        return Review::of({computed.calculator, taxCase, computed.result, inTheYear(taxCase)});
    };
    const Review saving = reviewOf(household);
    EXPECT_TRUE(holds(saving.tips, "tipp-auto-1"));
    EXPECT_FALSE(holds(saving.notices, "arbeitsweg-begruendung-1"));

    household.deductions1.work.carKmOneWay = 1;
    household.deductions1.work.publicTransportCost = 3'000;
    const Review none = reviewOf(household);
    EXPECT_FALSE(holds(none.tips, "tipp-auto-1"));
    EXPECT_TRUE(holds(none.notices, "arbeitsweg-begruendung-1"));
}

/// Payments and acts of the year are over with it; choices and entries of the return are not.
TEST(Advisor, missesWhatTakesAnActInTheYear) {
    const std::set<std::string> acts{"tipp-3a-1",    "tipp-3a-einkauf-2", "tipp-pk-einkauf-1",
                                     "tipp-li-pk-1", "tipp-spenden",      "tipp-li-spenden"};
    auto rows = stGallenRows();
    std::ranges::copy(liechtensteinRows(), std::back_inserter(rows));
    for (const TipRow& row : rows) {
        SCOPED_TRACE(row.id);
        TaxCase household = row.household();
        row.forHousehold(household);
        const Computed base(household);
        for (const int yearsLater : {0, 1}) {
            const Date today = Date::of(household.year + yearsLater, 12, 31).value();
            const auto tips = Advisor::tips(base.calculator, base.taxCase, base.result, today);
            const auto tip = std::ranges::find(tips, row.id, &Notice::id);
            ASSERT_NE(tip, tips.end());
            const bool missed = yearsLater == 1 && acts.contains(row.id);
            EXPECT_EQ(tip->missed, missed ? std::optional(true) : std::nullopt);
            EXPECT_EQ(tip->message.find("ist die Frist vorbei; so viel hätte es gespart.")
                          != std::string::npos,
                      missed);
        }
    }
}

TEST(Advisor, marginalRateIsTheLastThousandFrancs) {
    const Computed base(spotlessHousehold());
    const TaxBill& bill = base.result.bill;
    const TaxBill lower = TaxCalculator::forYear(2025)->computeBill(
        base.taxCase, bill.taxableIncomeCanton - 1'000, bill.taxableIncomeFederal - 1'000,
        bill.taxableWealth, &*base.result.municipality, nullptr);
    const MarginalRate rate = Advisor::marginalRate(base.calculator, base.taxCase, base.result);
    EXPECT_EQ(rate.total, (bill.total() - lower.total()) / 1'000);
    EXPECT_EQ(rate.canton, (bill.cantonTotal() - lower.cantonTotal()) / 1'000);
    EXPECT_EQ(rate.canton + rate.municipality + rate.church + rate.federal, rate.total);
    EXPECT_GT(rate.total, 0.15_dec);

    // Liechtenstein: 4 % of the step for the married from 84'560 on, and the surcharge on top.
    const Computed abroad(spotlessLiechtenstein());
    ASSERT_GT(abroad.result.bill.taxableIncomeCanton, Decimal(85'560));
    EXPECT_EQ(Advisor::marginalRate(abroad.calculator, abroad.taxCase, abroad.result),
              (MarginalRate{0.1_dec, 0.04_dec, 0.06_dec, 0, 0}));
    TaxCase nothing = spotlessLiechtenstein();
    nothing.income1 = {};
    nothing.income2 = {};
    const Computed none(nothing);
    EXPECT_EQ(Advisor::marginalRate(none.calculator, none.taxCase, none.result), MarginalRate{});
}

TEST(Advisor, curveMeetsTheBillAndNamesTheSteps) {
    for (const TaxCase& taxCase : {spotlessHousehold(), spotlessLiechtenstein()}) {
        const Computed base(taxCase);
        const Decimal& taxable = base.result.bill.taxableIncomeCanton;
        const IncomeCurve curve =
            Advisor::incomeCurve(base.calculator, taxCase, base.result, taxable * 2, 201);
        ASSERT_EQ(curve.points.size(), 201U);
        EXPECT_EQ(curve.points.front().income, Decimal(0));
        EXPECT_EQ(curve.points.back().income, (taxable * 2).roundPlain(0));
        EXPECT_TRUE(std::ranges::is_sorted(curve.points, {}, &CurvePoint::income));
        const TaxBill middle = base.calculator.billFor(
            taxCase, base.result, curve.points[100].income,
            curve.points[100].income - taxable + base.result.bill.taxableIncomeFederal);
        EXPECT_EQ(curve.points[100].tax, middle.total());
        EXPECT_TRUE(std::ranges::is_sorted(curve.steps, {}, &TariffStep::income));
        EXPECT_GE(curve.steps.size(), 3U);
        EXPECT_LE(curve.steps.size(), 20U);
        for (const TariffStep& step : curve.steps) {
            EXPECT_GT(step.income, Decimal(0));
            EXPECT_LE(step.income, taxable * 2) << step.text;
        }
    }
}

/// The rises of the canton's tariff as the law states them, for a couple at twice the income.
TEST(Advisor, curveNamesTheStepsOfTheCantonsTariff) {
    for (const bool joint : {false, true}) {
        TaxCase taxCase = spotlessHousehold();
        taxCase.civilStatus = joint ? CivilStatus::verheiratet : CivilStatus::ledig;
        taxCase.children.clear();
        const Computed base(taxCase);
        const int persons = joint ? 2 : 1;
        std::vector<TariffStep> steps;
        for (const TariffStep& step :
             Advisor::incomeCurve(base.calculator, taxCase, base.result, 200'000, 50).steps) {
            if (step.text.starts_with("Kanton")) {
                steps.push_back(step);
            }
        }
        const auto rise = [&](int income, const char* simpleTax) {
            return TariffStep{income * persons, std::string("Kanton: je weitere 100 Franken ")
                                                    + simpleTax + " einfache Steuer"};
        };
        EXPECT_EQ(steps,
                  (std::vector{rise(11'600, "4.00"), rise(15'800, "6.00"), rise(33'800, "8.00"),
                               rise(60'200, "9.20"), rise(98'300, "9.40")}));
    }
    const Computed base(spotlessHousehold());
    for (const CurvePoint& point :
         Advisor::incomeCurve(base.calculator, base.taxCase, base.result, -5, 3).points) {
        EXPECT_EQ(point, CurvePoint{});
    }
}

} // namespace
} // namespace taxcore
