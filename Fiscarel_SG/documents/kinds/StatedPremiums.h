#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <optional>
#include <vector>

namespace fiscarel {

/// Premiums before what is taken off them, with what proves them.
struct PremiumRow {
    FoundAmount gross;
    std::optional<FoundAmount> reduction;
    std::vector<ProposalCheck> checks;
};

/// That premiums come to what is left of them after a reduction.
ProposalCheck reducedCheck(const Decimal& gross, const Decimal& reduction, const Decimal& net);

/// Premiums that sentences tell: the amount that the following ones by law add up to ("4'744.80, of
/// which 3'519.00 compulsory and 1'225.80 supplementary"), or of which a reduction leaves the rest
/// that is told. Absent where no sum proves them.
std::optional<PremiumRow> findStatedPremiums(const std::vector<RowRange>& ranges);

} // namespace fiscarel
