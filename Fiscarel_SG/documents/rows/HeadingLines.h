#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Words of lines below one another in one line between two edges, read one after the other; words
/// that are in one line already stay where they are.
void layInLine(std::vector<RowWord>& words, double left, double right);

/// Makes one of words that headings of columns part over two lines: "Kosten-" over "beteiligung".
/// The whole stands in the upper line.
void joinPartedWords(PageRows& page);

/// Joins the two lines of a heading over a single row of amounts, each line with its words in the
/// middle or at the right of its column: "Stipendio | Deduzioni" over "lordo | sociali".
void joinHeadingLines(PageRows& page);

} // namespace fiscarel
