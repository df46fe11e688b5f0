#pragma once

// What the law allows of payments into pillars 2 and 3a beyond the amounts of the rule book; checks
// and tips go by the same.

#include "TaxCore/review/CheckContext.h"

namespace taxcore::review {

/// Contributions of the employed begin in the year of turning so old. AHVG Art. 3 Abs. 2 Bst. a
inline constexpr int firstContributionAge = 18;
/// AHVG Art. 21 Abs. 1
inline constexpr int referenceAge = 65;

/// Gaps in pillar 3a arise from 2025 on, so the first buy-in is possible a year later. BVV 3 Art.
/// 7a
inline constexpr int firstYearOfPillar3aBuyIn = 2026;

/// For so many years after a buy-in nothing of it may be drawn as capital. BVG Art. 79b Abs. 3
inline constexpr int yearsWithoutCapital = 3;

/// Whether the person is past the age at which contributions to pillar 3a end, five years after the
/// reference age of 65, at the end of the year. False without a birth date. BVV 3 Art. 7 Abs. 3
bool isTooOldForPillar3a(const Adult& adult, int year);

/// Whether the person does not earn anything subject to AHV yet: contributions begin on 1 January
/// after the 17th birthday. False without a birth date. AHVG Art. 3 Abs. 2 Bst. a, BVV 3 Art. 7
bool isTooYoungForPillar3a(const Adult& adult, int year);

/// Most that the person may pay into pillar 3a in the year of the rules; absent without earnings,
/// which unemployment benefits count as. Whoever a certificate shows contributions of has a fund,
/// although the calculation goes by the tick alone. BVV 3 Art. 7 Abs. 1
std::optional<Decimal> pillar3aMaximumOf(const Adult& adult, const Saeule3aParams& params);

/// What a person (1 or 2) left open of that in an earlier year, whose rules apply: 0 where nothing
/// could be paid. Absent where the case does not tell, since the person did not count in it, it is
/// one of Liechtenstein or its rules do not load. BVV 3 Art. 7a
std::optional<Decimal> pillar3aGapOf(const TaxCase& earlier, int person);

/// Whether old-age benefits of pillar 3a were probably drawn, after which no gap can be closed any
/// more: a payment of the household up to the case's year, as far as they are known, when the
/// person was 60 or older. BVV 3 Art. 3 Abs. 1 and Art. 7a
bool mayHaveDrawnPillar3a(const Adult& adult, const TaxCase& taxCase,
                          const std::vector<const TaxCase*>& otherYears);

/// Whether a certificate shows contributions to a pension fund (box 10.1).
bool hasPensionContributions(const PersonIncome& income);

/// Whether a certificate shows only its net salary: then nothing is known of contributions.
bool hasNetSalaryOnly(const PersonIncome& income);

/// Whether the person may still buy into a pension fund: it has one, a certificate shows
/// contributions, and the reference age of 65 is not past. A missing birth date counts as not past.
/// BVG Art. 13 Abs. 1 and Art. 79b
bool mayBuyIntoPensionFund(const Adult& adult, int year);

/// Whether a payment is capital of a pension fund; an entry without an amount is none.
bool isPensionCapital(const CapitalPayment& payment);

/// Whether pension-fund capital was drawn in the year of the case.
bool drewPensionCapital(const TaxCase& taxCase);

/// Whether the household drew pension-fund capital in the case's year or one of the three before,
/// as far as they are known: buy-ins would not be deductible. BVG Art. 79b Abs. 3
bool drewPensionCapitalLately(const TaxCase& taxCase,
                              const std::vector<const TaxCase*>& otherYears);

} // namespace taxcore::review
