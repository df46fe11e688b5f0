#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <optional>

namespace fiscarel {

/// What a part of the page that a label begins comes to: its total, where that is the sum of the
/// amounts in the part; or what the payments right below the label come to, each with its day.
std::optional<FoundAmount> amountOfSection(const RowRange& range, std::size_t at,
                                           const LabelPlace& label);

} // namespace fiscarel
