#pragma once

#include "TaxCore/result/AdultEntries.h"
#include "TaxCore/result/PerJurisdiction.h"
#include "TaxCore/stgallen/WorkExpenses.h"

namespace taxcore {

/// One adult who counts, with what later steps of a calculation need of earlier ones.
struct Adult : AdultEntries {
    explicit Adult(const AdultEntries& entries)
        : AdultEntries(entries), employment(entries.income.salaries) {}

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
};

} // namespace taxcore
