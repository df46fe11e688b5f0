#pragma once

#include "Fiscarel_SG/documents/PageReading.h"
#include "Fiscarel_SG/documents/text/DocumentAmount.h"
#include "Fiscarel_SG/store/StoredDocument.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// A word in its row, placed as if the page stood straight.
struct RowWord {
    std::string text;
    std::string folded; ///< by `foldWords`; may be empty, or several words
    PagePlace place;    ///< points, after the page's slope is taken out
    PagePlace printed;  ///< points, where it really stands
    double certainty = 1;
};

/// An amount in a row; may be of several words ("68 000.00").
struct RowAmount {
    PrintedAmount amount;
    std::size_t first = 0; ///< index of its first word in the row
    std::size_t last = 0;
    PagePlace place;
    PagePlace printed;
    double certainty = 1;
};

/// Words on one baseline, from left to right.
struct Row {
    double top = 0;
    double bottom = 0;
    std::vector<RowWord> words;
    std::vector<RowAmount> amounts; ///< from left to right
    std::string folded;             ///< all words

    double middle() const { return (top + bottom) / 2; }
    double height() const { return bottom - top; }
};

/// A page as rows from top to bottom.
struct PageRows {
    int number = 0;
    double width = 0;
    double height = 0;
    bool isRecognised = false;
    double slope = 0; ///< of the text lines, downwards per unit to the right
    std::vector<Row> rows;
};

/// Rebuilds the rows of a page by their baseline. The slope of the lines (a crooked scan) is found
/// from the words themselves, up to 6 degrees.
PageRows buildRows(const PageReading& page);

/// Words as a row of their own, with the amounts among them.
Row rowOfWords(std::vector<RowWord> words, bool isRecognised);

/// Sets a row lower by points; where it is printed stays.
void moveDown(Row& row, double by);

/// The rows of a text without places: each line is a row, a word's column its number of characters.
/// `number` is 0.
PageRows rowsOfText(std::string_view text, bool isRecognised);

/// A page of the same number, size and slope that has no rows yet, for a part of it.
PageRows withoutRows(const PageRows& page);

/// A place on a page as fractions of the page, three decimals; absent for a page without size.
std::optional<PageBox> pageBox(const PagePlace& place, const PageRows& page);

} // namespace fiscarel
