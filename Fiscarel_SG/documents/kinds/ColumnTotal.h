#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/BillSums.h"

#include <optional>

namespace fiscarel {

/// The total of the first column of a table whose heading says what is wanted: the row that those
/// above it add up to. Absent without one, and where the column runs over several years. The value
/// is that printed.
std::optional<FoundAmount> columnTotal(const DocumentRows& document, const Wanted& wanted);

/// What the amounts of such a column come to, where that is printed anywhere, as above the table;
/// not of one that names another year.
std::optional<SummedAmount> columnSum(const DocumentRows& document, const Wanted& wanted,
                                      std::optional<int> year);

} // namespace fiscarel
