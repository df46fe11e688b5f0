#pragma once

#include "Fiscarel_SG/documents/kinds/AccountFigures.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// A table of accounts or loans: which column states what.
struct AccountHeading {
    TableHeading table;
    std::vector<std::optional<Figure>> figures; ///< of each column; absent: it states none
    /// Of each column: it names no figure, only a day or a payment; empty: none does.
    std::vector<bool> isPlain;
    bool isOfLoans = false; ///< its amounts are owed, whatever the columns are called

    std::size_t row() const { return table.row; }
    bool states(Figure figure) const;
    std::size_t count() const; ///< columns that state a figure
};

/// What figure a cell of words names; absent when none.
std::optional<Figure> figureOf(const Row& cell, bool isRecognised);

/// The heading a row begins; without figures for a row that heads nothing. Of several columns for
/// one figure that in francs counts, then the tax value, then the newest; one of a year before the
/// document's states nothing.
AccountHeading accountHeadingIn(const PageRows& page, std::size_t at,
                                std::optional<int> year = std::nullopt);
/// The amounts of a row by the columns of a heading.
Figures figuresByColumn(const PageRows& page, std::size_t at, const AccountHeading& heading);

} // namespace fiscarel
