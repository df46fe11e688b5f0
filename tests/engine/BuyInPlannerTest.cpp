#include "TaxCore/review/Advisor.h"
#include "tests/support/Computed.h"
#include "tests/support/ReviewCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

namespace taxcore {
namespace {

using testing::Computed;
using testing::spotlessHousehold;
using testing::spotlessLiechtenstein;

TEST(BuyInPlanner, planOfBuyInsIsTheBestOfAllOnACoarseGrid) {
    const Computed base(spotlessHousehold());
    constexpr int sum = 60'001;
    const auto plans = Advisor::planBuyIn(base.calculator, base.taxCase, 1, sum, 5);
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
    EXPECT_EQ(Advisor::planBuyIn(base.calculator, base.taxCase, 1, -5, 1).front().saving,
              Decimal(0));
}

/// What no year can deduct any more: Liechtenstein's 18 % of 150'000 less what is paid already, and
/// in St.Gallen what leaves no taxable income, neither of the canton nor of the federation.
TEST(BuyInPlanner, planTellsWhatHasNoEffect) {
    const Computed abroad(spotlessLiechtenstein());
    const auto plans = Advisor::planBuyIn(abroad.calculator, abroad.taxCase, 1, 60'000, 4);
    constexpr int most = 19'500;
    for (const BuyInPlan& plan : plans) {
        EXPECT_EQ(plan.beyondLimit, std::max(Decimal(0), Decimal(60'000) - most * plan.years));
    }
    EXPECT_EQ(Advisor::planBuyIn(abroad.calculator, abroad.taxCase, 1, most, 1)[0].beyondLimit,
              Decimal(0));
    EXPECT_EQ(Advisor::planBuyIn(abroad.calculator, abroad.taxCase, 1, most + 1, 1)[0].beyondLimit,
              Decimal(1));

    const Computed base(spotlessHousehold());
    const auto within = Advisor::planBuyIn(base.calculator, base.taxCase, 1, 60'000.5_dec, 2);
    EXPECT_EQ(within[0].beyondLimit + within[1].beyondLimit, Decimal(0));
    constexpr int tooMuch = 200'000;
    const auto beyond = Advisor::planBuyIn(base.calculator, base.taxCase, 1, tooMuch, 3);
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
    none.income1 = {};
    none.income2 = {};
    const Computed poor(none);
    EXPECT_EQ(Advisor::planBuyIn(poor.calculator, none, 1, 1'000, 1)[0].beyondLimit,
              Decimal(1'000));
}

} // namespace
} // namespace taxcore
