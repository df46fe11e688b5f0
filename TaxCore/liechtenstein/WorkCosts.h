#pragma once

#include "TaxCore/liechtenstein/LICalculation.h"
#include "TaxCore/model/LIExtras.h"
#include "TaxCore/result/Derivation.h"
#include "TaxCore/result/TaxResult.h"
#include "TaxCore/rulebook/LIRules.h"

namespace taxcore::li {

// Costs of earning a salary ("Gewinnungskosten") of one person; francs a year.

/// Days of the way to work that count: not below 0, at most the year's maximum.
int commuteDays(const LICommute& commute, const LIRules& rules) noexcept;

/// Whether the fare table answers for this way to work.
bool usesFareTable(const LICommute& commute, const LIRules& rules);

/// Costs of the way to work less what the employer pays, not below 0, plain to whole francs: abroad
/// by kilometre, dearer up to 10'000 a year; inland the fare of the table by days. Places that are
/// not in the table give 0. SteG Art. 16, SteV Art. 14
Decimal commuteCosts(const LICommute& commute, const LIRules& rules);

/// Meals away from home: days times the rate, at most the yearly maximum; not rounded. SteG Art.
/// 16, SteV Art. 12
Decimal mealCosts(const LICommute& commute, const LIRules& rules);

/// The parts of the costs; all zero without a gross salary. What commute and meals fall short of
/// the flat rate (itself at most the salary) stands as `other`. SteG Art. 16, SteV Art. 12
WorkExpenseBreakdown workCosts(const Decimal& salary, const LICommute& commute,
                               const LIRules& rules);

/// Tells how the costs of a person came about.
void explainWorkCosts(DerivationRecorder::Draft& why, const Adult& adult, const LIRules& rules);

} // namespace taxcore::li
