#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"
#include "TaxCore/base/Decimal.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace fiscarel {

using taxcore::Decimal;

/// Which amount of a row or sentence is as many times another, its price, as a number in it says:
/// "4 sedute a CHF 85.10: CHF 340.40". Made once where several prices are asked for.
class Products {
  public:
    Products() = default; ///< of nothing
    Products(const Row& row, const std::vector<Decimal>& amounts);

    /// The index of what a price comes to, by the first number in the row that gives one.
    std::optional<std::size_t> of(const Decimal& price) const;

  private:
    using Amount = std::pair<Decimal, std::size_t>; ///< with its index

    std::vector<int> counts_;    ///< each once, as they stand in the row
    std::vector<Amount> sorted_; ///< empty without counts
};

/// The amount of a row that those left of it, two or more, add up to; null without one.
const RowAmount* sumOfRow(const Row& row);
/// The last amount of a row where all others come to it, three or more, also those of their digits
/// alone; null otherwise.
const RowAmount* totalAtEnd(const Row& row);
/// The amount of a row that is left of one when all between are taken off, as a fee is after
/// rebates and shares; null without one.
const RowAmount* restOfRow(const Row& row);

/// Whether the words behind one at an index, the last of an amount, say that it is the price of an
/// hour or a day.
bool isPriceOfOne(const Row& row, std::size_t last);

/// "zwei", "douze", "quattro": how many a folded word says.
std::optional<int> countInWords(std::string_view word);

/// How many of what an amount is the price of one, as its row tells before it, or where it begins
/// the row the one above: "12 Mietzinse zu 1’550.00", "vier Prämien zu CHF"; absent for others.
std::optional<int> piecesAt(const PageRows& page, std::size_t at, const RowAmount& price);

/// "12 × 1’355.00   16’260.00": the amount of the year beside that of a month.
const RowAmount* amountOfYear(const Row& row);
/// Of several amounts of a row what a number of times another comes to.
const RowAmount* productAmong(const Row& row, const std::vector<const RowAmount*>& amounts);

} // namespace fiscarel
