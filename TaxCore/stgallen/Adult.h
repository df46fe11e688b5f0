#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/Derivation.h"
#include "TaxCore/result/PerJurisdiction.h"
#include "TaxCore/stgallen/WorkExpenses.h"

namespace taxcore {

/// One adult who counts, with what later steps of a calculation need of earlier ones.
struct Adult {
    Adult(int n, const Person& who, const PersonIncome& earns, const PersonDeductions& deducts)
        : number(n), person(who), income(earns), deductions(deducts), employment(earns.salaries) {}

    int number; ///< 1 or 2
    const Person& person;
    const PersonIncome& income;
    const PersonDeductions& deductions;
    EmploymentFacts employment;
    PerJurisdiction<WorkExpenseBreakdown> work;
    Amounts pillar3a;      ///< as deducted
    Amounts pillar3aBuyIn; ///< as deducted

    /// Earned income: salaries, side jobs, self-employment, partnerships and board fees.
    Decimal earned() const {
        return employment.mainNet + employment.sideNet + income.selfEmployment + income.partnership
               + income.boardFees;
    }
    /// Work expenses as deducted.
    Amounts workExpenses() const {
        return each([](const WorkExpenseBreakdown& b) { return b.total(); }, work);
    }
    /// Pillar 3a, its buy-in and pension-fund buy-ins as deducted.
    Amounts pension() const { return pillar3a + pillar3aBuyIn + both(deductions.pensionBuyIn); }

    FieldPath incomePath(std::string_view field) const {
        return FieldPath("income", field).of(number);
    }
    FieldPath deductionPath(std::string_view field) const {
        return FieldPath("deductions", field).of(number);
    }
};

} // namespace taxcore
