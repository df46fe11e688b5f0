#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <vector>

namespace fiscarel {

// The words by which premiums of a health insurance are found.

const Wanted& grossPremiums();
/// A total that does not say of what.
const Wanted& plainTotals();
const Wanted& netPremiums();
const Wanted& reductions();
/// Premiums by law, before what is taken off.
const std::vector<Wanted>& singlePremiums();
/// What the insured bear of the costs of illness.
const Wanted& costSharings();

} // namespace fiscarel
