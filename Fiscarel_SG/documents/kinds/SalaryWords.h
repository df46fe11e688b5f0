#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

#include <array>

namespace fiscarel {

/// How papers that have not the form's layout call one of its boxes.
struct BoxWords {
    SalaryBox box;
    Wanted wanted;       ///< the surest meaning first
    Labels vague = {};   ///< words that mean it among the amounts of a wage only
    Labels between = {}; ///< words that mean it only between the gross and the net wage
};

/// What the state's own insurance for old age is called beside the pension fund's.
const Labels& firstPillarWords();

/// The risks that the social insurances cover, and others too: "Unfall", "maladie". Between a gross
/// and a net wage they only suggest a contribution.
const Labels& riskWords();

/// Whether words name what is taken from a wage besides contributions: tax at source, rent, loans
/// and advances, seizures, the insurance of treatments, parking, savings of one's own.
bool isKeptBack(const Row& words, bool isRecognised);

/// Gross and net first, then the deductions from the most special to the most common: a purchase
/// of benefits, the social insurances, the pension fund.
const std::array<BoxWords, 5>& boxWords();

} // namespace fiscarel
