#pragma once

#include "Fiscarel_SG/documents/kinds/AccountEntries.h"

#include <cstddef>
#include <vector>

namespace fiscarel {

/// Where accounts and loans begin that stand one below the other: at their number, or where that
/// stands below the figures at their name.
std::vector<std::size_t> blockStarts(const PageRows& page, const std::vector<AccountNumber>& ibans);

/// Whether the title of a block, its rows before the first amount, names a loan.
bool isTitledAsLoan(const PageRows& page, std::size_t start);

/// Whether a row is the title of what a bank's shares or notes held bring: "Anteilscheine".
bool namesShares(const Row& row);

/// Where the last of several ends: at the totals of all, which the first has none of. `goesOn`:
/// pages before told of others, so that totals below a single one are of all, too.
std::size_t endOfLastBlock(const PageRows& page, const std::vector<std::size_t>& starts,
                           bool goesOn);

/// What a loan's block tells, the debt at last by the day it stands at: "Importo dovuto al 31
/// dicembre 2024". `isTold`: it is known to be a loan's; else interest paid on a debt must say so.
Figures figuresOfLoan(const RowRange& range, bool isTold = true);
/// What an account's block tells, the balance at last by its day, too: "Montant au 31.12.2024".
Figures figuresOfAccount(const RowRange& range);

} // namespace fiscarel
