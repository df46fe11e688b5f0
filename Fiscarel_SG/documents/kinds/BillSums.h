#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <optional>
#include <vector>

namespace fiscarel {

/// An amount that others on the same bill lead to.
struct SummedAmount {
    FoundAmount found;
    std::optional<ProposalCheck> check; ///< the sum that holds; absent without one
};

/// The total that a net amount and the value added tax below it lead to, to five cents, whatever
/// its words; absent when no row of tax has both beside it.
std::optional<SummedAmount> totalWithTax(const std::vector<RowRange>& ranges);

/// The total that what is still open comes from, where what was paid before stands between.
FoundAmount beforeAdvance(const FoundAmount& open);

/// What was billed of a total that includes the costs of a reminder or interest for delay. Absent
/// when it includes none. Without a check when it is printed nowhere.
std::optional<SummedAmount> withoutReminder(const FoundAmount& total);

/// What remains of an amount above when all amounts between are taken off, as the part of a patient
/// does of a hospital's bill; absent when no amount above leads to it.
std::optional<ProposalCheck> remainderCheck(const FoundAmount& rest);

} // namespace fiscarel
