#include "TaxCore/stgallen/TaxCalculator.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace taxcore {
namespace {

TEST(WorkExpensesDerivation, blamesAMissingReasonOnlyWhenNoneIsGiven) {
    struct Vehicle {
        const char* what;
        const char* reason;
        int kilometres;
        int days;
        bool freeTransport;
        bool blamed;
    };
    for (const Vehicle& vehicle : {
             Vehicle{"counts", "Auf Verlangen des Arbeitgebers", 20, 200, false, false},
             Vehicle{"a reason, no days", "Auf Verlangen des Arbeitgebers", 20, 0, false, false},
             Vehicle{"no reason", "", 20, 200, false, true},
             Vehicle{"a blank reason", " ", 20, 200, false, true},
             Vehicle{"no vehicle", "", 0, 200, false, false},
             Vehicle{"carried by the employer", "", 20, 200, true, false},
         }) {
        TaxCase taxCase{.year = 2025};
        SalaryCertificate& salary = taxCase.income1.salaries.emplace_back();
        salary.grossSalary = 80'000;
        salary.fieldF = vehicle.freeTransport;
        WorkExpenses& work = taxCase.deductions1.work;
        work.carJustification = vehicle.reason;
        work.carKmOneWay = vehicle.kilometres;
        work.carWorkDays = vehicle.days;
        const auto derivation = TaxCalculator::forYear(2025)->explain(taxCase, "berufskosten1");
        ASSERT_TRUE(derivation.has_value());
        const bool blamed = std::ranges::any_of(derivation->steps, [](const DerivationStep& step) {
            return step.text.find("Begründung") != std::string::npos;
        });
        EXPECT_EQ(blamed, vehicle.blamed) << vehicle.what;
    }
}

} // namespace
} // namespace taxcore
