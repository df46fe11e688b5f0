#pragma once

#include "Fiscarel_SG/documents/kinds/AccountEntries.h"

#include <cstddef>
#include <vector>

namespace fiscarel {

/// Where accounts and loans begin that stand one below the other: at their number, or where that
/// stands below the figures at their name.
std::vector<std::size_t> blockStarts(const PageRows& page, const std::vector<AccountNumber>& ibans);

/// Whether a row is the title of what a bank's shares or notes held bring: "Anteilscheine".
bool namesShares(const Row& row);

/// Where the last of several ends: at the totals of all, which the first has none of.
std::size_t endOfLastBlock(const PageRows& page, const std::vector<std::size_t>& starts);

/// What a loan's block tells, the debt at last by the day it stands at: "Importo dovuto al 31
/// dicembre 2024".
Figures figuresOfLoan(const RowRange& range);

} // namespace fiscarel
