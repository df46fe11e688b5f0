#pragma once

#include "Fiscarel_SG/documents/kinds/NamedAmounts.h"

#include <optional>
#include <vector>

namespace fiscarel {

/// The amounts of a document that states one for each of several people: children, spouses. They
/// are named by the row of the amount, by the heading of its column, by the sentence, or by a line
/// above it that goes for all that follows. Of several ways to read it the one counts whose amounts
/// add up to a total that is printed. Empty when fewer than two people have one.
std::vector<PersonAmount> findPersonAmounts(const DocumentRows& document, const Wanted& wanted);

/// That the amounts of all add up to one that is printed; absent when they do not.
std::optional<ProposalCheck> togetherCheck(const DocumentRows& document,
                                           const std::vector<PersonAmount>& parts);

} // namespace fiscarel
