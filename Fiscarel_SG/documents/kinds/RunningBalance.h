#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <vector>

namespace fiscarel {

/// Of what was posted and the running balance beside it, in a row of an account, leaves what was
/// posted, unless a balance is wanted.
void dropRunningBalance(const RowRange& range, std::size_t at, const Wanted& wanted,
                        std::vector<const RowAmount*>& amounts);

/// Makes of a balance behind a posting the last one of the year that the postings below lead to.
void followRunningBalance(const RowRange& range, FoundAmount& balance);

} // namespace fiscarel
