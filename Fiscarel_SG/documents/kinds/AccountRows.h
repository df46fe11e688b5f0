#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

namespace fiscarel {

/// Whether a row names a credit card, whose balance is owed, and not what it costs.
bool namesCard(const Row& row);

/// Whether a row names a loan or a credit card and no account.
bool namesLoan(const PageRows& page, std::size_t at);
/// Whether a word of a row, and no amount, may be the number of an account or a contract.
bool hasNumber(const Row& row);
/// Whether a row names what is kept in a custody account.
bool namesDepot(const Row& row);
/// Whether words stand beside the amounts of a row, before or behind them.
bool hasName(const Row& row);
/// Whether the amounts of a row are marked as owed: "136'000.00 S", "D" in a column of its own.
bool isMarkedOwed(const Row& row);
/// Whether a row only carries over what a page before or the rows above come to.
bool isCarried(const Row& row);
/// Whether a row tells what is left of the assets after the debts: "Guthaben abzüglich Schulden".
bool isNetOfAll(const Row& row);
/// Whether the only amount of a row is what keeping securities costs, or the tax kept back:
/// "Imposta preventiva 35 % trattenuta sul conto risparmio   278.02".
bool statesNoBalance(const PageRows& page, std::size_t at);
/// Whether a row begins with a time of the year: a day, "01.01. - 30.06.2024", "2. Quartal",
/// "1er semestre".
bool beginsWithTime(const Row& row);

} // namespace fiscarel
