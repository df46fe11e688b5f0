#pragma once

// What the law allows of payments into pillars 2 and 3a beyond the amounts of the rule book; checks
// and tips go by the same.

#include "TaxCore/review/CheckContext.h"

namespace taxcore::review {

/// Gaps in pillar 3a arise from 2025 on, so the first buy-in is possible a year later. BVV 3 Art.
/// 7a
inline constexpr int firstYearOfPillar3aBuyIn = 2026;

/// For so many years after a buy-in nothing of it may be drawn as capital. BVG Art. 79b Abs. 3
inline constexpr int yearsWithoutCapital = 3;

/// Whether the person is past the age at which contributions to pillar 3a end, five years after the
/// reference age of 65, at the end of the year. False without a birth date. BVV 3 Art. 7 Abs. 3
bool isTooOldForPillar3a(const Adult& adult, int year);

/// Most that the person may pay into pillar 3a in the year of the rules; absent without earnings,
/// which unemployment benefits count as. BVV 3 Art. 7 Abs. 1
std::optional<Decimal> pillar3aMaximumOf(const Adult& adult, const Saeule3aParams& params);

/// Whether a certificate shows contributions to a pension fund (box 10.1).
bool hasPensionContributions(const PersonIncome& income);

/// Whether the person may still buy into a pension fund: it has one, a certificate shows
/// contributions, and the reference age of 65 is not past. A missing birth date counts as not past.
/// BVG Art. 13 Abs. 1 und Art. 79b
bool mayBuyIntoPensionFund(const Adult& adult, int year);

/// Whether a payment is capital of a pension fund; an entry without an amount is none.
bool isPensionCapital(const CapitalPayment& payment);

/// Whether pension-fund capital was drawn in the year of the case.
bool drewPensionCapital(const TaxCase& taxCase);

} // namespace taxcore::review
