#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <optional>

namespace fiscarel {

// What the rows below a name tell of one person.

struct ProvenAmount {
    FoundAmount found;
    ProposalCheck check;
};

/// What remains of the first amount of rows when all between are taken off, and is printed: as what
/// parents bear, or after what others do.
std::optional<ProvenAmount> remainderIn(const RowRange& block);

/// The only amount a total has beside those for meals above it, or which are told not to be
/// deductible; absent where several make it up with them.
std::optional<FoundAmount> withoutMeals(const RowRange& above, FoundAmount total);

} // namespace fiscarel
