#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

#include <cstddef>

namespace fiscarel {

/// How the rows of a page may hold labels and, in the rows below, their values. `at` is the index
/// of the row that may hold labels; where not said otherwise, there must be a row behind it.
class LabelledRows {
  public:
    /// `isPanel`: the page is a block beside others. The page must outlive this.
    LabelledRows(const PageRows& page, bool isPanel) : page_(page), isPanel_(isPanel) {}

    /// The gap below a row, in heights of the taller of the two. Boxes of recognised words end at
    /// the letters, those of a text layer at the font's line.
    double gap(std::size_t at) const;
    /// Whether a row and the next are lines of a list, each with its label and its value, in
    /// columns that the rows around them share at the same pitch.
    bool isOfList(std::size_t at) const;

    /// Whether a row may hold the values of labels above it: amounts, in a panel no words, which
    /// begin a line of their own there, but also nothing at all: "nessuno   –".
    bool mayBeValues(const Row& row) const;

    /// Whether a row is a label alone, and the next one its amount, nearer than what follows; false
    /// for the page's last row.
    bool isStack(std::size_t at) const;

    /// Whether the page is set in such stacks, each amount right of its label: three at least.
    bool stacks() const;

    /// Whether the row behind the next has the words for the next row's amounts, rather than this.
    bool isCaptionBelow(std::size_t at) const;

    /// Whether the next row's values are but the first ones of a table.
    bool hasMoreRows(std::size_t at) const;

  private:
    const PageRows& page_;
    bool isPanel_;
};

} // namespace fiscarel
