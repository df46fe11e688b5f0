#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <optional>
#include <string>

namespace fiscarel {

// What says that an amount for day care is not, or not all, deductible for one child.

/// Whether a paper that does not tell each child's part apart speaks of several. `issuer` may have
/// children in its name; `printed` is the amount that was found.
bool mayBeOfSeveralChildren(const DocumentRows& document, const std::string& issuer,
                            const std::optional<FoundAmount>& printed);

/// Whether the amounts that lead to a total name meals, in their row or above their column.
bool hasMeals(const FoundAmount& total);

} // namespace fiscarel
