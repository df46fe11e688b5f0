#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <optional>
#include <vector>

namespace fiscarel {

// What the premiums of a paper are made of that states no total, or a reduction by a card of its
// own.

/// The premiums by law, one for each row.
std::vector<FoundAmount> singlePremiumsIn(const std::vector<RowRange>& ranges);

/// These premiums with those that follow each in its column by names of their own, "Spital
/// allgemein", "Zahnpflege", up to a row that tells of something else or adds up.
std::vector<FoundAmount> withUnnamed(const std::vector<FoundAmount>& singles);

/// The amount paid that stands below a heading for the reduction, in the part of the page that the
/// heading begins: "Individuelle Prämienverbilligung", below "Ausbezahlter Betrag   1’236.00".
std::optional<FoundAmount> reductionInCard(const std::vector<RowRange>& ranges);

} // namespace fiscarel
