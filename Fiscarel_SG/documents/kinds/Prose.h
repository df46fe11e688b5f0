#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/BillSums.h"
#include "Fiscarel_SG/documents/kinds/PersonParts.h"

#include <vector>

namespace fiscarel {

/// Amounts of sentences that say what is wanted: "Wir bestätigen, dass Sie im Jahr 2025 Beiträge
/// von CHF 7'056.00 einbezahlt haben". What the amount is must be said before it, after the amount
/// before (behind it only where the sentence has no other); the rest of the meaning may stand
/// anywhere in the sentence. Sentences may go on over lines. The first meaning that is found
/// counts. Of "4 sedute a CHF 85.10: CHF 340.40" the product counts, not the price of one.
std::vector<FoundAmount> findInProse(const std::vector<RowRange>& ranges, const Wanted& wanted);

/// Amounts of sentences that say a meaning behind them: "abzüglich CHF 3'120 Sozialabgaben und
/// CHF 2'800 Pensionskasse". What is said so may as well be of the next amount: only for amounts
/// that something else proves.
std::vector<FoundAmount> findBehindInProse(const std::vector<RowRange>& ranges,
                                           const Wanted& wanted);

/// The amount of a sentence that those before it in the sentence, two or more, add up to: "CHF 340,
/// CHF 440 et CHF 255, soit CHF 1035 en tout"; absent without one. Sentences that name what is
/// alien to what is wanted are not looked at.
std::optional<SummedAmount> sumInProse(const std::vector<RowRange>& ranges, const Wanted& wanted);

/// Amounts of a sentence that says a meaning and names one of several people before each: "Anna
/// Muster hat CHF 900 eingelegt, Beat Muster CHF 696"; else of sentences that each name one person
/// and one amount. Empty unless each of several people has exactly one.
std::vector<PersonAmount> findPeopleInProse(const DocumentRows& document, const Wanted& wanted);

} // namespace fiscarel
