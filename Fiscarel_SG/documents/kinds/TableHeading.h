#pragma once

#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// A column of a table with the words that head it, of one line or two.
struct TableColumn {
    Row cell;               ///< its words
    LabelPlace place;       ///< left and right edge; the words are those of the cell
    bool isOfWords = false; ///< known to hold no amounts
    std::string words() const { return textBetween(cell, place.first, place.last); }
};

/// What heads a table; empty for a row that heads none.
struct TableHeading {
    std::size_t row = 0; ///< the last one of the heading, which may have two lines
    std::vector<TableColumn> columns;

    /// The column an amount stands in, by its nearest edge; absent when it is in none.
    std::optional<std::size_t> columnOf(const RowAmount& amount, const PageRows& page) const;
    /// The amounts of a row by column, the nearest of several that `counts` says count.
    std::vector<const RowAmount*>
    amountsIn(const PageRows& page, std::size_t at,
              const std::function<bool(const RowAmount&, std::size_t column)>& counts) const;
};

/// The cells of a row without amounts as headings of columns. Words that run together are told
/// apart where amounts below end with one of them. `withNext`: with the row below as second line,
/// empty when that cannot be one.
TableHeading tableHeadingIn(const PageRows& page, std::size_t at, bool withNext);

/// The rows from one on as a table whose rows say what an amount is and whose columns of what: each
/// column with the words left of all as a page of its own. Rows of words fill it too.
std::vector<PageRows> columnsAsPages(const PageRows& page, std::size_t from,
                                     const std::vector<LabelPlace>& columns);

/// A row of a table as a page of its own: each column's heading with what the row has under it.
PageRows rowAsPage(const PageRows& page, std::size_t at, const TableHeading& heading);

/// Whether words tell that tax was withheld from an income, "mit Verrechnungssteuer", "Ertrag A",
/// or was not, "ohne VSt", "B"; absent when they do not tell. `areNamed`: letters may be part of a
/// security's name.
std::optional<bool> taxednessOf(const Row& words, bool areNamed = false);

/// Whether words name the year's last day: "am 31.12.", "Betrag 31. Dezember 2024".
bool namesLastDay(const Row& words);

} // namespace fiscarel
