#include "TaxCore/review/Advisor.h"
#include "tests/support/Computed.h"
#include "tests/support/ReviewCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace taxcore {
namespace {

using testing::Computed;
using testing::spotlessHousehold;
using testing::spotlessLiechtenstein;

std::vector<BuyInPlan> planOf(const Computed& base, int person, const Decimal& sum, int mostYears) {
    return Advisor::planBuyIn(base.calculator, base.taxCase,
                              {.person = person, .sum = sum, .mostYears = mostYears})
        .plans;
}

TEST(BuyInPlanner, planOfBuyInsIsTheBestOfAllOnACoarseGrid) {
    const Computed base(spotlessHousehold());
    constexpr int sum = 60'001;
    const auto plans = planOf(base, 1, sum, 5);
    const auto savingOf = [&](const Decimal& payment) {
        TaxCase changed = base.taxCase;
        changed.deductions1.pensionBuyIn += payment;
        return Advisor::totalTax(base.result)
               - Advisor::totalTax(base.calculator.calculate(changed));
    };
    ASSERT_EQ(plans.size(), 5U);
    Decimal before;
    for (const BuyInPlan& plan : plans) {
        Decimal paid;
        Decimal saved;
        for (const Decimal& payment : plan.payments) {
            paid += payment;
            saved += savingOf(payment);
        }
        EXPECT_EQ(plan.payments.size(), static_cast<std::size_t>(plan.years));
        EXPECT_EQ(paid, Decimal(sum)) << plan.years;
        EXPECT_EQ(saved, plan.saving) << plan.years;
        EXPECT_GE(plan.saving, before - 1) << "another year can only help";
        before = plan.saving;
    }
    // Tenths of the sum, by trying all. The plan cuts to francs: a franc is worth less than one.
    const Decimal tenth = Decimal(sum) / 10;
    for (int a = 0; a <= 10; ++a) {
        for (int b = 0; a + b <= 10; ++b) {
            const Decimal saved =
                savingOf(tenth * a) + savingOf(tenth * b) + savingOf(tenth * (10 - a - b));
            EXPECT_GE(plans[2].saving, saved - 1) << a << " " << b;
        }
    }
    EXPECT_GE(Advisor::bestPlan(plans).saving, plans.back().saving);
}

/// What no year can deduct any more: Liechtenstein's 18 % of 150'000 less what is paid already, and
/// in St.Gallen what leaves no taxable income, neither of the canton nor of the federation.
TEST(BuyInPlanner, planTellsWhatHasNoEffect) {
    const Computed abroad(spotlessLiechtenstein());
    const auto plans = planOf(abroad, 1, 60'000, 4);
    constexpr int most = 19'500;
    for (const BuyInPlan& plan : plans) {
        EXPECT_EQ(plan.beyondLimit, std::max(Decimal(0), Decimal(60'000) - most * plan.years));
    }
    EXPECT_EQ(planOf(abroad, 1, most, 1)[0].beyondLimit, Decimal(0));
    EXPECT_EQ(planOf(abroad, 1, most + 1, 1)[0].beyondLimit, Decimal(1));

    const Computed base(spotlessHousehold());
    const auto within = planOf(base, 1, 60'000.5_dec, 2);
    EXPECT_EQ(within[0].beyondLimit + within[1].beyondLimit, Decimal(0));
    constexpr int tooMuch = 200'000;
    const auto beyond = planOf(base, 1, tooMuch, 3);
    const auto taxableAfter = [&](const Decimal& payment) {
        TaxCase changed = base.taxCase;
        changed.deductions1.pensionBuyIn += payment;
        const TaxBill bill = base.calculator.calculate(changed).bill;
        return std::max(bill.taxableIncomeCanton, bill.taxableIncomeFederal);
    };
    const Decimal least = Decimal(tooMuch) - beyond[0].beyondLimit;
    EXPECT_EQ(taxableAfter(least), Decimal(0));
    EXPECT_GT(taxableAfter(least - 1), Decimal(0));
    EXPECT_GT(beyond[0].beyondLimit, Decimal(50'000));
    EXPECT_EQ(beyond[2].beyondLimit, Decimal(0));

    TaxCase none = spotlessHousehold();
    none.income1.salaries[0].grossSalary = 10'000;
    none.income2 = {};
    const BuyInPlan useless = planOf(Computed(none), 1, 1'000, 1)[0];
    EXPECT_EQ(useless.beyondLimit, Decimal(1'000));
    EXPECT_EQ(useless.saving, Decimal(0));
}

TEST(BuyInPlanner, tellsWhyNobodyMayBuyIn) {
    struct Row {
        const char* reason; ///< absent: there is a plan
        std::function<void(TaxCase&)> change;
        BuyInRequest request = {.sum = 10'000};
        TaxCase household = spotlessHousehold();
    };
    const auto drew = [](TaxCase& c) {
        c.capitalPayments.push_back({.kind = CapitalPayment::Kind::saeule2, .amount = 50'000});
    };
    TaxCase earlier{.year = 2022};
    drew(earlier);
    TaxCase longAgo{.year = 2021};
    drew(longAgo);
    const auto nothing = [](TaxCase&) {};
    const auto without = [](TaxCase& c) { c.income1.salaries[0].pensionContributions = 0; };
    const std::vector<Row> rows{
        {nullptr, nothing},
        {"keine Pensionskasse", [](TaxCase& c) { c.person1.hasPensionFund = false; }},
        {"zeigt Beiträge", without},
        {nullptr,
         [](TaxCase& c) { // only box 11 was typed
             c.income1.salaries[0] = {.netSalaryOverride = Decimal(80'000)};
         }},
        {"zeigt Beiträge", [](TaxCase& c) { c = {.year = 2025}; }},
        {"Referenzalter", [](TaxCase& c) { c.person1.birthDate = Date::of(1959, 12, 31); }},
        {nullptr, [](TaxCase& c) { c.person1.birthDate = Date::of(1960, 1, 1); }},
        {"Kapital", drew},
        {"Kapital", nothing, {.sum = 10'000, .otherYears = {&earlier}}},
        {nullptr, nothing, {.sum = 10'000, .otherYears = {&longAgo}}},
        // The three years are Swiss law.
        {nullptr, drew, {.sum = 10'000}, spotlessLiechtenstein()},
        {"gehört nicht",
         [](TaxCase& c) { c.civilStatus = CivilStatus::ledig; },
         {.person = 2, .sum = 10'000}},
        {nullptr, without, {.person = 2, .sum = 10'000}},
        {"grösser als 0", nothing, {.sum = 0}},
        {"grösser als 0", nothing, {.sum = -5}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(&row - rows.data()));
        TaxCase taxCase = row.household;
        row.change(taxCase);
        const Computed base(taxCase);
        const BuyInPlanning planning =
            Advisor::planBuyIn(base.calculator, base.taxCase, row.request);
        EXPECT_EQ(planning.plans.empty(), row.reason != nullptr);
        ASSERT_EQ(planning.impossible.has_value(), row.reason != nullptr);
        if (row.reason != nullptr) {
            EXPECT_TRUE(planning.impossible->starts_with("Für "));
            EXPECT_NE(planning.impossible->find(row.reason), std::string::npos)
                << *planning.impossible;
        }
    }
}

TEST(BuyInPlanner, endsWithTheYearOfTheReferenceAge) {
    for (const auto& [born, years] : {std::pair(1960, 1U), {1961, 2U}, {1963, 4U}, {1985, 5U}}) {
        TaxCase taxCase = spotlessHousehold();
        taxCase.person1.birthDate = Date::of(born, 6, 1);
        EXPECT_EQ(planOf(Computed(taxCase), 1, 10'000, 5).size(), years) << born;
    }
}

} // namespace
} // namespace taxcore
