#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/result/TaxResult.h"

#include <string_view>

/// Every notice of the St.Gallen calculation by its id; the one home of their texts.
namespace taxcore::notices {

Notice imputedRentFederal();
/// `limit` in francs is what was deducted.
Notice debtInterestLimit(const Decimal& limit, const Decimal& allowance);
Notice pillar3aWithoutEarnings(int person);
Notice pillar3aMaximum(int person, const Decimal& maximum);
Notice pillar3aBuyInLimit(int person);
/// `threshold` is the canton's.
Notice medicalBelowThreshold(const Decimal& costs, const Decimal& threshold);
Notice donationsBelowMinimum(const Decimal& minimum);
Notice childDeductionWithMaintenance();
Notice unknownMunicipality(std::string_view name, int year);
Notice missingMultiplier();
Notice mixedConfessions();

} // namespace taxcore::notices
