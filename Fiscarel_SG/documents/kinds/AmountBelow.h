#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

namespace fiscarel {

/// The amount of a label whose own row has none: in the row below, if that only goes on with the
/// label's words or holds nothing but the amount, or heads a column with it; null when there is
/// none.
const RowAmount* amountBelow(const RowRange& range, std::size_t at, const LabelPlace& label,
                             const Wanted& wanted);

} // namespace fiscarel
