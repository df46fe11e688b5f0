#pragma once

#include "Fiscarel_SG/documents/kinds/AccountFigures.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// A column of a table with the words that head it, of one line or two.
struct TableColumn {
    Row cell;         ///< its words
    LabelPlace place; ///< left and right edge; the words are those of the cell
    std::string words() const { return textBetween(cell, place.first, place.last); }
};

/// What heads a table; empty for a row that heads none.
struct TableHeading {
    std::size_t row = 0; ///< the last one of the heading, which may have two lines
    std::vector<TableColumn> columns;

    /// The column an amount stands in, by its nearest edge; absent when it is in none.
    std::optional<std::size_t> columnOf(const RowAmount& amount, const PageRows& page) const;
};

/// The cells of a row without amounts as headings of columns. Words that run together are told
/// apart where amounts below end with one of them. `withNext`: with the row below as second line,
/// empty when that cannot be one.
TableHeading tableHeadingIn(const PageRows& page, std::size_t at, bool withNext);

/// Whether words name the year's last day: "am 31.12.", "Betrag 31. Dezember 2024".
bool namesLastDay(const Row& words);

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

/// The heading a row begins; without figures for a row that heads nothing. Of several columns for
/// one figure that in francs counts, then the tax value, then the newest.
AccountHeading accountHeadingIn(const PageRows& page, std::size_t at);
/// The amounts of a row by the columns of a heading.
Figures figuresByColumn(const PageRows& page, std::size_t at, const AccountHeading& heading);

} // namespace fiscarel
