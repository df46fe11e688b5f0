#include "TaxCore/review/Advisor.h"

#include "TaxCore/demo/DemoData.h"
#include "TaxCore/review/Review.h"
#include "tests/engine/TipTables.h"
#include "tests/support/Computed.h"
#include "tests/support/ReviewCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

namespace taxcore {
namespace {

using testing::Computed;
using testing::inTheYear;
using testing::spotlessHousehold;
using testing::spotlessLiechtenstein;
using testing::TipRow;

TEST(Advisor, savesWhatTwoFullCalculationsDiffer) {
    for (const TipRow& row : testing::tipRows()) {
        SCOPED_TRACE(row.id);
        TaxCase household = row.household();
        row.forHousehold(household);
        const Computed base(household);
        row.proposed(household);
        const Computed changed(household);
        const auto tip = base.tip(row.id);
        ASSERT_TRUE(tip);
        EXPECT_EQ(tip->level, Notice::Level::tip);
        EXPECT_EQ(tip->saving, Advisor::totalTax(base.result) - Advisor::totalTax(changed.result));
        EXPECT_GT(tip->saving, Decimal(0));
        EXPECT_NE(tip->message.find(row.law), std::string::npos) << tip->message;
        EXPECT_TRUE(tip->area && tip->path);

        TaxCase other = row.household();
        row.notFor(other);
        EXPECT_FALSE(Computed(other).tip(row.id));
    }
}

/// The threshold depends on the income: the costs are set from the computed one.
TEST(Advisor, bundlesMedicalCostsInTheUpperHalfOfTheThreshold) {
    const Decimal net = Computed(spotlessHousehold()).result.value("nettoeinkommen");
    const auto tipAt = [&](const Decimal& shareOfThreshold) {
        TaxCase household = spotlessHousehold();
        household.householdDeductions.medicalCosts.emplace_back().gross =
            net * 2 / 100 * shareOfThreshold;
        return Computed(household).tip("tipp-krankheitskosten").has_value();
    };
    EXPECT_FALSE(tipAt(0.4_dec));
    EXPECT_TRUE(tipAt(0.9_dec));
    EXPECT_FALSE(tipAt(1));
}

TEST(Advisor, proposesOnlyWhatThePersonMayDo) {
    const auto has = [](const TaxCase& taxCase, const char* id,
                        const std::vector<const TaxCase*>& others = {}) {
        return Computed(taxCase).tip(id, {}, others).has_value();
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
    TaxCase drew = spotlessHousehold();
    drew.capitalPayments.push_back({.kind = CapitalPayment::Kind::saeule2, .amount = 1});
    TaxCase later = spotlessHousehold();
    later.year = 2026;
    EXPECT_TRUE(has(later, "tipp-pk-einkauf-1"));
    EXPECT_FALSE(has(later, "tipp-pk-einkauf-1", {&drew})) << "capital drawn the year before";

    TaxCase oldtimer = spotlessHousehold();
    oldtimer.otherAssets = 400'000;
    Vehicle& car = oldtimer.vehicles.emplace_back();
    car.purchasePrice = 60'000;
    car.purchaseYear = 2000;
    car.taxValueOverride = 80'000;
    EXPECT_FALSE(has(oldtimer, "tipp-fahrzeug-1")) << "worth more than its price";
}

/// The gap is what the year before could have taken, by that year's entries.
TEST(Advisor, closesGapsOfPillar3aThatExist) {
    TaxCase later = spotlessHousehold();
    later.year = 2026;
    later.deductions1.pillar3a = 7'258;
    const auto savingAfter = [&](const TaxCase& before) {
        const auto tip = Computed(later).tip("tipp-3a-einkauf-1", {}, {&before});
        return tip ? tip->saving.value() : Decimal(0);
    };
    const auto savingOf = [&](const Decimal& buyIn) {
        TaxCase changed = later;
        changed.deductions1.pillar3aBuyIn = buyIn;
        return Advisor::totalTax(Computed(later).result)
               - Advisor::totalTax(Computed(changed).result);
    };
    TaxCase before = spotlessHousehold();
    EXPECT_EQ(savingAfter(before), savingOf(258));
    before.deductions1.pillar3a = 7'258;
    EXPECT_EQ(savingAfter(before), Decimal(0)) << "the maximum was paid";
    before.deductions1.pillar3a = 0;
    before.income1 = {};
    EXPECT_EQ(savingAfter(before), Decimal(0)) << "nothing earned";
    before.person1.hasPensionFund = false;
    before.income1.selfEmployment = 50'000;
    before.deductions1.pillar3a = 9'000;
    EXPECT_EQ(savingAfter(before), savingOf(1'000)) << "a fifth of the earnings";
    before.person1.birthDate = Date::of(2008, 1, 1);
    EXPECT_EQ(savingAfter(before), Decimal(0)) << "too young";

    before = spotlessHousehold();
    before.capitalPayments.push_back({.kind = CapitalPayment::Kind::saeule3a, .amount = 1});
    EXPECT_EQ(savingAfter(before), savingOf(258)) << "for a home";
    later.person1.birthDate = before.person1.birthDate = Date::of(1966, 12, 31);
    EXPECT_EQ(savingAfter(before), savingOf(258)) << "59 when it was drawn";
    later.person1.birthDate = before.person1.birthDate = Date::of(1965, 12, 31);
    EXPECT_EQ(savingAfter(before), Decimal(0)) << "60 when it was drawn";
}

TEST(Advisor, tellsThoseWhoWorkInLiechtensteinOfThePracticeOnPillar3a) {
    TaxCase household = spotlessHousehold();
    const auto tells = [&] {
        const auto tip = Computed(household).tip("tipp-3a-1");
        return tip && tip->message.find("ab 2027") != std::string::npos;
    };
    EXPECT_FALSE(tells());
    household.income1.salaries[0].employerInLiechtenstein = true;
    EXPECT_TRUE(tells());
    household.income1.boardFees = 1'000;
    EXPECT_FALSE(tells()) << "something is earned in Switzerland";
}

/// Two years like this one: both payments in the first, or one in each.
TEST(Advisor, staggersCapitalPayments) {
    const auto with = [](const std::vector<std::pair<CapitalPayment::Kind, int>>& payments) {
        TaxCase household = spotlessHousehold();
        for (const auto& [kind, amount] : payments) {
            household.capitalPayments.push_back({.kind = kind, .amount = amount});
        }
        return household;
    };
    const auto taxOf = [](const TaxCase& household) {
        return Advisor::totalTax(Computed(household).result);
    };
    const auto tipOf = [](const TaxCase& household, int yearsLater) {
        return Computed(household).tip("tipp-kapital-staffeln",
                                       Date::of(household.year + yearsLater, 12, 31));
    };
    using enum CapitalPayment::Kind;
    const TaxCase both = with({{saeule3a, 200'000}, {saeule2, 300'000}});
    const auto tip = tipOf(both, 0);
    ASSERT_TRUE(tip);
    EXPECT_EQ(tip->saving, taxOf(both) + taxOf(with({})) - taxOf(with({{saeule3a, 200'000}}))
                               - taxOf(with({{saeule2, 300'000}})));
    EXPECT_GT(tip->saving, Decimal(1'000));
    EXPECT_EQ(tip->path, "capitalPayments[1].date");
    EXPECT_FALSE(tip->missed);
    EXPECT_TRUE(tipOf(both, 1)->missed.value_or(false));
    EXPECT_EQ(tipOf(with({{saeule3a, 100'000}, {uebrige, 300'000}}), 0)->path,
              "capitalPayments[0].date")
        << "nobody chooses the year of other payments";
    EXPECT_FALSE(tipOf(with({{uebrige, 200'000}, {uebrige, 300'000}}), 0));
    EXPECT_FALSE(tipOf(with({{saeule2, 300'000}, {saeule3a, 0}}), 0));
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
    const auto late = demo.tips(Date::of(2026, 1, 1));
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

    // Below half of what it takes there is no tip.
    struct Amounts {
        int gift;
        int bill;
        bool tipped;
    };
    for (const auto& [gift, bill, tipped] : {Amounts{60, 2'000, true}, {40, 100, false}}) {
        TaxCase other = spotlessHousehold();
        other.householdDeductions.donations.emplace_back().amount = gift;
        other.householdDeductions.medicalCosts.emplace_back().gross = bill;
        const Review review = reviewOf(other);
        for (const auto& [notice, tip] : {std::pair("spenden-min", "tipp-spenden"),
                                          {"krankheit-selbstbehalt", "tipp-krankheitskosten"}}) {
            EXPECT_EQ(holds(review.tips, tip), tipped) << tip;
            EXPECT_EQ(holds(review.notices, notice), !tipped) << notice;
        }
    }
}

/// Payments and acts of the year are over with it; choices and entries of the return are not.
TEST(Advisor, missesWhatTakesAnActInTheYear) {
    const std::set<std::string> acts{"tipp-3a-1",    "tipp-3a-einkauf-2", "tipp-pk-einkauf-1",
                                     "tipp-li-pk-1", "tipp-spenden",      "tipp-li-spenden"};
    for (const TipRow& row : testing::tipRows()) {
        SCOPED_TRACE(row.id);
        TaxCase household = row.household();
        row.forHousehold(household);
        const Computed base(household);
        for (const int yearsLater : {0, 1}) {
            const auto tip = base.tip(row.id, Date::of(household.year + yearsLater, 12, 31));
            ASSERT_TRUE(tip);
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
