#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <vector>

namespace fiscarel {

// The words by which premiums of a health insurance are found, deductible up to a limit (DBG Art.
// 33 para. 1 g), and what the insured bore themselves, a cost of illness (DBG Art. 33 para. 1 h).

/// A total of premiums before the state's reduction.
const Wanted& grossPremiums();
/// A total that does not say of what.
const Wanted& plainTotals();
/// Premiums after the reduction, which prove it and are not proposed.
const Wanted& netPremiums();
/// What the state pays towards the premiums of people with little income (KVG Art. 65).
const Wanted& reductions();
/// Premiums by law, before what is taken off.
const std::vector<Wanted>& singlePremiums();
/// Whether words beside a premium say that it is what somebody bears of the costs; a franchise is
/// not where its height is told, as of a model: "Grundversicherung, Franchise 2500   4’011.60".
bool tellsShare(const FoundAmount& premium);
/// Whether a row tells of something else than a premium by law.
bool isNoPremium(const Row& row, bool isRecognised);
/// What the insured bear of the costs of illness.
const Wanted& costSharings();

} // namespace fiscarel
