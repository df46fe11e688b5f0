#pragma once

#include "TaxCore/model/Deductions.h"
#include "TaxCore/model/Income.h"
#include "TaxCore/result/Derivation.h"
#include "TaxCore/result/PerJurisdiction.h"
#include "TaxCore/rulebook/DeductionParams.h"

#include <vector>

namespace taxcore {

// Professional costs of one person. StG SG Art. 39, DBG Art. 26

/// What the salary certificates say about professional costs; francs.
struct EmploymentFacts {
    explicit EmploymentFacts(const std::vector<SalaryCertificate>& salaries);

    bool employed = false; ///< at least one certificate
    bool hasMain = false;
    bool hasSide = false;
    Decimal mainNet;               ///< net salaries of the main employment
    Decimal sideNet;               ///< net salaries of the side jobs
    bool freeTransport = false;    ///< box F on a main certificate (without any: on one)
    bool subsidisedMeals = false;  ///< box G on a main certificate
    bool flatRateExpenses = false; ///< flat-rate expenses on a main certificate
};

/// One person's work expenses for the jurisdiction whose parameters are given; all zero without a
/// salary certificate. Not rounded.
WorkExpenseBreakdown workExpenses(const EmploymentFacts& facts, const WorkExpenses& p,
                                  const BerufskostenParams& params);

/// The same situation over midday that the calculation uses: box G makes full-price meals cheaper.
MealSituation mealSituation(const EmploymentFacts& facts, const WorkExpenses& p) noexcept;

/// Whether a reason is given why the private vehicle is needed; blanks alone are none. BKV Art. 5
bool isVehicleJustified(const WorkExpenses& p) noexcept;

/// Cost of the private vehicle before any cap; 0 without a justification. Working days are cut to
/// the year's maximum. BKV Art. 3 und 5
Decimal privateVehicleCost(const WorkExpenses& p, const BerufskostenParams& params);

/// Tells how the work expenses of a person came about: entries, rules and the parts of the result.
void explainWorkExpenses(DerivationRecorder::Draft& why, int person, const EmploymentFacts& facts,
                         const WorkExpenses& p,
                         const PerJurisdiction<const DeductionParams*>& params,
                         const PerJurisdiction<WorkExpenseBreakdown>& result);

} // namespace taxcore
